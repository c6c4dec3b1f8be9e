// What depends on the pixels per inch: the message font, its character widths, and window frames.
// Windows 10's per-monitor functions are used where the system has them.
#pragma once

#include <windows.h>

#include <string>

#include "core/grid/TextMeasurer.h"
#include "ui/Handles.h"

namespace tallyrun {

inline constexpr int kDefaultDpi = 96;

int DpiOf(HWND window);
int SystemDpi();
// Pixels at 96 DPI to pixels at `dpi`.
int ScaleForDpi(int pixels, int dpi);

// The system's message font at `dpi`, in the face `face` when one is named.
UniqueFont MakeMessageFont(int dpi, const std::string& face = "");
// The widths of the font's 256 characters.
TextMeasurer MeasurerFor(HFONT font, int dpi);
// A line's height in the font, or in the one selected into `dc`, in pixels.
int LineHeightOf(HFONT font);
int LineHeightOf(HDC dc);

// The size of a window whose client area is `client`.
SIZE WindowSizeFor(SIZE client, DWORD style, DWORD extendedStyle, int dpi);

}  // namespace tallyrun
