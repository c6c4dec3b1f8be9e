#include "core/ErrorTrap.h"

#include "core/Platform.h"
#include "core/RuntimeError.h"

namespace tallyrun {

void ShowError(const std::exception& error) {
  Tell(DescriptionOf(error), kApplicationTitle, MessageIcon::None);
}

}  // namespace tallyrun
