// The upload of the day's entry file: its verdict and the archive of every attempt. Tells the clerk
// through the platform.
#pragma once

#include "transfer/EntrySend.h"

namespace tallyrun {

// Uploads the entry file, tells the clerk how it went and archives the rows under "Sent", whether
// it went well or not. An error is shown, and leaves caption and pointer as they are.
void UploadEntryFile(const EntrySend& send);

}  // namespace tallyrun
