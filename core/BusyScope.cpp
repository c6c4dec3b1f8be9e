#include "core/BusyScope.h"

namespace tallyrun {

void BusyWindow::SetCaption(const std::string& caption) {
  ownCaption_ = caption;
  if (innermost_ == nullptr) return ShowCaption(caption);
  innermost_->ShowAgain();
}

BusyScope::BusyScope(BusyWindow& window) : window_(window), outer_(window.innermost_) {
  if (outer_ != nullptr) signs_ = outer_->signs_;
  window_.innermost_ = this;
}

BusyScope::~BusyScope() {
  window_.innermost_ = outer_;
  if (outer_ != nullptr) {
    outer_->ShowAgain();
  } else if (leaves_) {
    window_.ownCaption_ = CaptionShown();
  } else {
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

void BusyScope::ShowAgain() const {
  window_.ShowCaption(CaptionShown());
  window_.ShowPointer(signs_.pointer);
}

std::string BusyScope::CaptionShown() const {
  const std::string& progress = signs_.progress;
  const bool isBehindCaption = progress.empty() || progress.starts_with("...");
  return isBehindCaption ? window_.ownCaption_ + progress : progress;
}

}  // namespace tallyrun
