#include "reports/InstructionReport.h"

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "core/text/Split.h"

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

std::string Rule(char character) { return std::string(kReportWidth, character); }

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

class Report {
 public:
  explicit Report(const FlexGrid& entries) : entries_(entries) {}

  void AppendHeader(std::string_view title, const Date& printDate) {
    text_ = Rule('=');
    Line(title);
    Line(Rule('='));
    Line(kPrintDateLabel, FormatDdMmmYyyy(printDate), kDeliveryDateLabel,
         Cell(1, EntryColumn::kDeliveryDate, kHeaderValueWidth, true));
    Line(kBrokerLabel, Cell(1, EntryColumn::kBrokerId, kHeaderValueWidth, true));
    Line(kClearingLabel, PadText(Settings.clearingBoid, kHeaderValueWidth, true));
    Line(Rule('-'));
    AccountLine(PadText("A/C ID", kAccountIdWidth),
                PadText("Name of Account Holder", kAccountNameWidth),
                PadText("Client Code", kClientCodeWidth, true));
    AccountLine(std::string(kAccountIdWidth, '-'), std::string(kAccountNameWidth, '-'),
                std::string(kClientCodeWidth, '-'));
    IsinLine("Sl.#", PadText("ISIN", kIsinWidth), PadText("Name of ISIN", kIsinNameWidth),
             PadText("Quantity", kQuantityWidth, true),
             PadText("Trade Date", kTradeDateWidth, true));
    Line(Rule('-'));
  }

  void AppendEntries() {
    int serial = 0;  // of the ISIN within its account
    for (int row = 1; row < entries_.Rows(); ++row) {
      if (row == 1 || !IsSameAccount(row - 1, row)) {
        if (row != 1) Line(Rule('-'));
        AccountLine(Cell(row, EntryColumn::kBoId, kAccountIdWidth),
                    Cell(row, EntryColumn::kBoName, kAccountNameWidth),
                    Cell(row, EntryColumn::kClientCode, kClientCodeWidth, true));
        serial = 0;
      }
      IsinLine(std::to_string(++serial), Cell(row, EntryColumn::kIsinCode, kIsinWidth),
               Cell(row, EntryColumn::kIsinName, kIsinNameWidth),
               Cell(row, EntryColumn::kQuantity, kQuantityWidth, true),
               Cell(row, EntryColumn::kTradeDate, kTradeDateWidth, true));
    }
    Line(Rule('='));
  }

  void AppendSignatures() {
    for (int emptyLine = 0; emptyLine < 3; ++emptyLine) Line();
    const std::string signature(kSignatureWidth, '-');
    Line(signature, Blanks(kReportWidth - 2 * kSignatureWidth), signature);
    Line(kLeftSignature, Blanks(kReportWidth - kLeftSignature.size() - kRightSignature.size()),
         kRightSignature);
    Line("Of Broker/Dealer");
  }

  std::string Take() { return std::move(text_); }

 private:
  template <class... Parts>
  void Line(const Parts&... parts) {
    text_ += kLineEnd;
    ((text_ += parts), ...);
  }
  void AccountLine(const std::string& id, const std::string& name, const std::string& clientCode) {
    Line(Blanks(kSerialWidth), kGap, id, kGap, name, kGap, clientCode);
  }
  void IsinLine(std::string_view serial, const std::string& isin, const std::string& name,
                const std::string& quantity, const std::string& tradeDate) {
    Line(PadText(serial, kSerialWidth), kGap, isin, kGap, name, kGap, quantity, kGap, tradeDate);
  }

  std::string Cell(int row, int col, int width, bool alignRight = false) const {
    return PadText(entries_.Text(row, col), width, alignRight);
  }
  bool IsSameAccount(int row, int other) const {
    return entries_.Cell(row, EntryColumn::kBoId) == entries_.Cell(other, EntryColumn::kBoId) &&
           entries_.Cell(row, EntryColumn::kClientCode) ==
               entries_.Cell(other, EntryColumn::kClientCode);
  }

  const FlexGrid& entries_;
  std::string text_;
};

void Publish(const std::string& fileName, const std::string& text) {
  const std::string path = ThePlatform().ProgramFolder() + "\\" + fileName;
  WriteWholeFile(path, text);
  ThePlatform().StartProcess("notepad \"" + path + "\"", WindowMode::NormalFocus);
}

}  // namespace

std::string PadText(std::string_view text, int width, bool alignRight) {
  const auto size = static_cast<std::size_t>(width);
  std::string padded(text.substr(0, size));
  padded.insert(alignRight ? 0 : padded.size(), size - padded.size(), ' ');
  return padded;
}

std::string PayInReportText(const FlexGrid& entries, const Date& printDate) {
  Report report(entries);
  report.AppendHeader(kPayInTitle, printDate);
  report.AppendEntries();
  return report.Take();
}

std::string PayOutReportText(const FlexGrid& entries, const Date& printDate) {
  Report report(entries);
  report.AppendHeader(kPayOutTitle, printDate);
  report.AppendEntries();
  report.AppendSignatures();
  return report.Take();
}

void BuildPayInReport(const FlexGrid& entries) {
  RunTrapped([&] {
    Publish("PAY-IN INSTRUCTIONS", PayInReportText(entries, DateOf(ThePlatform().Now())));
  });
}

void BuildPayOutReport(const FlexGrid& entries) {
  RunTrapped([&] {
    Publish("PAY-OUT INSTRUCTIONS", PayOutReportText(entries, DateOf(ThePlatform().Now())));
  });
}

}  // namespace tallyrun
