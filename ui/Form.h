// The base of every window: its life from load to unload, the dispatch of events inside the error
// trap, layout, DPI, focus and key preview. One class per window derives from it, with one member
// per control. A form knows nothing of what its controls mean.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "core/BusyScope.h"
#include "core/ErrorTrap.h"
#include "core/grid/TextMeasurer.h"
#include "ui/Control.h"
#include "ui/Dpi.h"
#include "ui/Layout.h"
#include "ui/ToolTips.h"

namespace tallyrun {

struct FormOptions {
  int width = 640;  // of the client area, in pixels at 96 DPI
  int height = 480;
  bool sizable = true;        // otherwise exactly as large as the layout's minimum
  bool endsProgram = false;   // the main form: the program ends with it
  std::string fontFace = "";  // instead of the message font's face
};

class Form : public BusyWindow, public ControlParent {
 public:
  // `name` is the window's class, by which it can be found; it must outlive the form.
  explicit Form(const char* name, FormOptions options = {});
  ~Form() override;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // The key preview: releases that the focused control has no handler for.
  Event<KeyEvent&> KeyUp;

  // Makes the window and its controls, hidden, and runs Form_Load. Nothing when loaded.
  void Load();
  // Loads and shows the form, in front. One that was closed while its handler runs stays then.
  void Show();
  // Loads and shows it, disables the other forms, and returns when it is unloaded. `owner` may be
  // null. Raises ProgramEnding when the program ended meanwhile.
  void ShowModal(Form* owner);
  // Runs Form_Unload and destroys the window. While one of the form's handlers runs, the form is
  // only hidden and goes when the handler has returned.
  void Unload();
  bool IsLoaded() const { return window_ != nullptr; }
  bool EndsProgram() const { return options_.endsProgram; }

  // As it is shown.
  const std::string& Caption() const { return caption_; }

  // Enables or disables every control of the form.
  void EnableControls(bool enabled);

  HWND Handle() const { return window_; }
  HWND ParentHandle() const override { return window_; }
  Form& ParentForm() override { return *this; }

  int Dpi() const { return dpi_; }
  // Pixels at 96 DPI to pixels of this form.
  int Scale(int pixelsAt96) const { return ScaleForDpi(pixelsAt96, dpi_); }
  // The form's font, which it owns until the DPI changes.
  HFONT Font();
  // Measures texts in the form's font.
  TextMeasurer Measurer() { return MeasurerFor(Font(), dpi_); }
  SIZE MinimumClientSize() const { return minimum_; }

  // The form whose window this is, or null.
  static Form* FromHandle(HWND window);
  // The loaded forms, in the order in which they were loaded.
  static const std::vector<Form*>& LoadedForms();
  // True from the moment the main form is closed; the program loads no form from then on.
  static bool ProgramIsEnding();

  // What the toolkit's controls tell their form.
  void Adopt(Control& control);
  void Disown(Control& control);
  void ShowToolTip(const Control& control);
  void NoteFocus(const Control& control) { lastFocus_ = control.Handle(); }
  // Whether the control has the focus or gets it when the form is next in front.
  bool RemembersFocusOn(const Control& control) const {
    return control.Handle() != nullptr && lastFocus_ == control.Handle();
  }
  void Abandon() { unloading_ = true; }  // a control's object goes before its window did
  bool HoldPointer() const;              // true when the form sets the pointer itself
  bool PointerHasMoved() const;          // since the form was shown
  const std::vector<Control*>& Controls() const { return controls_; }

 protected:
  virtual void CreateControls() = 0;
  virtual void Layout(LayoutArea& area) = 0;
  virtual void Form_Load() {}
  virtual void Form_Unload() {}
  // The client area has another size; not raised while loading.
  virtual void Form_Resize() {}

  // One line of the dispatch table: `handler` runs inside the trap whenever `event` is raised.
  template <class F, class... Args>
  void On(Event<Args...>& event, void (F::*handler)(Args...)) {
    F* const self = static_cast<F*>(this);
    event.Set([self, handler](Args... args) {
      self->RunHandler([&] { (self->*handler)(static_cast<Args>(args)...); });
    });
  }
  // The same for a handler that needs nothing of what the event tells.
  template <class F, class First, class... Args>
  void On(Event<First, Args...>& event, void (F::*handler)()) {
    F* const self = static_cast<F*>(this);
    event.Set([self, handler](First, Args...) { self->RunHandler([&] { (self->*handler)(); }); });
  }

  // Runs a step as a handler of this form; a closed form stays until the outermost one returns.
  void RunHandler(const std::function<void()>& handler);

  // A message to the form's window; overriders pass on what is not theirs.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // Places the controls again, after a change that the window's size does not show.
  void Relayout();

 private:
  class HandlerScope;

  // A closed form's window goes when this arrives and no handler of the form runs any more.
  static constexpr UINT kUnloadPending = WM_APP + 1;

  void ShowCaption(const std::string& caption) override;
  // Holds over all of the form's controls, also while the pointer moves.
  void ShowPointer(PointerShape shape) override;
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept;
  void CreateFormWindow(HWND owner);
  void PlaceOnScreen(HWND owner);
  SIZE ClientSize() const;
  SIZE WindowSize(SIZE client) const;
  void UnloadNow();
  void WindowGone();
  void EndModal();

  LRESULT OnActivate(WPARAM wParam, LPARAM lParam);
  void OnSize(WPARAM wParam);
  void OnMinMaxInfo(MINMAXINFO& limits) const;
  void OnDpiChanged(int dpi, const RECT& suggested);
  void RestoreFocus();
  void RepairFocus();
  void RefreshFont();

  const char* name_;
  FormOptions options_;
  HWND window_ = nullptr;
  HWND owner_ = nullptr;
  std::string caption_;
  PointerShape pointer_ = PointerShape::Normal;
  POINT pointerAtShow_ = {};
  int dpi_ = kDefaultDpi;
  UniqueFont font_;
  ToolTips toolTips_;
  std::vector<Control*> controls_;  // members of the derived class, in the order of creation
  std::vector<HWND> disabledByModal_;
  SIZE minimum_ = {};
  SIZE clientSize_ = {};
  HWND lastFocus_ = nullptr;
  int handlersRunning_ = 0;
  bool loading_ = false;
  bool unloading_ = false;
  bool closePending_ = false;
};

// Disables every enabled form but `except` and gives back those that it disabled.
std::vector<HWND> DisableOtherForms(HWND except);
void EnableForms(std::vector<HWND>& forms);

}  // namespace tallyrun
