// The files of an invented broker's day, of any size, drawn from a seed: the same bytes on every
// machine. Knows nothing of the program that will read them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tallyrun::bench {

// A 64-bit generator of our own (a Weyl sequence, mixed): integers alone, so that no library's
// distribution and no rounding has a say in what is drawn.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next();
  // From 0 to `count` - 1; `count` is not 0.
  std::uint32_t Below(std::uint32_t count);
  bool OneIn(std::uint32_t count) { return Below(count) == 0; }

 private:
  std::uint64_t state_;
};

struct DaySize {
  std::uint32_t trades = 0;
  std::uint32_t accounts = 0;
  std::uint32_t securities = 0;
  std::uint32_t holdings = 0;
  bool isSound = false;  // no sale without its holding
};

// Every account holds its share of `holdings` securities and trades mostly in them; some accounts
// trade much more than others. Nine trades in ten are sales. A few sales exceed the holding, and
// a few have none at all, unless the day is to be sound.
class DayFiles {
 public:
  DayFiles(const DaySize& size, std::uint64_t seed);

  // The contents of BO.txt and ISIN.txt as the program writes them, with the lone CR at the end.
  std::string BoList() const;
  std::string IsinList() const;
  // Of payin_05-01-2010.txt and of the depository's report.
  std::string TradeFile() const;
  std::string HoldingFile() const;

 private:
  struct Account {
    std::string boId;
    std::string name;
    std::string clientCode;
  };
  struct Security {
    std::string isin;
    std::string name;
    std::string scripId;
  };
  struct Holding {
    std::uint32_t account = 0;
    std::uint32_t security = 0;
    std::uint32_t sold = 0;
    std::uint32_t balance = 0;
  };
  struct Trade {
    std::uint32_t account = 0;
    std::uint32_t security = 0;
    std::uint32_t quantity = 0;
    bool isSale = false;
  };

  void DrawAccounts(std::uint32_t count);
  void DrawSecurities(std::uint32_t count);
  void DrawHoldings(std::uint32_t count);
  void DrawTrades(std::uint32_t count, bool isSound);
  void DrawBalances(bool isSound);
  std::size_t FirstHoldingOf(std::uint32_t account) const;

  Random random_;
  std::vector<Account> accounts_;
  std::vector<Security> securities_;
  std::vector<Holding> holdings_;  // account after account
  std::vector<Trade> trades_;
};

}  // namespace tallyrun::bench
