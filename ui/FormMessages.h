// The message that the parts of the form share with nobody else.
#pragma once

#include <windows.h>

namespace tallyrun {

// A closed form's window goes when this arrives and no handler of the form runs any more.
inline constexpr UINT kUnloadPending = WM_APP + 1;

}  // namespace tallyrun
