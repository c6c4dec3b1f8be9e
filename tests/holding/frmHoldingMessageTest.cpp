#include "holding/CheckHoldings.h"
#include "holding/frmHoldingMessage.h"
#include "holding/frmHoldingMessageIds.h"
#include "tests/support/FormDriver.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

struct OwnerForm : Form {
  OwnerForm() : Form("frmOwner") {}
  void CreateControls() override {}
  void Layout(LayoutArea&) override {}
};

using frmHoldingMessageTest = ProgramFixture;

TEST_F(frmHoldingMessageTest, ShowsTheTextOfNowUntilTheClerkClosesIt) {
  OwnerForm owner;
  frmHoldingMessage form;
  owner.Show();
  // The second is more than a text box holds by itself.
  for (const std::string& text : {std::string("first\r\nsecond\r\n"), std::string(100'000, 'x')}) {
    HoldingMessage = text;
    std::string shown;
    const Meanwhile closeIt([&] {
      if (!form.IsLoaded() || !IsWindowVisible(form.Handle())) return false;
      shown = ControlOf(form, frmHoldingMessageIds::kTxtMessage).Text();
      EXPECT_FALSE(IsWindowEnabled(owner.Handle()));
      form.Unload();
      return true;
    });
    form.ShowFresh(&owner);
    EXPECT_EQ(shown, text);
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
  }
  HoldingMessage.clear();
}

}  // namespace
}  // namespace tallyrun::testing
