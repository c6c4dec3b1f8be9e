#include "holding/CheckHoldings.h"
#include "holding/frmHoldingMessage.h"
#include "holding/frmHoldingMessageIds.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

struct OwnerForm : Form {
  OwnerForm() : Form("frmOwner") {}
  void CreateControls() override {}
  void Layout(LayoutArea&) override {}
};

std::string TextOf(HWND window) {
  std::string text(static_cast<std::size_t>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)), '\0');
  SendMessageA(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
  return text;
}

std::string shown;
bool ownerEnabled;

// Reads the modal window and closes it once it is in sight.
void CALLBACK ReadAndClose(HWND owner, UINT, UINT_PTR, DWORD) {
  const HWND window = FindWindowA(frmHoldingMessageIds::kWindowClass, nullptr);
  if (!IsWindowVisible(window)) return;
  const HWND message = GetDlgItem(window, frmHoldingMessageIds::kTxtMessage);
  shown = TextOf(message);
  ownerEnabled = IsWindowEnabled(owner) != FALSE;
  PostMessageA(window, WM_CLOSE, 0, 0);
}

using frmHoldingMessageTest = ProgramFixture;

TEST_F(frmHoldingMessageTest, ShowsTheTextOfNowUntilTheClerkClosesIt) {
  OwnerForm owner;
  frmHoldingMessage form;
  owner.Show();
  SetTimer(owner.Handle(), 1, 10, ReadAndClose);
  // The second is more than a text box holds by itself.
  for (const std::string& text : {std::string("first\r\nsecond\r\n"), std::string(100'000, 'x')}) {
    HoldingMessage = text;
    form.ShowFresh(&owner);
    EXPECT_EQ(shown, text);
    EXPECT_FALSE(ownerEnabled);
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
  }
  HoldingMessage.clear();
}

}  // namespace
}  // namespace tallyrun::testing
