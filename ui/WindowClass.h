// Window classes: registering ours, and standing before the procedure of another's.
#pragma once

#include <windows.h>

#include "resources/ResourceIds.h"

namespace tallyrun {

// The class that windows of ours are made from. Registering it again fails and changes nothing.
inline void RegisterWindowClass(const char* name, WNDPROC procedure, UINT style = 0) {
  const HINSTANCE program = GetModuleHandleA(nullptr);
  WNDCLASSA windowClass = {};
  windowClass.style = style;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = program;
  windowClass.hIcon = LoadIconA(program, MAKEINTRESOURCEA(TALLYRUN_ICON));
  windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = name;
  RegisterClassA(&windowClass);
}

// The procedure of a window's class, once one of ours stands before it. The system's own way of
// doing this keeps its state in window properties, which Wine asks another process for with every
// message.
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
