// A form with one control of most kinds, whose handlers a test sets as it likes.
#pragma once

#include <functional>
#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "tests/support/FormDriver.h"
#include "tests/support/RecordingPlatform.h"
#include "ui/Button.h"
#include "ui/DatePicker.h"
#include "ui/Form.h"
#include "ui/ListControls.h"
#include "ui/TextBox.h"

namespace tallyrun::testing {

class TryForm : public Form {
 public:
  explicit TryForm(const char* name = "frmTry", bool endsProgram = false)
      : Form(name, {.width = 400, .height = 300, .endsProgram = endsProgram}) {
    On(button.Click, &TryForm::button_Click);
  }

  TextBox editor;  // made first: lies over the others and comes first by Tab
  Button button;
  OptionButton optFirst;
  OptionButton optSecond;
  CheckBox check;
  ComboBox combo;
  ListBox list;
  DatePicker date;

  std::function<void()> onLoad = [] {};
  std::function<void()> onUnload = [] {};
  std::function<void()> onClick = [] {};

 protected:
  void CreateControls() override {
    editor.Create(*this, 1);
    button.Create(*this, 2, "Button", "Tip of the button");
    optFirst.Create(*this, 3, "First");
    optSecond.Create(*this, 4, "Second");
    check.Create(*this, 5, "Check", "");
    combo.Create(*this, 6);
    list.Create(*this, 7);
    date.Create(*this, 8);
  }

  void Layout(LayoutArea& area) override {
    for (Control* control : Controls()) {
      area.TopRow({{*control, LayoutItem::kAllThatIsLeft, 0}});
    }
  }

  void Form_Load() override { onLoad(); }
  void Form_Unload() override { onUnload(); }

 private:
  void button_Click() { onClick(); }
};

// One such form, not loaded yet, and a log of what its events tell.
class TryFormTest : public ::testing::Test {
 protected:
  void Log(Event<>& event, const std::string& name) {
    event.Set([this, name] { log.push_back(name); });
  }
  void Log(Event<KeyEvent&>& event, const std::string& name) {
    event.Set([this, name](KeyEvent& key) { log.push_back(name + std::to_string(key.key)); });
  }

  RecordingPlatform platform;
  std::vector<std::string> log;
  TryForm form;
};

}  // namespace tallyrun::testing
