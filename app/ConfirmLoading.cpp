#include "app/ConfirmLoading.h"

#include "core/Platform.h"

namespace tallyrun {

bool ConfirmLoading() {
  return Ask("Unsaved data will be lost.\r\nAre you sure to continue?", "Confirm Loading",
             MessageIcon::Question);
}

}  // namespace tallyrun
