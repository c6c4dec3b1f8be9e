#include "core/BusyScope.h"

namespace tallyrun {

BusyScope::BusyScope(BusyWindow& window) : window_(window), outer_(window.innermost_) {
  if (outer_ != nullptr) {
    signs_ = outer_->signs_;
  } else {
    window_.ownCaption_ = window_.Caption();
  }
  window_.innermost_ = this;
}

BusyScope::~BusyScope() {
  window_.innermost_ = outer_;
  if (outer_ != nullptr) {
    outer_->ShowAgain();
  } else if (!left_) {
    End();
  }
}

void BusyScope::Show(const std::string& progress) { Show({progress, PointerShape::Hourglass}); }

void BusyScope::ShowPointer(PointerShape shape) { Show({signs_.progress, shape}); }

void BusyScope::End() { Show(Signs()); }

void BusyScope::TellOutcome(const std::string& outcome, const std::string& title,
                            MessageIcon icon) {
  Show({"..." + outcome, PointerShape::Normal});
  Tell(outcome, title, icon);
  End();
}

void BusyScope::Show(const Signs& signs) {
  signs_ = signs;
  ShowAgain();
}

void BusyScope::ShowAgain() {
  const std::string& progress = signs_.progress;
  const bool isBehindCaption = progress.empty() || progress.starts_with("...");
  window_.SetCaption(isBehindCaption ? window_.ownCaption_ + progress : progress);
  window_.SetPointer(signs_.pointer);
}

void BusyWindow::ChangeCaption(const std::string& caption) {
  if (innermost_ == nullptr) return SetCaption(caption);
  ownCaption_ = caption;
  innermost_->ShowAgain();
}

}  // namespace tallyrun
