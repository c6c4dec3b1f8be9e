#include "holding/HoldingFile.h"

#include <utility>

#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

constexpr std::string_view kBeforeSubject = "Report for ";
constexpr std::string_view kAfterSubject = " :";
constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

std::string_view HoldingFile::Subject() const {
  const std::string_view line = first_.text.substr(0, first_.text.find(kLineEnd));
  const std::size_t before = line.find(kBeforeSubject);
  if (before == std::string_view::npos) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  const std::string_view rest = line.substr(before + kBeforeSubject.size());
  return rest.substr(0, rest.find(kAfterSubject));
}

std::optional<LineBlock> HoldingFile::NextHoldings() {
  while (!isOver_) {
    LineBlock block = std::exchange(isBegun_, true) ? blocks_.Next(buffer_) : first_;
    isOver_ = block.isLast;
    SkipHeader(block);
    if (headerLinesLeft_ == 0 && (block.isLast || !block.text.empty())) return block;
  }
  return std::nullopt;
}

void HoldingFile::SkipHeader(LineBlock& block) {
  while (headerLinesLeft_ > 0) {
    const std::size_t end = block.text.find(kLineEnd);
    if (end == std::string_view::npos) return;
    block.text.remove_prefix(end + kLineEnd.size());
    --headerLinesLeft_;
  }
}

std::string_view HoldingFile::BalanceOf(std::string_view line) {
  const std::size_t blank = line.rfind(' ');
  return blank == std::string_view::npos ? line : line.substr(blank + 1);
}

}  // namespace tallyrun
