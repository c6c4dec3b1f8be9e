#include "core/entry/BoIdFormat.h"

#include "core/Platform.h"
#include "core/entry/Settings.h"

namespace tallyrun {

bool IsBoIdTooLong(std::string_view text) { return text.size() > Settings.boidFormat.size(); }

void TellBoIdTooLong() {
  Tell("BOID length can not be greater than " + std::to_string(Settings.boidFormat.size()) + ".",
       kApplicationTitle, MessageIcon::Critical);
}

std::string CompleteBoId(std::string_view text) {
  if (text.empty() || text.size() >= Settings.boidFormat.size()) return std::string(text);
  return Settings.boidFormat.substr(0, Settings.boidFormat.size() - text.size())
      .append(text.data(), text.size());
}

}  // namespace tallyrun
