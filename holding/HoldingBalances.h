// The balances found for the pairs of a holding search, as the file writes them. Nearly all are
// plain numbers and kept as such, four bytes each, so that they are read once and compared as
// numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallyrun {

class HoldingBalances {
 public:
  explicit HoldingBalances(std::size_t pairs) : balances_(pairs, kMissing) {}

  void Set(std::size_t pair, std::string_view balance);

  bool IsMissing(std::size_t pair) const { return balances_[pair] == kMissing; }
  // Whether the balance is there and is enough. Raises TypeMismatch when it is no number.
  bool Covers(std::size_t pair, std::int32_t quantity) const {
    const std::uint32_t balance = balances_[pair];
    if (balance < kFirstText) return quantity <= static_cast<std::int32_t>(balance);
    return balance != kMissing && CoversByText(balance, quantity);
  }
  // Of a balance that is there.
  std::string TextOf(std::size_t pair) const;

 private:
  // What lies below is a number itself, what lies above the index of a text.
  static constexpr std::uint32_t kFirstText = 1'000'000'000;
  static constexpr std::uint32_t kMissing = UINT32_MAX;

  bool CoversByText(std::uint32_t balance, std::int32_t quantity) const;

  std::vector<std::uint32_t> balances_;  // by pair
  std::vector<std::string> texts_;
};

}  // namespace tallyrun
