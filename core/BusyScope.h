// A long operation's signs on the window that it runs in: progress in the caption and the
// hourglass. Scopes of a window nest: when one goes, the one around it shows its signs again, and
// the outermost puts the window's own caption and the normal pointer back. Nothing else keeps a
// caption.
#pragma once

#include <string>

#include "core/Platform.h"

namespace tallyrun {

enum class PointerShape { Normal, Hourglass };

class BusyScope;

// What an operation knows of its window.
class BusyWindow {
 public:
  virtual ~BusyWindow() = default;

  // Sets the window's own caption. Progress that is shown stays, and gives way to it in the end.
  void SetCaption(const std::string& caption);

 protected:
  virtual void ShowCaption(const std::string& caption) = 0;
  virtual void ShowPointer(PointerShape shape) = 0;

 private:
  friend class BusyScope;

  std::string ownCaption_;
  BusyScope* innermost_ = nullptr;
};

class BusyScope {
 public:
  // Changes nothing yet. The window must outlive the scope.
  explicit BusyScope(BusyWindow& window);
  ~BusyScope();
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

  // Shows the hourglass and `progress`: behind the window's own caption where it begins with
  // "...", else in its place.
  void Show(const std::string& progress);
  void ShowPointer(PointerShape shape);
  // Shows the window's own caption and the normal pointer while the operation says why it ends.
  void End();
  // Tells how the operation ended, the outcome standing behind the caption meanwhile, and ends.
  void TellOutcome(const std::string& outcome, const std::string& title, MessageIcon icon);
  // The outermost scope leaves the window as it looks, progress and hourglass included.
  void Leave() { leaves_ = true; }

 private:
  friend class BusyWindow;

  struct Signs {
    std::string progress;
    PointerShape pointer = PointerShape::Normal;
  };
  void Show(const Signs& signs);
  void ShowAgain() const;
  std::string CaptionShown() const;

  BusyWindow& window_;
  BusyScope* const outer_;
  Signs signs_;
  bool leaves_ = false;
};

}  // namespace tallyrun
