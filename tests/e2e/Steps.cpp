#include "tests/e2e/Steps.h"

#include <gtest/gtest.h>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {

using namespace frmMainIds;

OpenWindow MainWindow(const ClerkDriver& clerk) { return clerk.Window("Tallyrun v1.0 : Pay "); }

std::string Trade(const std::string& scrip, const std::string& side, const std::string& quantity,
                  const std::string& client, const std::string& date) {
  return "230001|" + scrip + "|A|" + side + "|" + quantity + "|99.90|" + client +
         "|D01|10:00:00|N|" + date + "|410275";
}

void Import(ClerkDriver& clerk, const std::string& path) {
  MainWindow(clerk).Click(kBtnLoadFromBTFile);
  clerk.ChooseFile("Choose Text FIle", path);
}

void Summarize(ClerkDriver& clerk) {
  MainWindow(clerk).Click(kBtnSummarize);
  EXPECT_EQ(
      clerk.Answer("Yes"),
      Question("Confirm Summarize", "Are you sure to summarize individual BOs ISIN quantities?"));
}

void Save(ClerkDriver& clerk, const std::string& mode, const std::string& date) {
  const std::string file = mode + " file of " + date;
  MainWindow(clerk).Click(kBtnSave);
  EXPECT_EQ(clerk.Answer("Yes"),
            Question("Save Confirmation", "Are you sure to save the " + file + " ?"));
  EXPECT_EQ(clerk.Answer("OK"), Notice("File Saved.", file + " saved successfully."));
}

void Reload(ClerkDriver& clerk, const std::string& mode, const std::string& date) {
  MainWindow(clerk).Click(kBtnReload);
  EXPECT_EQ(clerk.Answer("Yes"), Question("Load Confirmation", "Are you sure to load the " + mode +
                                                                   " file of " + date + " ?"));
}

void EditFirstRow(ClerkDriver& clerk, int column, const std::string& text) {
  const OpenWindow window = MainWindow(clerk);
  window.TabTo(kFlxEntries);
  PressKey(VK_HOME, {VK_CONTROL});
  PressKeys(VK_RIGHT, column);
  PressKey(VK_RETURN);
  ASSERT_TRUE(Holds([&] { return window.IsVisible(kTxtEditor); }));
  TypeText(text);
  PressKey(VK_RETURN);
  ASSERT_TRUE(Holds([&] { return !window.IsVisible(kTxtEditor); }));
}

void Exit(ClerkDriver& clerk) {
  MainWindow(clerk).Click(kBtnExit);
  EXPECT_EQ(clerk.WaitForEnd(), 0u);
}

Box Question(const std::string& title, const std::string& text) {
  return {title, text, {"Yes", "No"}};
}

Box Notice(const std::string& title, const std::string& text) { return {title, text, {"OK"}}; }

void PrintTo(const Box& box, std::ostream* out) {
  *out << "\"" << box.title << "\": \"" << box.text << "\"";
  for (const std::string& button : box.buttons) *out << " [" << button << "]";
}

}  // namespace tallyrun::testing
