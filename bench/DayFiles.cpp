#include "bench/DayFiles.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

namespace tallyrun::bench {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

constexpr std::array<std::string_view, 16> kSyllables = {"ba",  "dor", "el", "fi",  "gra", "hem",
                                                         "io",  "kas", "lu", "mer", "nys", "or",
                                                         "pel", "ras", "ti", "vo"};
constexpr std::array<std::string_view, 8> kTrades = {
    "Cement Works", "Jute Mills", "Telecom", "Bank", "Pharma", "Power", "Ceramics", "Insurance"};

std::string Digits(std::uint64_t number, std::size_t width) {
  std::string digits = std::to_string(number);
  digits.insert(0, width - std::min(width, digits.size()), '0');
  return digits;
}

std::string Word(Random& random, int syllables) {
  std::string word;
  for (int at = 0; at < syllables; ++at) {
    word += kSyllables[random.Below(static_cast<std::uint32_t>(kSyllables.size()))];
  }
  word.front() = static_cast<char>(word.front() - 'a' + 'A');
  return word;
}

// `number` spread over `count` places without repeating one: nearby numbers end far apart.
std::uint32_t Scattered(std::uint32_t number, std::uint32_t count) {
  std::uint32_t step = static_cast<std::uint32_t>(count * std::uint64_t{618} / 1000) | 1;
  while (std::gcd(step, count) != 1) step += 2;
  return static_cast<std::uint32_t>(std::uint64_t{number} * step % count);
}

// Six letters, each number its own: none contains another.
std::string ScripId(std::uint32_t number) {
  std::string letters(6, 'A');
  std::uint64_t rest = number * std::uint64_t{154'858'913} % 308'915'776;  // 26 to the 6th
  for (char& letter : letters) {
    letter = static_cast<char>('A' + rest % 26);
    rest /= 26;
  }
  return letters;
}

class TextFile {
 public:
  template <class... Pieces>
  void Line(const Pieces&... pieces) {
    ((text_ += pieces), ...);
    text_ += kLineEnd;
  }
  std::string Take() { return std::move(text_); }
  // As the program ends its lists: the last line feed taken off.
  std::string TakeWithLoneCr() {
    text_.pop_back();
    return std::move(text_);
  }

 private:
  std::string text_;
};

}  // namespace

std::uint64_t Random::Next() {
  state_ += 0x9E3779B97F4A7C15u;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
  return mixed ^ (mixed >> 31);
}

std::uint32_t Random::Below(std::uint32_t count) {
  return static_cast<std::uint32_t>((Next() >> 32) * count >> 32);
}

DayFiles::DayFiles(const DaySize& size, std::uint64_t seed) : random_(seed) {
  DrawAccounts(size.accounts);
  DrawSecurities(size.securities);
  DrawHoldings(size.holdings);
  DrawTrades(size.trades, size.isSound);
  DrawBalances(size.isSound);
}

void DayFiles::DrawAccounts(std::uint32_t count) {
  std::uint32_t number = 10'000;
  for (std::uint32_t account = 0; account < count; ++account) {
    number += 1 + random_.Below(90);
    const std::string family = Word(random_, 3);
    accounts_.push_back({"77023100" + Digits(number, 8), Word(random_, 2) + " " + family,
                         family.substr(0, 1) + Digits(101 + account, 3)});
  }
}

void DayFiles::DrawSecurities(std::uint32_t count) {
  for (std::uint32_t security = 0; security < count; ++security) {
    const std::string_view trade =
        kTrades[random_.Below(static_cast<std::uint32_t>(kTrades.size()))];
    securities_.push_back({"QK" + Digits(1000 + security, 7) + Digits(random_.Below(1000), 3),
                           Word(random_, 3) + " " + std::string(trade) + " Ltd.",
                           ScripId(security)});
  }
}

// The account's holdings begin here, and the next account's where they end.
std::size_t DayFiles::FirstHoldingOf(std::uint32_t account) const {
  return static_cast<std::size_t>(std::uint64_t{account} * holdings_.size() / accounts_.size());
}

void DayFiles::DrawHoldings(std::uint32_t count) {
  holdings_.resize(count);
  const auto securities = static_cast<std::uint32_t>(securities_.size());
  for (std::uint32_t account = 0; account < accounts_.size(); ++account) {
    // Steps of less than a share of the list never come to one security twice.
    const std::size_t first = FirstHoldingOf(account);
    const std::size_t end = FirstHoldingOf(account + 1);
    if (first == end) continue;
    const std::uint32_t share = std::max(1u, securities / static_cast<std::uint32_t>(end - first));
    std::uint32_t security = random_.Below(securities);
    for (std::size_t at = first; at < end; ++at) {
      holdings_[at].account = account;
      holdings_[at].security = security % securities;
      security += 1 + random_.Below(share);
    }
  }
}

void DayFiles::DrawTrades(std::uint32_t count, bool isSound) {
  const auto accounts = static_cast<std::uint32_t>(accounts_.size());
  for (std::uint32_t at = 0; at < count; ++at) {
    Trade trade;
    // The smaller of two draws: some accounts trade far more often than others.
    trade.account = Scattered(std::min(random_.Below(accounts), random_.Below(accounts)), accounts);
    trade.quantity = (1 + random_.Below(400)) * 5;
    trade.isSale = !random_.OneIn(10);
    const std::size_t first = FirstHoldingOf(trade.account);
    const auto held = static_cast<std::uint32_t>(FirstHoldingOf(trade.account + 1) - first);
    if (held == 0 || (!isSound && random_.OneIn(5000))) {
      trade.security = random_.Below(static_cast<std::uint32_t>(securities_.size()));
    } else {
      Holding& holding = holdings_[first + random_.Below(held)];
      trade.security = holding.security;
      if (trade.isSale) holding.sold += trade.quantity;
    }
    trades_.push_back(trade);
  }
}

void DayFiles::DrawBalances(bool isSound) {
  for (Holding& holding : holdings_) {
    const bool isShort = !isSound && holding.sold > 0 && random_.OneIn(1000);
    holding.balance = isShort ? holding.sold - 5 : holding.sold + random_.Below(1000) * 10;
  }
}

std::string DayFiles::BoList() const {
  TextFile file;
  file.Line("S/N~BO ID~BO Name~Client Code");
  std::uint32_t serial = 0;
  for (const Account& each : accounts_) {
    file.Line(std::to_string(++serial), "~", each.boId, "~", each.name, "~", each.clientCode);
  }
  return file.TakeWithLoneCr();
}

std::string DayFiles::IsinList() const {
  TextFile file;
  file.Line("S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code");
  std::uint32_t serial = 0;
  for (const Security& each : securities_) {
    ++serial;
    file.Line(std::to_string(serial), "~", each.isin, "~", each.name, "~", each.scripId, "~",
              std::to_string(11000 + serial));
  }
  return file.TakeWithLoneCr();
}

std::string DayFiles::TradeFile() const {
  TextFile file;
  std::uint32_t number = 0;
  for (const Trade& each : trades_) {
    ++number;
    const std::uint64_t second = std::uint64_t{number} * 14'000 / trades_.size();  // of four hours
    file.Line(std::to_string(230'000 + number), "|", securities_[each.security].scripId, "|A|",
              each.isSale ? "S" : "B", "|", std::to_string(each.quantity), "|",
              std::to_string(10 + number % 600), ".", Digits(number % 10 * 10, 2), "|",
              accounts_[each.account].clientCode, "|D0", std::to_string(1 + number % 7), "|",
              Digits(10 + second / 3600, 2), ":", Digits(second / 60 % 60, 2), ":",
              Digits(second % 60, 2), "|N|03-01-2010|410275");
  }
  return file.Take();
}

std::string DayFiles::HoldingFile() const {
  TextFile file;
  file.Line("11DPA6UX Report for Holding Balances of 04-Jan-2010 : Participant 77023100");
  file.Line();
  file.Line("Depository participant 77023100, broker 410275");
  file.Line("Accounts ", std::to_string(accounts_.size()), ", holdings ",
            std::to_string(holdings_.size()));
  file.Line();
  file.Line("Account ISIN Client Security Balance");
  file.Line("------------------------------------");
  file.Line();
  for (const Holding& each : holdings_) {
    const Account& account = accounts_[each.account];
    const Security& security = securities_[each.security];
    file.Line(account.boId, " ", security.isin, " ", account.clientCode, " ", security.name, " ",
              std::to_string(each.balance));
  }
  return file.Take();
}

}  // namespace tallyrun::bench
