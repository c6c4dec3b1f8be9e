// What a control or form tells its owner: one handler per event, set by the form's dispatch
// table. An event knows no window.
#pragma once

#include <functional>
#include <utility>

namespace tallyrun {

template <class... Args>
class Event {
 public:
  void Set(std::function<void(Args...)> handler) { handler_ = std::move(handler); }
  void Clear() { handler_ = nullptr; }
  bool HasHandler() const { return static_cast<bool>(handler_); }

  // Runs the handler, if there is one. It may replace or clear itself meanwhile.
  void Raise(Args... args) const {
    if (!handler_) return;
    const auto running = handler_;
    running(std::forward<Args>(args)...);
  }

 private:
  std::function<void(Args...)> handler_;
};

// A key as a handler sees it.
struct KeyEvent {
  int key = 0;  // virtual-key code for KeyDown and KeyUp, character code for KeyPress
  bool shift = false;
  bool control = false;
  bool handled = false;   // set by the handler: the control does nothing with the key
  bool repeated = false;  // the key is being held down

  // Takes `wanted` from the control. True when the handler is to act on it: a held key acts once.
  bool Take(int wanted) {
    if (key != wanted) return false;
    handled = true;
    return !repeated;
  }
};

}  // namespace tallyrun
