// The one place that the build's exchange address goes into.
#include "transfer/FtpTransfer.h"

namespace tallyrun {

const char kExchangeAddress[] = TALLYRUN_EXCHANGE_ADDRESS;

}  // namespace tallyrun
