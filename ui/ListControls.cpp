#include "ui/ListControls.h"

#include <algorithm>

#include "ui/Form.h"

namespace tallyrun {
namespace {

constexpr int kItemsDroppedDown = 8;

int Ask(const Control& control, UINT message, int index = 0, const char* text = nullptr) {
  return static_cast<int>(SendMessageA(control.Handle(), message, static_cast<WPARAM>(index),
                                       reinterpret_cast<LPARAM>(text)));
}

}  // namespace

void ComboBox::Create(ControlParent& parent, int id) {
  CreateControl(parent, id, WC_COMBOBOXA, "",
                WS_TABSTOP | WS_GROUP | WS_VSCROLL | CBS_DROPDOWNLIST);
  selected_ = -1;
}

void ComboBox::AddItem(const std::string& text) { Ask(*this, CB_ADDSTRING, 0, text.c_str()); }
int ComboBox::ListIndex() const { return Ask(*this, CB_GETCURSEL); }

void ComboBox::SetListIndex(int index) {
  Ask(*this, CB_SETCURSEL, index);
  NoteSelection();
}

int ComboBox::WindowHeightFor(int height) {
  // The window's height is that of the dropped list; the closed box follows from its item.
  const int border = Owner()->Scale(6);
  if (Bounds().height != height) {
    SendMessageA(Handle(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height - border);
  }
  return height + kItemsDroppedDown * Ask(*this, CB_GETITEMHEIGHT) + border;
}

void ComboBox::OnCommand(int code) {
  if (code == CBN_SELCHANGE) NoteSelection();
}

void ComboBox::NoteSelection() {
  const int index = ListIndex();
  if (index == selected_) return;
  selected_ = index;
  Click.Raise();
}

void ListBox::Create(ControlParent& parent, int id, const std::string& toolTip) {
  CreateControl(parent, id, WC_LISTBOXA, "",
                WS_TABSTOP | WS_GROUP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                WS_EX_CLIENTEDGE);
  SetToolTip(toolTip);
}

void ListBox::SetItems(const std::vector<std::string>& items) {
  SendMessageA(Handle(), WM_SETREDRAW, FALSE, 0);
  Ask(*this, LB_RESETCONTENT);
  for (const std::string& item : items) Ask(*this, LB_ADDSTRING, 0, item.c_str());
  SendMessageA(Handle(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(Handle(), nullptr, TRUE);
}

void ListBox::RemoveItem(int index) { Ask(*this, LB_DELETESTRING, index); }
int ListBox::ListIndex() const { return Ask(*this, LB_GETCURSEL); }
void ListBox::SetListIndex(int index) { Ask(*this, LB_SETCURSEL, index); }

std::string ListBox::ItemText(int index) const {
  std::string text(static_cast<std::size_t>(std::max(0, Ask(*this, LB_GETTEXTLEN, index))), '\0');
  Ask(*this, LB_GETTEXT, index, text.data());
  return text;
}

void ListBox::OnCommand(int code) {
  if (code == LBN_DBLCLK) DblClick.Raise();
}

}  // namespace tallyrun
