#include "ui/BoxScope.h"

#include "core/Platform.h"
#include "ui/Form.h"

namespace tallyrun {
namespace {

bool CanOwn(HWND window) {
  return window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window);
}

// The active form; when another program is in front, the one loaded last that can be used.
HWND FormInFront() {
  const HWND active = GetActiveWindow();
  if (CanOwn(active) && Form::FromHandle(active) != nullptr) return active;
  HWND front = nullptr;
  for (const Form* form : Form::LoadedForms()) {
    if (CanOwn(form->Handle())) front = form->Handle();
  }
  return front;
}

}  // namespace

BoxScope::BoxScope() : owner_(FormInFront()) {
  if (Form::ProgramIsEnding()) throw ProgramEnding{};
  disabled_ = DisableOtherForms(owner_);
}

BoxScope::~BoxScope() { EnableForms(disabled_); }

}  // namespace tallyrun
