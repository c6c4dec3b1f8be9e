#include "practice/clerk/demo/DemoDay.h"

#include <cstdio>
#include <iostream>

#include "app/frmMainIds.h"
#include "practice/clerk/Hand.h"
#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {

DemoDay::DemoDay(const std::string& folder)
    : folder_(folder), clerk_(folder + "\\program\\Tallyrun.exe") {}

void DemoDay::Say(const std::string& line) const { std::cout << line << std::endl; }

void DemoDay::TakePicture(const std::string& name) {
  // An unfinished picture is better than none.
  clerk_.WaitUntilPainted();
  char number[8];
  std::snprintf(number, sizeof number, "%02d-", ++pictures_);
  // A line that begins with "@" is for the script; it answers with a line once the file is there.
  Say("@picture " + (number + name) + ".png");
  std::string answer;
  if (!std::getline(std::cin, answer)) throw DriverError("Nobody takes the pictures.");
}

void DemoDay::Answer(const std::string& pictureName, const std::string& button) {
  Box box = clerk_.ReadBox();
  for (size_t at; (at = box.text.find_first_of("\r\n")) != std::string::npos;) {
    box.text.replace(at, box.text[at] == '\r' ? 2 : 1, " / ");
  }
  TakePicture(pictureName);
  Say("   box \"" + box.title + "\": \"" + box.text + "\" -> " + button);
  clerk_.Answer(button);
}

void WaitForCaption(DemoDay& day, const std::string& caption) {
  if (!Holds([&] { return day.Main().Caption() == caption; })) {
    throw DriverError("The caption is not '" + caption + "' but '" + day.Main().Caption() + "'");
  }
}

void EditCurrentRow(DemoDay& day, int column, const std::string& text,
                    const std::string& pictureName) {
  day.Main().TabTo(frmMainIds::kFlxEntries);
  PressKey(VK_HOME);
  PressKeys(VK_RIGHT, column);
  EditCurrentCell(day, day.Main(), frmMainIds::kTxtEditor, text, pictureName);
}

void EditCurrentCell(DemoDay& day, const OpenWindow& window, int editorId, const std::string& text,
                     const std::string& pictureName) {
  if (!window.IsVisible(editorId)) PressKey(VK_RETURN);
  if (!Holds([&] { return window.IsVisible(editorId); })) {
    throw DriverError("No editor opens over the cell.");
  }
  TypeText(text);
  day.TakePicture(pictureName);
  PressKey(VK_RETURN);
  if (!Holds([&] { return !window.IsVisible(editorId); })) {
    throw DriverError("The editor does not close.");
  }
}

void LookAtTextEditor(DemoDay& day, const std::string& file, const std::string& pictureName) {
  const OpenWindow editor = WindowOfClass("Notepad");
  if (!Holds([&] {
        return GetForegroundWindow() == editor.Handle() && editor.Caption().starts_with(file);
      })) {
    throw DriverError("No text editor shows " + file + " but '" + editor.Caption() + "'");
  }
  day.TakePicture(pictureName);
  day.Say("   window \"" + editor.Caption() + "\"");
  PostMessageA(editor.Handle(), WM_CLOSE, 0, 0);
  if (!Holds([&] { return !editor.IsOpen(); })) throw DriverError("The editor stays open.");
}

}  // namespace tallyrun::testing
