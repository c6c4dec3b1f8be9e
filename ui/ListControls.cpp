#include "ui/ListControls.h"

#include "ui/Form.h"

namespace tallyrun {
namespace {

constexpr int kItemsDroppedDown = 8;

int Ask(HWND window, UINT message, WPARAM wParam = 0) {
  return window == nullptr ? -1 : static_cast<int>(SendMessageA(window, message, wParam, 0));
}

void Add(HWND window, UINT message, const std::string& text) {
  if (window == nullptr) return;
  SendMessageA(window, message, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::string ItemOf(HWND window, UINT lengthMessage, UINT textMessage, int index) {
  const int length = index < 0 ? -1 : Ask(window, lengthMessage, static_cast<WPARAM>(index));
  if (length < 0) return {};
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  const LRESULT copied = SendMessageA(window, textMessage, static_cast<WPARAM>(index),
                                      reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied < 0 ? 0 : static_cast<std::size_t>(copied));
  return text;
}

}  // namespace

void ComboBox::Create(ControlParent& parent, int id, const std::string& toolTip) {
  CreateControl(parent, WC_COMBOBOXA, "",
                WS_VISIBLE | WS_TABSTOP | WS_GROUP | WS_VSCROLL | CBS_DROPDOWNLIST, 0, id);
  selected_ = -1;
  SetToolTip(toolTip);
}

void ComboBox::AddItem(const std::string& text) { Add(Handle(), CB_ADDSTRING, text); }

void ComboBox::Clear() {
  Ask(Handle(), CB_RESETCONTENT);
  selected_ = -1;
}

int ComboBox::ListCount() const { return Handle() == nullptr ? 0 : Ask(Handle(), CB_GETCOUNT); }
int ComboBox::ListIndex() const { return Ask(Handle(), CB_GETCURSEL); }

void ComboBox::SetListIndex(int index) {
  if (Handle() == nullptr) return;
  Ask(Handle(), CB_SETCURSEL, static_cast<WPARAM>(index));
  NoteSelection();
}

std::string ComboBox::ItemText(int index) const {
  return ItemOf(Handle(), CB_GETLBTEXTLEN, CB_GETLBTEXT, index);
}

int ComboBox::WindowHeightFor(int height) {
  // The window's height is that of the dropped list; the closed box follows from its item.
  const int border = Owner()->Scale(6);
  if (Bounds().height != height) {
    SendMessageA(Handle(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height - border);
  }
  return height + kItemsDroppedDown * Ask(Handle(), CB_GETITEMHEIGHT) + border;
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
  CreateControl(parent, WC_LISTBOXA, "",
                WS_VISIBLE | WS_TABSTOP | WS_GROUP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                WS_EX_CLIENTEDGE, id);
  SetToolTip(toolTip);
}

void ListBox::AddItem(const std::string& text) { Add(Handle(), LB_ADDSTRING, text); }
void ListBox::SetItems(const std::vector<std::string>& items) {
  if (Handle() == nullptr) return;
  SendMessageA(Handle(), WM_SETREDRAW, FALSE, 0);
  Clear();
  for (const std::string& item : items) AddItem(item);
  SendMessageA(Handle(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(Handle(), nullptr, TRUE);
}

void ListBox::RemoveItem(int index) { Ask(Handle(), LB_DELETESTRING, static_cast<WPARAM>(index)); }
void ListBox::Clear() { Ask(Handle(), LB_RESETCONTENT); }
int ListBox::ListCount() const { return Handle() == nullptr ? 0 : Ask(Handle(), LB_GETCOUNT); }
int ListBox::ListIndex() const { return Ask(Handle(), LB_GETCURSEL); }
void ListBox::SetListIndex(int index) { Ask(Handle(), LB_SETCURSEL, static_cast<WPARAM>(index)); }
std::string ListBox::ItemText(int index) const {
  return ItemOf(Handle(), LB_GETTEXTLEN, LB_GETTEXT, index);
}

void ListBox::OnCommand(int code) {
  if (code == LBN_SELCHANGE) Click.Raise();
  if (code == LBN_DBLCLK) DblClick.Raise();
}

}  // namespace tallyrun
