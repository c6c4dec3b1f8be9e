#include "app/TradeLines.h"

#include <array>

#include "core/grid/FlexGrid.h"
#include "core/text/PlainNumber.h"
#include "core/text/SeparatorScan.h"

namespace tallyrun {
namespace {

constexpr char kFieldMark = '|';

// One line by the places of its separators.
class Fields {
 public:
  explicit Fields(std::string_view text) : text_(text) {}

  void BeginLine(std::size_t place) {
    begin_ = place;
    count_ = 0;
  }
  // The next field ends here.
  void End(std::size_t place) {
    ends_[count_] = place;
    count_ += count_ < TradeField::kCount ? 1 : 0;
  }

  std::size_t Count() const { return count_; }
  std::string_view At(std::size_t field) const {
    if (field >= count_) return {};
    const std::size_t begin = field == 0 ? begin_ : ends_[field - 1] + 1;
    return text_.substr(begin, ends_[field] - begin);
  }

 private:
  const std::string_view text_;
  std::size_t begin_ = 0;
  std::size_t count_ = 0;
  std::array<std::size_t, TradeField::kCount + 1> ends_{};  // one more, for ends not looked at
};

}  // namespace

void TradeReader::Read(LineBlocks& blocks, TradeLines& lines) {
  const LineBlock block = blocks.Next(lines.buffer);
  lines.lines.clear();
  lines.texts.clear();
  lines.isLast = block.isLast;
  const std::string_view text = block.text;
  Fields fields(text);
  fields.BeginLine(0);
  bool goesOn = true;
  const auto endLine = [&] {
    if (fields.Count() < 2 || !goesOn) return;
    goesOn = fields.Count() > TradeField::kSide;
    if (goesOn && !SameText(fields.At(TradeField::kSide), side_)) return;
    const TradeTexts& texts = lines.texts.emplace_back(
        TradeTexts{fields.At(TradeField::kScripId), fields.At(TradeField::kQuantity),
                   fields.At(TradeField::kClientCode), fields.At(TradeField::kTradeDate)});
    TradeLine& line = lines.lines.emplace_back();
    line.fields = static_cast<std::uint8_t>(fields.Count());
    line.security = NumberOf(texts.scripId);
    if (const auto number = PlainNumber(texts.quantity)) {
      line.quantity = NumberCell(static_cast<int>(*number));
    }
    line.isDateAsBefore = SameText(texts.tradeDate, tradeDate_);
    if (!line.isDateAsBefore) tradeDate_ = texts.tradeDate;
  };
  ForEachSeparator(text, kFieldMark, '\n', [&](std::size_t place) {
    if (text[place] == kFieldMark) {
      fields.End(place);
    } else if (place > 0 && text[place - 1] == '\r') {
      fields.End(place - 1);
      endLine();
      fields.BeginLine(place + 1);
    }
  });
  if (block.isLast) {
    fields.End(text.size());
    endLine();
  }
  FindAccounts(lines);
}

// A hundred thousand accounts do not fit in a processor's nearer caches: what is looked at for a
// line is fetched some lines before.
void TradeReader::FindAccounts(TradeLines& lines) const {
  constexpr std::size_t kAhead = 16;
  std::array<TextKey, kAhead> keys;
  const std::size_t count = lines.lines.size();
  for (std::size_t at = 0; at < count + kAhead; ++at) {
    TextKey& key = keys[at % kAhead];
    if (at >= kAhead) lines.lines[at - kAhead].account = accounts_.Find(key);
    if (at >= count) continue;
    key = TextKey(lines.texts[at].clientCode);
    accounts_.Prefetch(key);
  }
}

std::uint32_t TradeReader::NumberOf(std::string_view scripId) {
  if (scripId.size() > kWordBytes) return 0;
  const TextKey key(scripId);
  const std::uint32_t known = securities_.Find(key, [](std::uint32_t) { return ""; });
  if (known != TextTable::kNone) return known;
  securities_.Add(key, ++securityCount_);
  return securityCount_;
}

}  // namespace tallyrun
