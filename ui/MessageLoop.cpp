#include "ui/MessageLoop.h"

#include <windows.h>

#include "core/Platform.h"
#include "ui/Form.h"

namespace tallyrun {
namespace {

// Enter and Esc go to the control that has the focus; the dialog keyboard would press a button.
bool IsEnterOrEscape(const MSG& message) {
  const bool isKey = message.message == WM_KEYDOWN || message.message == WM_CHAR;
  return isKey && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE);
}

void Handle(MSG& message) {
  const Form* const form = Form::FromHandle(GetAncestor(message.hwnd, GA_ROOT));
  if (form != nullptr && !IsEnterOrEscape(message) &&
      IsDialogMessageA(form->Handle(), &message) != FALSE) {
    return;
  }
  TranslateMessage(&message);
  DispatchMessageA(&message);
}

bool IsMainFormLoaded() {
  for (const Form* form : Form::LoadedForms()) {
    if (form->EndsProgram()) return true;
  }
  return false;
}

}  // namespace

void RunMessagesUntil(const std::function<bool()>& done) {
  MSG message;
  while (!done()) {
    const BOOL got = GetMessageA(&message, nullptr, 0, 0);
    if (got == 0) {
      // The loops around this one have to end as well.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (got == -1) return;
    Handle(message);
  }
}

int RunMessageLoop() {
  RunMessagesUntil([] { return !IsMainFormLoaded(); });
  return 0;
}

void PumpMessages() {
  MSG message;
  while (!Form::ProgramIsEnding() && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      throw ProgramEnding{};
    }
    Handle(message);
  }
  if (Form::ProgramIsEnding()) throw ProgramEnding{};
}

}  // namespace tallyrun
