// The program's start: the door to the machine, the settings and lists, the main window.
#include <windows.h>

#include <commctrl.h>

#include "app/frmMain.h"
#include "core/ErrorTrap.h"
#include "core/entry/Settings.h"
#include "ui/MessageLoop.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun {
namespace {

void Main(frmMain& window) {
  RunTrapped([&] {
    LoadSettings([&] { window.ShowSettings(); });
    window.Show();
  });
}

}  // namespace
}  // namespace tallyrun

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  using namespace tallyrun;
  WindowsPlatform platform;
  SetPlatform(&platform);
  const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_STANDARD_CLASSES | ICC_DATE_CLASSES |
                                                              ICC_LISTVIEW_CLASSES |
                                                              ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  frmMain window;
  Main(window);
  return window.IsLoaded() ? RunMessageLoop() : 0;
}
