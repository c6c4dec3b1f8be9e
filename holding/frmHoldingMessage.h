// The window that lists the problems of a holding check. Knows nothing of how they were found.
#pragma once

#include "ui/Form.h"
#include "ui/TextBox.h"

namespace tallyrun {

class frmHoldingMessage : public Form {
 public:
  frmHoldingMessage();

  // Closes the window if it is open, loads it anew with the HoldingMessage of now and returns
  // when the clerk has closed it.
  void ShowFresh(Form* owner);

 protected:
  void CreateControls() override;
  void Layout(LayoutArea& area) override;
  void Form_Load() override;

 private:
  TextBox txtMessage;
};

}  // namespace tallyrun
