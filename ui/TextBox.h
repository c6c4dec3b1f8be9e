// A box of text to edit: one line, or a scrolling read-only text of many.
#pragma once

#include <string>

#include "ui/Control.h"

namespace tallyrun {

enum class TextBoxKind { SingleLine, ReadOnlyLines };

class TextBox : public Control {
 public:
  void Create(ControlParent& parent, int id, TextBoxKind kind = TextBoxKind::SingleLine,
              const std::string& toolTip = "");
  void SelectAll();

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool EditsText() const override { return true; }

 private:
  TextBoxKind kind_ = TextBoxKind::SingleLine;
};

}  // namespace tallyrun
