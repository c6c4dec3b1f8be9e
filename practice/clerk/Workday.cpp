#include "practice/clerk/Workday.h"

#include "app/frmMainIds.h"
#include "lists/frmListIds.h"
#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;

constexpr char kListTitle[] = "Tallyrun v1.0 : List of ";

// On one line, with all that there is to press.
std::string InWords(const Box& box) {
  std::string text = box.text;
  for (size_t at; (at = text.find("\r\n")) != std::string::npos;) text.replace(at, 2, " / ");
  for (size_t at; (at = text.find('\n')) != std::string::npos;) text.replace(at, 1, " / ");
  std::string words = "box \"" + box.title + "\": \"" + text + "\"";
  for (const std::string& button : box.buttons) words += " [" + button + "]";
  return words;
}

}  // namespace

OpenWindow Workday::Main() const { return clerk_.Window("Tallyrun v1.0 : Pay "); }

OpenWindow Workday::List() const { return clerk_.Window(kListTitle); }

Box Workday::Answer(const std::string& button, const std::string& picture) {
  const Box box = clerk_.ReadBox();
  TakePicture(picture);
  Say("   " + InWords(box) + ": " + button);
  clerk_.PressInBox(button);
  return box;
}

void Workday::AwaitCaption(const OpenWindow& window, const std::string& caption) {
  if (!Holds([&] { return window.Caption() == caption; })) {
    throw DriverError("The caption is not '" + caption + "' but '" + window.Caption() + "'");
  }
  Say("   window \"" + caption + "\"");
}

void Workday::CloseTextEditor(const std::string& file, const std::string& picture) {
  const OpenWindow editor = WindowOfClass("Notepad");
  Await([&] { return editor.Caption().starts_with(file); }, "No text editor shows " + file);
  TakePicture(picture);
  Say("   text editor \"" + editor.Caption() + "\"");
  PostMessageA(editor.Handle(), WM_CLOSE, 0, 0);
  Await([&] { return !editor.IsOpen(); }, "The text editor stays open.");
}

void Workday::Import(const std::string& file) {
  Main().Click(kBtnLoadFromBTFile);
  clerk_.ChooseFile("Choose Text FIle", folder_ + "\\import\\" + file);
}

void Workday::ChooseHoldingFile(const std::string& file) {
  clerk_.ChooseFile("Choose Holding FIle (11DPA6UX.TXT)", folder_ + "\\import\\" + file);
}

void Workday::SwitchTo(const std::string& mode, const std::string& picture) {
  Main().Click(mode == "Pay In" ? kOptPayIn : kOptPayOut);
  Answer("Yes", picture);
  AwaitCaption(Main(), "Tallyrun v1.0 : " + mode);
}

void Workday::Reload(const std::string& picture) {
  Main().Click(kBtnReload);
  Answer("Yes", picture);
}

void Workday::Send(const std::string& picture) {
  Main().Click(kBtnSend);
  Answer("Yes", picture);
}

void Workday::EditCurrentRow(int column, const std::string& text, const std::string& picture) {
  Main().TabTo(kFlxEntries);
  PressKey(VK_HOME);
  PressKeys(VK_RIGHT, column);
  EditCurrentCell(Main(), kTxtEditor, text, picture);
}

void Workday::EditCurrentCell(const OpenWindow& window, int editorId, const std::string& text,
                              const std::string& picture) {
  if (!window.IsVisible(editorId)) PressKey(VK_RETURN);
  Await([&] { return window.IsVisible(editorId); }, "No editor opens over the cell.");
  TypeText(text);
  TakePicture(picture);
  PressKey(VK_RETURN);
  Await([&] { return !window.IsVisible(editorId); }, "The editor does not close.");
}

void Workday::ChooseList(const std::string& kind) {
  if (!clerk_.HasWindow(kListTitle)) Main().Click(kBtnList);
  const std::string list = "List of " + kind + "s";
  if (List().Text(frmListIds::kCmbListOf) != list) List().Choose(frmListIds::kCmbListOf, list);
  AwaitCaption(List(), "Tallyrun v1.0 : " + list);
}

void Workday::CloseList() {
  List().Click(frmListIds::kBtnClose);
  clerk_.WaitUntilClosed(kListTitle);
}

void Workday::Exit() {
  Main().Click(kBtnExit);
  const DWORD code = clerk_.WaitForEnd();
  if (code != 0) throw DriverError("The program ends with " + std::to_string(code));
}

}  // namespace tallyrun::testing
