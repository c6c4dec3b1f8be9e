#include "reports/InstructionReport.h"

#include <algorithm>

#include "core/EntryRow.h"
#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/Settings.h"
#include "core/modFileIO.h"

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

void AppendPadded(std::string& report, std::string_view text, int width, bool alignRight = false) {
  const auto size = static_cast<std::size_t>(width);
  const std::string_view kept = text.substr(0, size);
  if (alignRight) report.append(size - kept.size(), ' ');
  report += kept;
  if (!alignRight) report.append(size - kept.size(), ' ');
}

void StartLine(std::string& report) { report += kLineEnd; }

void AppendRule(std::string& report, char character) {
  StartLine(report);
  report.append(kReportWidth, character);
}

// The blanks under "Sl.#" with which the lines of an account begin.
void StartAccountLine(std::string& report) {
  StartLine(report);
  report.append(static_cast<std::size_t>(kSerialWidth), ' ');
  report += kGap;
}

class ReportBuilder {
 public:
  explicit ReportBuilder(const FlexGrid& entries) : entries_(entries) {
    constexpr std::size_t kLinesPerRow = 2;
    report_.reserve((static_cast<std::size_t>(entries.Rows()) + 10) * kLinesPerRow *
                    (kReportWidth + kLineEnd.size()));
  }

  std::string Build(std::string_view title, const Date& printDate) {
    AppendHeader(title, printDate);
    AppendColumnHeading();
    for (int row = 1; row < entries_.Rows(); ++row) AppendEntry(row);
    AppendRule(report_, '=');
    return std::move(report_);
  }

 private:
  void AppendHeader(std::string_view title, const Date& printDate) {
    report_.append(kReportWidth, '=');
    StartLine(report_);
    report_ += title;
    AppendRule(report_, '=');
    StartLine(report_);
    report_ += kPrintDateLabel;
    report_ += FormatDdMmmYyyy(printDate);
    report_ += kDeliveryDateLabel;
    AppendCell(1, EntryColumn::kDeliveryDate, kHeaderValueWidth, true);
    StartLine(report_);
    report_ += kBrokerLabel;
    AppendCell(1, EntryColumn::kBrokerId, kHeaderValueWidth, true);
    StartLine(report_);
    report_ += kClearingLabel;
    AppendPadded(report_, Settings.clearingBoid, kHeaderValueWidth, true);
    AppendRule(report_, '-');
  }

  void AppendColumnHeading() {
    StartAccountLine(report_);
    AppendPadded(report_, "A/C ID", kAccountIdWidth);
    report_ += kGap;
    AppendPadded(report_, "Name of Account Holder", kAccountNameWidth);
    report_ += kGap;
    AppendPadded(report_, "Client Code", kClientCodeWidth, true);
    StartAccountLine(report_);
    report_.append(kAccountIdWidth, '-');
    report_ += kGap;
    report_.append(kAccountNameWidth, '-');
    report_ += kGap;
    report_.append(kClientCodeWidth, '-');
    StartLine(report_);
    AppendPadded(report_, "Sl.#", kSerialWidth);
    report_ += kGap;
    AppendPadded(report_, "ISIN", kIsinWidth);
    report_ += kGap;
    AppendPadded(report_, "Name of ISIN", kIsinNameWidth);
    report_ += kGap;
    AppendPadded(report_, "Quantity", kQuantityWidth, true);
    report_ += kGap;
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
    AppendPadded(report_, std::to_string(serial_++), kSerialWidth);
    report_ += kGap;
    AppendCell(row, EntryColumn::kIsinCode, kIsinWidth);
    report_ += kGap;
    AppendCell(row, EntryColumn::kIsinName, kIsinNameWidth);
    report_ += kGap;
    AppendCell(row, EntryColumn::kQuantity, kQuantityWidth, true);
    report_ += kGap;
    AppendCell(row, EntryColumn::kTradeDate, kTradeDateWidth, true);
  }

  void AppendAccountLine(int row) {
    StartAccountLine(report_);
    AppendCell(row, EntryColumn::kBoId, kAccountIdWidth);
    report_ += kGap;
    AppendCell(row, EntryColumn::kBoName, kAccountNameWidth);
    report_ += kGap;
    AppendCell(row, EntryColumn::kClientCode, kClientCodeWidth, true);
  }

  void AppendCell(int row, int col, int width, bool alignRight = false) {
    AppendPadded(report_, entries_.View(row, col, scratch_), width, alignRight);
  }

  bool IsSameAccount(int rowA, int rowB) const {
    return entries_.Cell(rowA, EntryColumn::kBoId) == entries_.Cell(rowB, EntryColumn::kBoId) &&
           entries_.Cell(rowA, EntryColumn::kClientCode) ==
               entries_.Cell(rowB, EntryColumn::kClientCode);
  }

  const FlexGrid& entries_;
  std::string report_;
  CellScratch scratch_{};
  int serial_ = 1;  // of the ISIN within its account
};

void AppendSignatures(std::string& report) {
  for (int lineEnd = 0; lineEnd < 4; ++lineEnd) StartLine(report);
  report.append(kSignatureWidth, '-');
  report.append(kReportWidth - 2 * kSignatureWidth, ' ');
  report.append(kSignatureWidth, '-');
  StartLine(report);
  report += kLeftSignature;
  report.append(kReportWidth - kLeftSignature.size() - kRightSignature.size(), ' ');
  report += kRightSignature;
  StartLine(report);
  report += "Of Broker/Dealer";
}

void Publish(const std::string& fileName, const std::string& report) {
  const std::string path = ThePlatform().ProgramFolder() + "\\" + fileName;
  WriteWholeFile(path, report);
  ThePlatform().StartProcess("notepad \"" + path + "\"", WindowMode::NormalFocus);
}

Date Today() { return DateOf(ThePlatform().Now()); }

}  // namespace

std::string PadText(std::string_view text, int width, bool alignRight) {
  std::string padded;
  AppendPadded(padded, text, width, alignRight);
  return padded;
}

std::string PayInReportText(const FlexGrid& entries, const Date& printDate) {
  return ReportBuilder(entries).Build(kPayInTitle, printDate);
}

std::string PayOutReportText(const FlexGrid& entries, const Date& printDate) {
  std::string report = ReportBuilder(entries).Build(kPayOutTitle, printDate);
  AppendSignatures(report);
  return report;
}

void BuildPayInReport(const FlexGrid& entries) {
  RunTrapped([&] { Publish("PAY-IN INSTRUCTIONS", PayInReportText(entries, Today())); });
}

void BuildPayOutReport(const FlexGrid& entries) {
  RunTrapped([&] { Publish("PAY-OUT INSTRUCTIONS", PayOutReportText(entries, Today())); });
}

}  // namespace tallyrun
