// What a long operation may do to the window it runs in: its caption and its pointer. The
// operations themselves know no window, and reach it through a BusyScope.
#pragma once

#include <string>

namespace tallyrun {

class BusyScope;

enum class PointerShape { Normal, Hourglass };

class BusyWindow {
 public:
  virtual ~BusyWindow() = default;
  virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  virtual void SetPointer(PointerShape shape) = 0;

  // Gives the window another caption of its own; while an operation shows its progress, that
  // stays, and the window comes back to `caption`.
  void ChangeCaption(const std::string& caption);
  // What it comes back to; while a BusyScope lives.
  const std::string& OwnCaption() const { return ownCaption_; }

 private:
  friend class BusyScope;

  std::string ownCaption_;
  BusyScope* innermost_ = nullptr;
};

// Ends a long operation's signs: the caption it kept and the normal pointer.
inline void EndBusy(BusyWindow& window, const std::string& savedCaption) {
  window.SetPointer(PointerShape::Normal);
  window.SetCaption(savedCaption);
}

}  // namespace tallyrun
