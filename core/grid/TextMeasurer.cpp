#include "core/grid/TextMeasurer.h"

#include <algorithm>
#include <iterator>

namespace tallyrun {
namespace {

constexpr char kDigits[] = {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9'};

// value * numerator / denominator, rounded to the nearest, kept inside an int.
int Scale(std::int64_t value, std::int64_t numerator, std::int64_t denominator) {
  const std::int64_t product = value * numerator;
  const std::int64_t half = product < 0 ? -denominator / 2 : denominator / 2;
  const std::int64_t scaled = (product + half) / denominator;
  constexpr std::int64_t kLimit = 1'000'000'000;
  return static_cast<int>(scaled > kLimit ? kLimit : scaled < -kLimit ? -kLimit : scaled);
}

}  // namespace

int TwipsToPixels(int twips, int pixelsPerInch) {
  return Scale(twips, pixelsPerInch, kTwipsPerInch);
}

int PixelsToTwips(int pixels, int pixelsPerInch) {
  return Scale(pixels, kTwipsPerInch, pixelsPerInch);
}

TextMeasurer::TextMeasurer(const std::array<int, 256>& advances, int pixelsPerInch)
    : advances_(advances), pixelsPerInch_(pixelsPerInch) {}

TextMeasurer TextMeasurer::FixedWidth(int twips) {
  std::array<int, 256> advances;
  advances.fill(twips);
  return TextMeasurer(advances, kTwipsPerInch);
}

int TextMeasurer::WidthOf(std::string_view text) const {
  std::int64_t pixels = 0;
  for (const char character : text) pixels += advances_[static_cast<unsigned char>(character)];
  return Scale(pixels, kTwipsPerInch, pixelsPerInch_);
}

char TextMeasurer::WidestDigit() const {
  return *std::max_element(std::begin(kDigits), std::end(kDigits), [this](char left, char right) {
    return advances_[static_cast<unsigned char>(left)] <
           advances_[static_cast<unsigned char>(right)];
  });
}

}  // namespace tallyrun
