#include "ui/TextBox.h"

namespace tallyrun {
namespace {

constexpr WPARAM kCtrlA = 1;  // the character that Ctrl+A types
constexpr WPARAM kCtrlBackspace = 0x7F;

}  // namespace

void TextBox::Create(ControlParent& parent, int id, TextBoxKind kind, const std::string& toolTip) {
  kind_ = kind;
  DWORD style = WS_TABSTOP | WS_GROUP | ES_AUTOHSCROLL;
  if (kind == TextBoxKind::ReadOnlyLines) {
    style |= ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL | WS_HSCROLL;
  }
  CreateControl(parent, id, WC_EDITA, "", style, WS_EX_CLIENTEDGE);
  // The default limit of 32,767 bytes would cut a long holding message.
  SendMessageA(Handle(), EM_SETLIMITTEXT, 0, 0);
  SetToolTip(toolTip);
}

void TextBox::SelectAll() { SendMessageA(Handle(), EM_SETSEL, 0, -1); }

LRESULT TextBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CHAR) {
    KeyEvent key = KeyEventFrom(wParam, lParam);
    KeyPress.Raise(key);
    if (key.handled) return 0;
    if (wParam == kCtrlA) {
      SelectAll();
      return 0;
    }
    // The system's box would take this for a letter.
    if (wParam == kCtrlBackspace) return 0;
    // A single line has no use for these and would beep.
    const bool isEnterOrEscape = wParam == VK_RETURN || wParam == VK_ESCAPE;
    if (kind_ == TextBoxKind::SingleLine && isEnterOrEscape) return 0;
    return Default(message, wParam, lParam);
  }
  // Tab belongs to the form and the arrow keys to the text, in a box of many lines as well.
  if (message == WM_GETDLGCODE && kind_ == TextBoxKind::ReadOnlyLines) {
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
  }
  return Control::OnMessage(message, wParam, lParam);
}

}  // namespace tallyrun
