#include "holding/HoldingFile.h"

#include <utility>

#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

constexpr int kHeaderLines = 8;
constexpr std::string_view kBeforeSubject = "Report for ";
constexpr std::string_view kAfterSubject = " :";

}  // namespace

HoldingFile::HoldingFile(std::string text) : text_(std::move(text)), holdings_(0) {
  for (int line = 0; line < kHeaderLines && holdings_ != std::string::npos; ++line) {
    holdings_ = AfterLineEnd(text_.find(kLineEnd, holdings_));
  }
}

std::string_view HoldingFile::Subject() const {
  const std::string_view line = std::string_view(text_).substr(0, text_.find(kLineEnd));
  const std::size_t before = line.find(kBeforeSubject);
  if (before == std::string_view::npos) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  const std::string_view rest = line.substr(before + kBeforeSubject.size());
  return rest.substr(0, rest.find(kAfterSubject));
}

std::string_view HoldingFile::BalanceOf(std::string_view line) {
  const std::size_t blank = line.rfind(' ');
  return blank == std::string_view::npos ? line : line.substr(blank + 1);
}

}  // namespace tallyrun
