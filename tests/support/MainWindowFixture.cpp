#include "tests/support/MainWindowFixture.h"

#include <windows.h>

#include <commctrl.h>

#include "ui/MessageLoop.h"

namespace tallyrun::testing {

MainWindowFixture::MainWindowFixture() {
  EntryMode = {};
  window.Show();
  Pump();
  SetFocus(Item(frmMainIds::kFlxEntries));
}

void MainWindowFixture::Pump() {
  try {
    PumpMessages();
  } catch (const ProgramEnding&) {
    // The window was closed; the test goes on.
  }
}

HWND MainWindowFixture::Item(int id) { return GetDlgItem(window.Handle(), id); }

FlexGrid& MainWindowFixture::Sheet() {
  return static_cast<FlexGridControl*>(Control::FromHandle(Item(frmMainIds::kFlxEntries)))->Grid();
}

void MainWindowFixture::Click(int id) {
  SendMessageA(Item(id), BM_CLICK, 0, 0);
  Pump();
}

void MainWindowFixture::Release(int id, int key) {
  SendMessageA(Item(id), WM_KEYUP, static_cast<WPARAM>(key), 0);
  Pump();
}

void MainWindowFixture::Type(int id, char character) {
  SendMessageA(Item(id), WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(character)), 0);
  Pump();
}

void MainWindowFixture::Edit(int row, int col) {
  Sheet().SetRow(row);
  Sheet().SetCol(col);
  Type(frmMainIds::kFlxEntries, '\r');
}

void MainWindowFixture::EditText(int row, int col, const std::string& text) {
  Edit(row, col);
  ASSERT_EQ(GetFocus(), Item(frmMainIds::kTxtEditor));
  SetWindowTextA(Item(frmMainIds::kTxtEditor), text.c_str());
  Type(frmMainIds::kTxtEditor, '\r');
}

bool MainWindowFixture::Shown(int id) {
  return (GetWindowLongA(Item(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool MainWindowFixture::Enabled(int id) { return IsWindowEnabled(Item(id)) != FALSE; }

int MainWindowFixture::TopOf(int id) {
  RECT rect;
  GetWindowRect(Item(id), &rect);
  return static_cast<int>(rect.top);
}

std::string MainWindowFixture::TextOf(int id) {
  char text[256];
  const int length = GetWindowTextA(Item(id), text, sizeof text);
  return {text, static_cast<std::size_t>(length)};
}

Date MainWindowFixture::PickedDay() {
  SYSTEMTIME time = {};
  DateTime_GetSystemtime(Item(frmMainIds::kDtpPayInOrPayOut), &time);
  return {time.wYear, time.wMonth, time.wDay};
}

void MainWindowFixture::PickDay(int id, const Date& date) {
  SYSTEMTIME time = {};
  time.wYear = static_cast<WORD>(date.year);
  time.wMonth = static_cast<WORD>(date.month);
  time.wDay = static_cast<WORD>(date.day);
  DateTime_SetSystemtime(Item(id), GDT_VALID, &time);
  NMDATETIMECHANGE change = {};
  change.nmhdr = {Item(id), static_cast<UINT_PTR>(id), static_cast<UINT>(DTN_DATETIMECHANGE)};
  change.st = time;
  SendMessageA(window.Handle(), WM_NOTIFY, static_cast<WPARAM>(id),
               reinterpret_cast<LPARAM>(&change));
  Pump();
}

}  // namespace tallyrun::testing
