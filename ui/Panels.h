// Labels, and frames that hold other controls.
#pragma once

#include <string>

#include "ui/Control.h"
#include "ui/Layout.h"

namespace tallyrun {

class Label : public Control {
 public:
  void Create(ControlParent& parent, int id, const std::string& caption,
              const std::string& toolTip = "");
  int WidthIn(const LayoutArea& area) const override { return area.TextWidth(Text()); }
};

// A raised panel with controls of its own, made with the frame as their parent. A frame is
// created before what it is to lie over.
class Frame : public Control, public ControlParent {
 public:
  void Create(ControlParent& parent, int id, const std::string& toolTip = "");
  HWND ParentHandle() const override { return Handle(); }
  Form& ParentForm() override { return *Owner(); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace tallyrun
