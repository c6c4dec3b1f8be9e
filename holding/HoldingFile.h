// The depository's holding report as text: its subject, its holding lines and a line's balance.
// Knows nothing of the sheet or of where the text came from.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyrun {

class HoldingFile {
 public:
  // `text` is the whole report; lines end in CR LF.
  explicit HoldingFile(std::string text);

  // The text of line 1 between the first "Report for " and the " :" that follows. Raises
  // SubscriptOutOfRange when the line has no "Report for ".
  std::string_view Subject() const;

  // Line 9 and every line after it; nothing when the report ends before. A view into this.
  std::optional<std::string_view> Holdings() const {
    if (holdings_ == std::string::npos) return std::nullopt;
    return std::string_view(text_).substr(holdings_);
  }
  // Calls `visit(line)` for line 9 and every line after it, in order, until it returns false. The
  // views stay valid for as long as the file.
  template <class Visit>
  void ForEachHolding(Visit&& visit) const {
    std::size_t begin = holdings_;
    while (begin != std::string::npos) {
      const std::size_t end = text_.find(kLineEnd, begin);
      const std::size_t length = end == std::string::npos ? end : end - begin;
      if (!visit(std::string_view(text_).substr(begin, length))) return;
      begin = AfterLineEnd(end);
    }
  }

  // The last field of a holding line, as it stands in the file; fields end at each single blank.
  static std::string_view BalanceOf(std::string_view line);

 private:
  static constexpr std::string_view kLineEnd = "\r\n";
  static std::size_t AfterLineEnd(std::size_t lineEnd) {
    return lineEnd == std::string::npos ? lineEnd : lineEnd + kLineEnd.size();
  }

  std::string text_;
  std::size_t holdings_;  // where line 9 begins; npos when there is none
};

}  // namespace tallyrun
