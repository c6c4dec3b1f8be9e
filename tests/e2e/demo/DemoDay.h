// The demo's stage: the running program, the folders it works on, the log and the camera. The steps
// of a day stand in files of their own.
#pragma once

#include <string>
#include <vector>

#include "tests/e2e/ClerkDriver.h"

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

struct DemoStep {
  const char* title;
  void (*work)(DemoDay& day);
};

// From the trade file to the day's saved entry file.
const std::vector<DemoStep>& EntrySheetSteps();

}  // namespace tallyrun::testing
