// How wide a text is in a window's font, in twips (1,440 to the inch). All text is single-byte,
// so a table of one advance width per byte says everything.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tallyrun {

inline constexpr int kTwipsPerInch = 1440;

class TextMeasurer {
 public:
  // `advances` in pixels, at `pixelsPerInch`.
  TextMeasurer(const std::array<int, 256>& advances, int pixelsPerInch);
  // Every character `twips` wide; what tests use.
  static TextMeasurer FixedWidth(int twips);

  int WidthOf(std::string_view text) const;
  char WidestDigit() const;

 private:
  std::array<int, 256> advances_;
  int pixelsPerInch_;
};

// Rounded to the nearest; half away from zero.
int TwipsToPixels(int twips, int pixelsPerInch);
int PixelsToTwips(int pixels, int pixelsPerInch);

}  // namespace tallyrun
