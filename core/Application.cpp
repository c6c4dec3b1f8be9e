#include "core/Application.h"

namespace tallyrun {

std::string CaptionFor(const std::string& subject) {
  return std::string(kApplicationTitle) + " v" + std::to_string(kMajorVersion) + "." +
         std::to_string(kRevision) + " : " + subject;
}

}  // namespace tallyrun
