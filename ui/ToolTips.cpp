#include "ui/ToolTips.h"

#include <commctrl.h>

#include "ui/Dpi.h"

namespace tallyrun {
namespace {

// Long tips wrap at this many pixels (at 96 DPI) instead of running off the screen.
constexpr int kWidestTip = 480;

TOOLINFOA ToolOf(HWND form, HWND control) {
  TOOLINFOA tool = {};
  tool.cbSize = TTTOOLINFOA_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  return tool;
}

}  // namespace

void ToolTips::Set(HWND form, HWND control, const std::string& text) {
  Remove(form, control);
  if (text.empty()) return;
  if (tips_ == nullptr) {
    tips_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                            WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                            CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, GetModuleHandleA(nullptr),
                            nullptr);
    ApplyFont(font_, dpi_);
  }
  TOOLINFOA tool = ToolOf(form, control);
  std::string copy = text;
  tool.lpszText = copy.data();
  SendMessageA(tips_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::Remove(HWND form, HWND control) {
  if (tips_ == nullptr) return;
  TOOLINFOA tool = ToolOf(form, control);
  SendMessageA(tips_, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::ApplyFont(HFONT font, int dpi) {
  font_ = font;
  dpi_ = dpi;
  if (tips_ == nullptr) return;
  SendMessageA(tips_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  SendMessageA(tips_, TTM_SETMAXTIPWIDTH, 0, ScaleForDpi(kWidestTip, dpi));
}

}  // namespace tallyrun
