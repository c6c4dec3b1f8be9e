// What a long operation may do to the window it runs in: its caption and its pointer. The
// operations themselves know no window.
#pragma once

#include <string>

namespace tallyrun {

enum class PointerShape { Normal, Hourglass };

class BusyWindow {
 public:
  virtual ~BusyWindow() = default;
  virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  virtual void SetPointer(PointerShape shape) = 0;
};

// Ends a long operation's signs: the caption it kept and the normal pointer.
inline void EndBusy(BusyWindow& window, const std::string& savedCaption) {
  window.SetPointer(PointerShape::Normal);
  window.SetCaption(savedCaption);
}

}  // namespace tallyrun
