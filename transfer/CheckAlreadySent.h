// The check before an upload: is the day's file on the exchange's server already? Tells the clerk
// through the platform.
#pragma once

#include "transfer/EntrySend.h"

namespace tallyrun {

// True (stop) when the day's file is on the server, which is then shown, or when that could not be
// found out. Downloads the server's file over the local one.
bool CheckAlreadySent(const EntrySend& send);

}  // namespace tallyrun
