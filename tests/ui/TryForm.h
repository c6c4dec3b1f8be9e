// A form with a control of the kinds that differ in focus and keys, whose handlers a test sets as
// it likes.
#pragma once

#include <array>
#include <functional>
#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "tests/support/FormDriver.h"
#include "tests/support/RecordingPlatform.h"
#include "ui/Button.h"
#include "ui/DatePicker.h"
#include "ui/Form.h"
#include "ui/TextBox.h"

namespace tallyrun::testing {

class TryForm : public Form {
 public:
  explicit TryForm(const char* name = "frmTry", bool endsProgram = false)
      : Form(name, {.width = 500, .height = 400, .endsProgram = endsProgram}) {
    On(button.Click, &TryForm::button_Click);
  }

  TextBox editor;
  Button button;
  OptionButton optFirst;
  OptionButton optSecond;
  DatePicker date;
  FlexGridControl grid;

  std::function<void()> onLoad = [] {};
  std::function<void()> onUnload = [] {};
  std::function<void()> onClick = [] {};

 protected:
  void CreateControls() override {
    editor.Create(*this, 1);
    button.Create(*this, 2, "Button", "Tip of the button");
    optFirst.Create(*this, 3, "First");
    optSecond.Create(*this, 4, "Second");
    date.Create(*this, 5);
    grid.Create(*this, 6);
  }

  void Layout(LayoutArea& area) override {
    area.TopRow({{editor, LayoutItem::kAllThatIsLeft, 0}});
    area.TopRow({button, optFirst, optSecond, date});
    area.Fill(grid, 0, 0);
  }

  void Form_Load() override { onLoad(); }
  void Form_Unload() override { onUnload(); }
  void button_Click() { onClick(); }
};

// One such form, not loaded yet, and a log of what its events tell.
struct TryFormTest : ::testing::Test {
  // Sends a key's message while these keys are held.
  static void SendKey(const Control& to, UINT message, int key, const std::vector<int>& held) {
    std::array<BYTE, 256> state = {};
    for (const int each : held) state[static_cast<std::size_t>(each)] = 0x80;
    SetKeyboardState(state.data());
    SendMessageA(to.Handle(), message, static_cast<WPARAM>(key), 0);
    state = {};
    SetKeyboardState(state.data());
  }

  RecordingPlatform platform;
  std::vector<std::string> log;
  TryForm form;
};

}  // namespace tallyrun::testing
