// The base of every control: its window, what all controls share, and the events for focus and
// keys. A control lives as a member of its form; its window exists while the form is loaded.
// Without a window every setter does nothing and every getter answers empty.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>

#include "ui/Event.h"
#include "ui/WindowClass.h"

namespace tallyrun {

class Control;
class Form;
class LayoutArea;

// A place in pixels of the parent's client area.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PixelRect&) const = default;
};

// What can hold controls: a form or a frame in it.
class ControlParent {
 public:
  virtual ~ControlParent() = default;
  virtual HWND ParentHandle() const = 0;
  virtual Form& ParentForm() = 0;
};

class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  // Another control of the program took the focus. A message box, another program or a drop-down
  // calendar in front takes nothing.
  Event<> LostFocus;
  // `handled` in KeyDown and KeyPress keeps the key from the control. A release that the control
  // has no handler for goes to its form.
  Event<KeyEvent&> KeyDown;
  Event<KeyEvent&> KeyPress;
  Event<KeyEvent&> KeyUp;

  HWND Handle() const { return window_; }
  int Id() const { return id_; }
  // The form it was created on.
  Form* Owner() const { return form_; }

  std::string Text() const;
  void SetText(const std::string& text);
  bool Enabled() const;
  void SetEnabled(bool enabled);
  // Whether it was set visible, also while its form is still hidden.
  bool Visible() const;
  void SetVisible(bool visible);
  // Takes the focus, or will have it when its form is next in front. Does nothing for a control
  // that is hidden or disabled.
  void SetFocus();
  bool HasFocus() const;

  // Pixels of the parent's client area.
  PixelRect Bounds() const;
  void Move(const PixelRect& bounds);
  // The form is about to show: what was put off until the first paint is better done unseen.
  virtual void OnShowing() {}
  // The width in pixels that what it shows takes in a row; 0 where that says nothing.
  virtual int WidthIn(const LayoutArea&) const { return 0; }
  // The window's height when it is laid out `height` pixels high; drop-downs differ.
  virtual int WindowHeightFor(int height) { return height; }

  void SetToolTip(const std::string& text);
  const std::string& ToolTip() const { return toolTip_; }

  // Sets the font that the form made; the form keeps ownership.
  virtual void ApplyFont(HFONT font);

  // Hands a WM_COMMAND or WM_NOTIFY that has come to the parent back to the control it comes from.
  // Gives back the control's answer, or nothing when it comes from none of ours.
  static std::optional<LRESULT> Reflect(UINT message, WPARAM wParam, LPARAM lParam);

 protected:
  // Makes the window, visible. Controls made earlier lie over later ones and come first by Tab.
  void CreateControl(ControlParent& parent, int id, const char* windowClass,
                     const std::string& text, DWORD style, DWORD extendedStyle = 0);
  // The two notifications, handed back.
  virtual void OnCommand(int) {}
  virtual LRESULT OnNotify(NMHDR&) { return 0; }
  // Handles a message to the control's window; overriders pass on what is not theirs.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  // What the window's own class does with the message.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
  // True when DELETE edits the control's text, so that its release is no command.
  virtual bool EditsText() const { return false; }

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept;
  // The control that a window of ours or of the system belongs to, or null.
  static Control* FromHandle(HWND window);
  void RaiseKeyUp(KeyEvent& key);
  void WindowGone();

  HWND window_ = nullptr;
  ClassProc classProc_;
  Form* form_ = nullptr;
  int id_ = 0;
  std::string toolTip_;
  bool hasTip_ = false;  // whether the form's tip window knows it
  // INSERT went down with Shift or Ctrl held, which pastes and copies in a text.
  bool insertIsClipboards_ = false;
};

// The key event of a key message, with the modifiers as they stand.
KeyEvent KeyEventFrom(WPARAM wParam, LPARAM lParam);

// The control that has the focus or had it last; it is told when another one takes it.
namespace focus {
void Took(Control& control);
void Forget(const Control& control);
}  // namespace focus

}  // namespace tallyrun
