// Numbers that the parts of the form share with nobody else.
#pragma once

#include <windows.h>

namespace tallyrun {

// A closed form's window goes when this arrives and no handler of the form runs any more.
inline constexpr UINT kUnloadPending = WM_APP + 1;

// The icon's number in the program's resources.
inline constexpr int kApplicationIcon = 1;

}  // namespace tallyrun
