#include "holding/HoldingBalances.h"

#include "core/RuntimeError.h"
#include "core/text/Conversion.h"
#include "core/text/PlainNumber.h"

namespace tallyrun {

void HoldingBalances::Set(std::size_t pair, std::string_view balance) {
  if (const auto number = PlainNumber(balance)) {
    balances_[pair] = *number;
    return;
  }
  const std::size_t place = kFirstText + texts_.size();
  if (place >= kMissing) throw RuntimeError(ErrorKind::OutOfMemory);
  texts_.emplace_back(balance);
  balances_[pair] = static_cast<std::uint32_t>(place);
}

bool HoldingBalances::CoversByText(std::uint32_t balance, std::int32_t quantity) const {
  return quantity <= ToDouble(texts_[balance - kFirstText]);
}

std::string HoldingBalances::TextOf(std::size_t pair) const {
  const std::uint32_t balance = balances_[pair];
  return balance < kFirstText ? std::to_string(balance) : texts_[balance - kFirstText];
}

}  // namespace tallyrun
