// What the program calls itself: its title and version as captions and message boxes show them.
#pragma once

#include <string>

namespace tallyrun {

inline constexpr char kApplicationTitle[] = "Tallyrun";
inline constexpr int kMajorVersion = 1;
// The number behind the point in captions is the build's revision, not a minor version.
inline constexpr int kRevision = 0;

// "Tallyrun v1.0 : " followed by what the window shows, as every caption begins.
std::string CaptionFor(const std::string& subject);

}  // namespace tallyrun
