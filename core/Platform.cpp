#include "core/Platform.h"

#include <cassert>

namespace tallyrun {
namespace {
Platform* platformInUse = nullptr;
}

Platform& ThePlatform() {
  assert(platformInUse != nullptr);
  return *platformInUse;
}

void SetPlatform(Platform* platform) { platformInUse = platform; }

void Tell(const std::string& text, const std::string& title, MessageIcon icon) {
  ThePlatform().ShowMessage({text, title, icon, MessageButtons::Ok});
}

bool Ask(const std::string& text, const std::string& title, MessageIcon icon) {
  return ThePlatform().ShowMessage({text, title, icon, MessageButtons::YesNo}) ==
         MessageAnswer::Yes;
}

}  // namespace tallyrun
