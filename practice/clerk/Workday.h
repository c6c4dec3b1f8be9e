// A clerk's day at the real program: where it lies, and the steps that days are made of, the same
// for the demo and for the end-to-end tests. A step comes back once what it brings about is there,
// and raises DriverError when that does not come. Whoever looks on derives from it.
#pragma once

#include <string>

#include "practice/clerk/ClerkDriver.h"

namespace tallyrun::testing {

class Workday {
 public:
  // Starts `folder`\program\Tallyrun.exe; `folder` has no backslash at the end. What is chosen in
  // file dialogs lies in `folder`\import.
  explicit Workday(const std::string& folder)
      : folder_(folder), clerk_(folder + "\\program\\Tallyrun.exe") {}
  virtual ~Workday() = default;

  // What an onlooker hears, and what is worth a picture; one without a name is not.
  virtual void Say(const std::string& /*line*/) {}
  virtual void TakePicture(const std::string& /*name*/) {}

  ClerkDriver& Clerk() { return clerk_; }
  OpenWindow Main() const;  // whatever its mode
  OpenWindow List() const;  // whatever its list

  // Waits for a box, tells and shows it, and presses the button; gives back what the box said.
  Box Answer(const std::string& button, const std::string& picture = "");
  void AwaitCaption(const OpenWindow& window, const std::string& caption);
  // Waits for the system's text editor with a file, and closes it.
  void CloseTextEditor(const std::string& file, const std::string& picture = "");

  // Loads a trade file.
  void Import(const std::string& file);
  void ChooseHoldingFile(const std::string& file);
  // Changes to "Pay In" or "Pay Out" over rows that are given up.
  void SwitchTo(const std::string& mode, const std::string& picture = "");
  void Reload(const std::string& picture = "");
  // Presses Send and confirms.
  void Send(const std::string& picture = "");
  // Moves along the current row to a column by keyboard and types over its cell.
  void EditCurrentRow(int column, const std::string& text, const std::string& picture = "");
  // Opens the editor of the window's current cell unless it is open, types and confirms.
  void EditCurrentCell(const OpenWindow& window, int editorId, const std::string& text,
                       const std::string& picture = "");
  void ChooseList(const std::string& kind);  // "BO" or "ISIN"
  void CloseList();
  // Leaves by the Exit button; the program must end well.
  void Exit();

 private:
  std::string folder_;
  ClerkDriver clerk_;
};

}  // namespace tallyrun::testing
