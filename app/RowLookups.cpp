#include "app/RowLookups.h"

#include <string>

#include "core/masterlists/Lists.h"
#include "core/masterlists/Lookups.h"

namespace tallyrun {
namespace {

template <class Answer>
Answer AtOr(const std::vector<Answer>& answers, std::size_t place, const Answer& otherwise) {
  return place < answers.size() ? answers[place] : otherwise;
}

template <class Answer>
void KeepAt(std::vector<Answer>& answers, std::size_t place, const Answer& answer,
            const Answer& filling) {
  if (place >= answers.size()) answers.resize(place + place / 2 + 1, filling);
  answers[place] = answer;
}

}  // namespace

CodeAndName RowLookups::Memo::At(CellValue key) const {
  const CodeAndName unknown = {kUnknown, kUnknown};
  if (!IsNumber(key)) return AtOr(texts_, static_cast<std::size_t>(key), unknown);
  if (NumberOf(key) < kLargeNumber) return AtOr(smallNumbers_, NumberOf(key), unknown);
  const auto found = largeNumbers_.find(key);
  return found == largeNumbers_.end() ? unknown : found->second;
}

void RowLookups::Memo::Keep(CellValue key, const CodeAndName& answer) {
  const CodeAndName unknown = {kUnknown, kUnknown};
  if (!IsNumber(key)) {
    KeepAt(texts_, static_cast<std::size_t>(key), answer, unknown);
  } else if (NumberOf(key) < kLargeNumber) {
    KeepAt(smallNumbers_, NumberOf(key), answer, unknown);
  } else {
    largeNumbers_[key] = answer;
  }
}

void RowLookups::Memo::Prefetch(CellValue key) const {
  const auto place = static_cast<std::size_t>(key);
  if (place < texts_.size()) __builtin_prefetch(&texts_[place]);
}

void RowLookups::PrefetchTextsOf(CellValue clientCode) const {
  const CodeAndName known = answers_.accounts.At(clientCode);
  if (known.code == kUnknown) return;
  grid_.PrefetchText(known.code);
  grid_.PrefetchText(known.name);
}

RowLookups::RowLookups(FlexGrid& grid) : grid_(grid), answers_(AnswersFor(grid)) {}

RowLookups::Answers& RowLookups::AnswersFor(const FlexGrid& grid) {
  static Answers answers;
  if (answers.texts != grid.TextEdition() || answers.boList != BoList.Edition() ||
      answers.isinList != IsinList.Edition()) {
    answers = Answers{grid.TextEdition(), BoList.Edition(), IsinList.Edition(), {}, {}};
  }
  return answers;
}

CodeAndName RowLookups::LookUpAccount(CellValue clientCode) {
  CellScratch scratch;
  const AccountViews account = AccountOfClientCode(grid_.View(clientCode, scratch));
  const CodeAndName answer = {grid_.Intern(account.boId), grid_.Intern(account.boName)};
  answers_.accounts.Keep(clientCode, answer);
  return answer;
}

CodeAndName RowLookups::LookUpSecurity(CellValue scripId) {
  CellScratch scratch;
  const std::string isinCode = LookupIsinCodeByScrip(grid_.View(scripId, scratch));
  const CodeAndName answer = {grid_.Intern(isinCode), grid_.Intern(LookupIsinName(isinCode))};
  answers_.securities.Keep(scripId, answer);
  return answer;
}

}  // namespace tallyrun
