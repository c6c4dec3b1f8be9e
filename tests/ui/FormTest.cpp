// A form's life: dispatch inside the trap, closing while a handler runs, modal forms.
#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "tests/support/RecordingPlatform.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

class SmallForm : public Form {
 public:
  SmallForm() : Form("frmSmall", {.width = 300, .height = 200}) {
    On(btnFail.Click, &SmallForm::btnFail_Click);
  }
  Button btnFail;

 protected:
  void CreateControls() override { btnFail.Create(*this, 1, "Fail"); }
  void Layout(LayoutArea& area) override { area.Place(btnFail, {10, 10, 75, 23}); }

 private:
  void btnFail_Click() { throw RuntimeError(ErrorKind::DiskFull); }
};

TEST(FormTest, AnErrorInAHandlerShowsItsDescriptionAndTheFormLives) {
  RecordingPlatform platform;
  SmallForm form;
  form.Show();
  SendMessageA(form.btnFail.Handle(), BM_CLICK, 0, 0);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Disk full"}));
  EXPECT_TRUE(form.IsLoaded());
}

}  // namespace
}  // namespace tallyrun::testing
