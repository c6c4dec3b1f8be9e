// The procedure of a window's class, once one of ours stands before it. The system's own way of
// doing this keeps its state in window properties, which Wine asks another process for with every
// message.
#pragma once

#include <windows.h>

namespace tallyrun {

class ClassProc {
 public:
  // From now on `ours` gets the window's messages, and passes on what is not its own with Call.
  void Precede(HWND window, WNDPROC ours) {
    // In the wide form where the class has it, so that its messages stay as they are.
    isWide_ = IsWindowUnicode(window) != FALSE;
    const auto value = reinterpret_cast<LONG_PTR>(ours);
    proc_ = reinterpret_cast<WNDPROC>(isWide_ ? SetWindowLongPtrW(window, GWLP_WNDPROC, value)
                                              : SetWindowLongPtrA(window, GWLP_WNDPROC, value));
  }

  LRESULT Call(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const {
    return isWide_ ? CallWindowProcW(proc_, window, message, wParam, lParam)
                   : CallWindowProcA(proc_, window, message, wParam, lParam);
  }

 private:
  WNDPROC proc_ = nullptr;
  bool isWide_ = false;
};

}  // namespace tallyrun
