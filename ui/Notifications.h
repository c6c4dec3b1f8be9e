// Brings a notification that arrives at a form or frame back to the control it comes from.
#pragma once

#include <windows.h>

#include <optional>

namespace tallyrun {

// For WM_COMMAND and WM_NOTIFY: the control's answer, or nothing when no control of ours sent it.
std::optional<LRESULT> ReflectNotification(UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace tallyrun
