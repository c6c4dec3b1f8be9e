#include "reports/InstructionReport.h"

#include <algorithm>

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "core/text/TextWriter.h"

namespace tallyrun {
namespace {

// Widths in characters.
constexpr std::size_t kReportWidth = 82;
constexpr int kSerialWidth = 4;
constexpr int kAccountIdWidth = 16;
constexpr int kAccountNameWidth = 44;  // spans the ISIN name, a gap and the quantity
constexpr int kClientCodeWidth = 12;
constexpr int kIsinWidth = 16;
constexpr int kIsinNameWidth = 32;
constexpr int kQuantityWidth = 10;
constexpr int kTradeDateWidth = 12;
constexpr int kHeaderValueWidth = 16;
constexpr std::string_view kGap = "  ";

constexpr std::string_view kPayInTitle =
    "MARSKELLEN STOCK EXCHANGE LTD. (PAY-IN INSTRUCTION REPORT)";
constexpr std::string_view kPayOutTitle =
    "MARSKELLEN STOCK EXCHANGE LTD. (PAY-OUT INSTRUCTION REPORT)";
constexpr std::string_view kPrintDateLabel = "Print Date             : ";
constexpr std::string_view kDeliveryDateLabel = "     Delivery Date          : ";
constexpr std::string_view kBrokerLabel =
    "Exchange ID            : 11              Broker / Dealer Code   : ";
constexpr std::string_view kClearingLabel =
    "                                         Clearing A/C ID        : ";
static_assert(kPrintDateLabel.size() + 11 + kDeliveryDateLabel.size() + kHeaderValueWidth ==
              kReportWidth);
static_assert(kBrokerLabel.size() + kHeaderValueWidth == kReportWidth);
static_assert(kClearingLabel.size() + kHeaderValueWidth == kReportWidth);

constexpr std::size_t kSignatureWidth = 33;
constexpr std::string_view kLeftSignature = "Authorized Signatory";
constexpr std::string_view kRightSignature = "Approved By KTX Official";

// `append(kept)` appends what the width leaves of the text.
template <class Append>
void AppendPaddedBy(Append&& append, TextWriter& report, std::string_view text, int width,
                    bool alignRight) {
  const auto size = static_cast<std::size_t>(width);
  const std::string_view kept = text.substr(0, size);
  if (alignRight) report.AppendBlanks(size - kept.size());
  append(kept);
  if (!alignRight) report.AppendBlanks(size - kept.size());
}

void AppendPadded(TextWriter& report, std::string_view text, int width, bool alignRight = false) {
  AppendPaddedBy([&report](std::string_view kept) { report.Append(kept); }, report, text, width,
                 alignRight);
}

// The same for a text behind which kReadableBehindText bytes can be read.
void AppendStoredPadded(TextWriter& report, std::string_view text, int width, bool alignRight) {
  AppendPaddedBy([&report](std::string_view kept) { report.AppendStored(kept); }, report, text,
                 width, alignRight);
}

void StartLine(TextWriter& report) { report.Append(kLineEnd); }

void AppendRule(TextWriter& report, char character) {
  StartLine(report);
  report.AppendRepeated(kReportWidth, character);
}

// The blanks under "Sl.#" with which the lines of an account begin.
void StartAccountLine(TextWriter& report) {
  StartLine(report);
  report.AppendBlanks(static_cast<std::size_t>(kSerialWidth));
  report.Append(kGap);
}

class ReportBuilder {
 public:
  ReportBuilder(const FlexGrid& entries, TextWriter& report) : entries_(entries), report_(report) {}

  void Build(std::string_view title, const Date& printDate) {
    AppendHeader(title, printDate);
    AppendColumnHeading();
    // The texts lie about in memory: each is fetched some rows before it is wanted.
    constexpr int kRowsAhead = 16;
    for (int row = 1; row < entries_.Rows(); ++row) {
      ForEachText(row + 2 * kRowsAhead, [this](CellValue text) { entries_.PrefetchText(text); });
      ForEachText(row + kRowsAhead,
                  [this](CellValue text) { __builtin_prefetch(entries_.TextOf(text).data()); });
      AppendEntry(row);
    }
    AppendRule(report_, '=');
  }

 private:
  void AppendHeader(std::string_view title, const Date& printDate) {
    report_.AppendRepeated(kReportWidth, '=');
    StartLine(report_);
    report_.Append(title);
    AppendRule(report_, '=');
    StartLine(report_);
    report_.Append(kPrintDateLabel);
    report_.Append(FormatDdMmmYyyy(printDate));
    report_.Append(kDeliveryDateLabel);
    AppendCell(1, EntryColumn::kDeliveryDate, kHeaderValueWidth, true);
    StartLine(report_);
    report_.Append(kBrokerLabel);
    AppendCell(1, EntryColumn::kBrokerId, kHeaderValueWidth, true);
    StartLine(report_);
    report_.Append(kClearingLabel);
    AppendPadded(report_, Settings.clearingBoid, kHeaderValueWidth, true);
    AppendRule(report_, '-');
  }

  void AppendColumnHeading() {
    StartAccountLine(report_);
    AppendPadded(report_, "A/C ID", kAccountIdWidth);
    report_.Append(kGap);
    AppendPadded(report_, "Name of Account Holder", kAccountNameWidth);
    report_.Append(kGap);
    AppendPadded(report_, "Client Code", kClientCodeWidth, true);
    StartAccountLine(report_);
    report_.AppendRepeated(kAccountIdWidth, '-');
    report_.Append(kGap);
    report_.AppendRepeated(kAccountNameWidth, '-');
    report_.Append(kGap);
    report_.AppendRepeated(kClientCodeWidth, '-');
    StartLine(report_);
    AppendPadded(report_, "Sl.#", kSerialWidth);
    report_.Append(kGap);
    AppendPadded(report_, "ISIN", kIsinWidth);
    report_.Append(kGap);
    AppendPadded(report_, "Name of ISIN", kIsinNameWidth);
    report_.Append(kGap);
    AppendPadded(report_, "Quantity", kQuantityWidth, true);
    report_.Append(kGap);
    AppendPadded(report_, "Trade Date", kTradeDateWidth, true);
    AppendRule(report_, '-');
  }

  void AppendEntry(int row) {
    if (row == 1 || !IsSameAccount(row - 1, row)) {
      if (row != 1) AppendRule(report_, '-');
      AppendAccountLine(row);
      serial_ = 1;
    }
    StartLine(report_);
    AppendPadded(report_, entries_.View(NumberCell(serial_++), scratch_), kSerialWidth);
    report_.Append(kGap);
    AppendCell(row, EntryColumn::kIsinCode, kIsinWidth);
    report_.Append(kGap);
    AppendCell(row, EntryColumn::kIsinName, kIsinNameWidth);
    report_.Append(kGap);
    AppendCell(row, EntryColumn::kQuantity, kQuantityWidth, true);
    report_.Append(kGap);
    AppendCell(row, EntryColumn::kTradeDate, kTradeDateWidth, true);
  }

  void AppendAccountLine(int row) {
    StartAccountLine(report_);
    AppendCell(row, EntryColumn::kBoId, kAccountIdWidth);
    report_.Append(kGap);
    AppendCell(row, EntryColumn::kBoName, kAccountNameWidth);
    report_.Append(kGap);
    AppendCell(row, EntryColumn::kClientCode, kClientCodeWidth, true);
  }

  void AppendCell(int row, int col, int width, bool alignRight = false) {
    const CellValue cell = entries_.Cell(row, col);
    if (IsNumber(cell)) {
      AppendPadded(report_, entries_.View(cell, scratch_), width, alignRight);
    } else {
      AppendStoredPadded(report_, entries_.TextOf(cell), width, alignRight);
    }
  }

  // Visits the texts that differ from row to row, if there is the row.
  template <class Visit>
  void ForEachText(int row, Visit&& visit) const {
    if (row >= entries_.Rows()) return;
    const auto visitCell = [&](int col) {
      const CellValue cell = entries_.Cell(row, col);
      if (!IsNumber(cell)) visit(cell);
    };
    visitCell(EntryColumn::kIsinCode);
    visitCell(EntryColumn::kIsinName);
    if (IsSameAccount(row - 1, row)) return;
    for (const int col : {EntryColumn::kBoId, EntryColumn::kBoName, EntryColumn::kClientCode}) {
      visitCell(col);
    }
  }

  bool IsSameAccount(int rowA, int rowB) const {
    return entries_.Cell(rowA, EntryColumn::kBoId) == entries_.Cell(rowB, EntryColumn::kBoId) &&
           entries_.Cell(rowA, EntryColumn::kClientCode) ==
               entries_.Cell(rowB, EntryColumn::kClientCode);
  }

  const FlexGrid& entries_;
  TextWriter& report_;
  CellScratch scratch_{};
  int serial_ = 1;  // of the ISIN within its account
};

void AppendSignatures(TextWriter& report) {
  for (int lineEnd = 0; lineEnd < 4; ++lineEnd) StartLine(report);
  report.AppendRepeated(kSignatureWidth, '-');
  report.AppendBlanks(kReportWidth - 2 * kSignatureWidth);
  report.AppendRepeated(kSignatureWidth, '-');
  StartLine(report);
  report.Append(kLeftSignature);
  report.AppendBlanks(kReportWidth - kLeftSignature.size() - kRightSignature.size());
  report.Append(kRightSignature);
  StartLine(report);
  report.Append("Of Broker/Dealer");
}

void WritePayInReport(const FlexGrid& entries, const Date& printDate, const TextSink& sink) {
  TextWriter report(sink);
  ReportBuilder(entries, report).Build(kPayInTitle, printDate);
  report.Finish();
}

void WritePayOutReport(const FlexGrid& entries, const Date& printDate, const TextSink& sink) {
  TextWriter report(sink);
  ReportBuilder(entries, report).Build(kPayOutTitle, printDate);
  AppendSignatures(report);
  report.Finish();
}

using ReportWriting = void (*)(const FlexGrid&, const Date&, const TextSink&);

std::string TextOf(ReportWriting write, const FlexGrid& entries, const Date& printDate) {
  std::string text;
  write(entries, printDate, [&text](std::string_view piece) { text += piece; });
  return text;
}

void Publish(const std::string& fileName, ReportWriting write, const FlexGrid& entries) {
  const std::string path = ThePlatform().ProgramFolder() + "\\" + fileName;
  const Date today = DateOf(ThePlatform().Now());
  WriteWholeFile(path, [&](const TextSink& sink) { write(entries, today, sink); });
  ThePlatform().StartProcess("notepad \"" + path + "\"", WindowMode::NormalFocus);
}

}  // namespace

std::string PadText(std::string_view text, int width, bool alignRight) {
  std::string padded;
  const TextSink sink = [&padded](std::string_view piece) { padded += piece; };
  TextWriter writer(sink);
  AppendPadded(writer, text, width, alignRight);
  writer.Finish();
  return padded;
}

std::string PayInReportText(const FlexGrid& entries, const Date& printDate) {
  return TextOf(WritePayInReport, entries, printDate);
}

std::string PayOutReportText(const FlexGrid& entries, const Date& printDate) {
  return TextOf(WritePayOutReport, entries, printDate);
}

void BuildPayInReport(const FlexGrid& entries) {
  RunTrapped([&] { Publish("PAY-IN INSTRUCTIONS", WritePayInReport, entries); });
}

void BuildPayOutReport(const FlexGrid& entries) {
  RunTrapped([&] { Publish("PAY-OUT INSTRUCTIONS", WritePayOutReport, entries); });
}

}  // namespace tallyrun
