#include "holding/HoldingFile.h"

#include "core/RuntimeError.h"
#include "core/text/Split.h"

namespace tallyrun {

HoldingFile::HoldingFile(std::string_view report) : rest_(report) {
  constexpr int kHeaderLines = 8;
  firstLine_ = *NextLine();
  for (int line = 2; line <= kHeaderLines; ++line) NextLine();
}

std::string_view HoldingFile::Subject() const {
  constexpr std::string_view kBefore = "Report for ";
  const std::size_t before = firstLine_.find(kBefore);
  if (before == firstLine_.npos) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  const std::string_view subject = firstLine_.substr(before + kBefore.size());
  return subject.substr(0, subject.find(" :"));
}

std::optional<std::string_view> HoldingFile::NextLine() {
  if (!rest_) return std::nullopt;
  const std::size_t end = rest_->find(kLineEnd);
  const std::string_view line = rest_->substr(0, end);
  if (end == rest_->npos) {
    rest_.reset();
  } else {
    rest_->remove_prefix(end + kLineEnd.size());
  }
  return line;
}

std::string_view HoldingFile::BalanceOf(std::string_view holding) {
  return holding.substr(holding.rfind(' ') + 1);  // all of it where there is no blank
}

}  // namespace tallyrun
