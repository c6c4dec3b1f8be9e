// The demo's stage: the running program, the folders it works on, the log and the camera. The steps
// of a day stand in files of their own.
#pragma once

#include <string>
#include <vector>

#include "practice/clerk/ClerkDriver.h"

namespace tallyrun::testing {

class DemoDay {
 public:
  // `folder` holds program\, work\ and import\, as the samples do; with no backslash at the end.
  explicit DemoDay(const std::string& folder);

  ClerkDriver& Clerk() { return clerk_; }
  OpenWindow Main() const { return clerk_.Window(kMainTitle); }
  std::string File(const std::string& name) const { return folder_ + "\\" + name; }

  // Writes a line of the log.
  void Say(const std::string& line) const;
  // Has a picture of the whole screen taken, "01-NAME.png" and so on, and waits until it is. The
  // script that started the demo does it: a program under Wine does not see the title bars.
  void TakePicture(const std::string& name);
  // Takes the picture of a box, logs what it says, and presses the button.
  void Answer(const std::string& pictureName, const std::string& button);

 private:
  static constexpr char kMainTitle[] = "Tallyrun v";

  std::string folder_;
  ClerkDriver clerk_;
  int pictures_ = 0;
};

// Steps that several days take.
void WaitForCaption(DemoDay& day, const std::string& caption);
// Moves along the current row to a column by keyboard, opens the editor, types and confirms.
void EditCurrentRow(DemoDay& day, int column, const std::string& text,
                    const std::string& pictureName);

// Opens the editor of the current cell unless it is open, types, and confirms after a picture.
void EditCurrentCell(DemoDay& day, const OpenWindow& window, int editorId, const std::string& text,
                     const std::string& pictureName);
// Waits for the system's text editor with a file, takes its picture and closes it.
void LookAtTextEditor(DemoDay& day, const std::string& file, const std::string& pictureName);

inline constexpr int kQuantityColumn = 11;

struct DemoStep {
  const char* title;
  void (*work)(DemoDay& day);
};

// From the trade file to the summarised sheet.
const std::vector<DemoStep>& EntrySheetSteps();
// The holding check, the day's file, and what the exchange says to it.
const std::vector<DemoStep>& SendSteps();
// A Pay Out day, and back to the Pay In file.
const std::vector<DemoStep>& PayOutSteps();
// The master lists, their backups and their exchange, and the new account in the sheet.
const std::vector<DemoStep>& ListSteps();

}  // namespace tallyrun::testing
