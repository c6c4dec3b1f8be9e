#include "ui/Dpi.h"

#include <array>
#include <cstring>

namespace tallyrun {
namespace {

// A function of user32 that older systems lack; null there.
template <class Function>
Function User32(const char* name) {
  // Through void*, as GetProcAddress's own type fits no function.
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("user32.dll"), name)));
}

// Without the padded border that systems before Vista refuse to know.
NONCLIENTMETRICSA MetricsAt(int dpi) {
  // The per-monitor call exists for wide text only.
  using ForDpi = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
  static const auto forDpi = User32<ForDpi>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSA metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  NONCLIENTMETRICSW wide = {};
  wide.cbSize = sizeof wide;
  if (forDpi != nullptr &&
      forDpi(SPI_GETNONCLIENTMETRICS, sizeof wide, &wide, 0, static_cast<UINT>(dpi)) != FALSE) {
    metrics.lfMessageFont.lfHeight = wide.lfMessageFont.lfHeight;
  } else {
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
  }
  metrics.lfMessageFont.lfWidth = 0;
  return metrics;
}

}  // namespace

int SystemDpi() {
  static const int dpi = GetDeviceCaps(WindowDc(nullptr).Get(), LOGPIXELSY);
  return dpi;
}

int DpiOf(HWND window) {
  using DpiForWindow = UINT(WINAPI*)(HWND);
  static const auto dpiForWindow = User32<DpiForWindow>("GetDpiForWindow");
  const int dpi = dpiForWindow == nullptr ? 0 : static_cast<int>(dpiForWindow(window));
  return dpi == 0 ? SystemDpi() : dpi;
}

int ScaleForDpi(int pixels, int dpi) { return MulDiv(pixels, dpi, kDefaultDpi); }

UniqueFont MakeMessageFont(int dpi, const std::string& face) {
  LOGFONTA font = MetricsAt(dpi).lfMessageFont;
  if (!face.empty()) {
    std::memset(font.lfFaceName, 0, sizeof font.lfFaceName);
    face.copy(font.lfFaceName, sizeof font.lfFaceName - 1);
  }
  return UniqueFont(CreateFontIndirectA(&font));
}

TextMeasurer MeasurerFor(HFONT font, int dpi) {
  const WindowDc screen(nullptr);
  const SelectScope selected(screen.Get(), font);
  std::array<int, 256> advances = {};
  GetCharWidth32A(screen.Get(), 0, 255, advances.data());
  return TextMeasurer(advances, dpi);
}

int LineHeightOf(HFONT font) {
  const WindowDc screen(nullptr);
  const SelectScope selected(screen.Get(), font);
  return LineHeightOf(screen.Get());
}

int LineHeightOf(HDC dc) {
  TEXTMETRICA metrics = {};
  GetTextMetricsA(dc, &metrics);
  return metrics.tmHeight;
}

SIZE WindowSizeFor(SIZE client, DWORD style, DWORD extendedStyle, int dpi) {
  using AdjustForDpi = BOOL(WINAPI*)(LPRECT, DWORD, BOOL, DWORD, UINT);
  static const auto adjustForDpi = User32<AdjustForDpi>("AdjustWindowRectExForDpi");
  RECT frame = {0, 0, client.cx, client.cy};
  if (adjustForDpi != nullptr) {
    adjustForDpi(&frame, style, FALSE, extendedStyle, static_cast<UINT>(dpi));
  } else {
    AdjustWindowRectEx(&frame, style, FALSE, extendedStyle);
  }
  return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace tallyrun
