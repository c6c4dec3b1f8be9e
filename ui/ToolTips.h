// The tool tips of one form: one tip window for all of its controls.
#pragma once

#include <windows.h>

#include <string>

namespace tallyrun {

class ToolTips {
 public:
  // Shows `text` over `control`, a child somewhere in `form`; "" takes the tip away.
  void Set(HWND form, HWND control, const std::string& text);
  // To be called before the control's window goes.
  void Remove(HWND form, HWND control);
  // The tip window went with its form.
  void Forget() { tips_ = nullptr; }
  void ApplyFont(HFONT font, int dpi);

 private:
  HFONT font_ = nullptr;  // the form's
  int dpi_ = 96;
  HWND tips_ = nullptr;  // owned by the form's window and destroyed with it
};

}  // namespace tallyrun
