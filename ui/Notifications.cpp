#include "ui/Notifications.h"

#include "ui/Control.h"

namespace tallyrun {

std::optional<LRESULT> ReflectNotification(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND) {
    Control* const control = Control::FromHandle(reinterpret_cast<HWND>(lParam));
    if (control == nullptr) return std::nullopt;
    control->OnCommand(HIWORD(wParam));
    return 0;
  }
  auto& notification = *reinterpret_cast<NMHDR*>(lParam);
  Control* const control = Control::FromHandle(notification.hwndFrom);
  if (control == nullptr) return std::nullopt;
  return control->OnNotify(notification);
}

}  // namespace tallyrun
