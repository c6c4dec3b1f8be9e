// What the resource section of a program must hold: linked into this one as into Tallyrun.exe.
#include <windows.h>

#include <string>

#include "core/Application.h"
#include "gmock/gmock.h"

namespace tallyrun {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// The bytes of a resource of this program; empty when there is none.
std::string ResourceBytes(int id, LPCSTR type) {
  HRSRC found = FindResourceA(nullptr, MAKEINTRESOURCEA(id), type);
  if (found == nullptr) return {};
  const void* data = LockResource(LoadResource(nullptr, found));
  return {static_cast<const char*>(data), SizeofResource(nullptr, found)};
}

TEST(ResourceTest, ManifestAsksForControlsScalingAndNoMore) {
  const std::string manifest = ResourceBytes(1, RT_MANIFEST);
  EXPECT_THAT(manifest, HasSubstr("Microsoft.Windows.Common-Controls"));
  EXPECT_THAT(manifest, HasSubstr("PerMonitorV2, PerMonitor, System"));
  EXPECT_THAT(manifest, HasSubstr(">true/pm<"));
  EXPECT_THAT(manifest, HasSubstr("level=\"asInvoker\""));
  // Text stays in the system's code page, and with it every file the program reads.
  EXPECT_THAT(manifest, Not(HasSubstr("<activeCodePage")));
}

TEST(ResourceTest, VersionIsTheOneThatCaptionsShow) {
  const std::string version = ResourceBytes(VS_VERSION_INFO, RT_VERSION);
  VS_FIXEDFILEINFO info{};
  ASSERT_EQ(version.copy(reinterpret_cast<char*>(&info), sizeof info, 40), sizeof info);
  EXPECT_EQ(info.dwSignature, DWORD{VS_FFI_SIGNATURE});  // it follows the block's head and name
  EXPECT_EQ(HIWORD(info.dwFileVersionMS), kMajorVersion);
  EXPECT_EQ(HIWORD(info.dwFileVersionLS), kRevision);
}

}  // namespace
}  // namespace tallyrun
