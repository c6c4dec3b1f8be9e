#!/bin/bash
# Runs a Windows program of this build under Wine: scripts/wine.sh PROGRAM [ARGUMENT...]
# Makes the Wine prefix of the build tree on first use, and a screen where there is none. CMake runs
# the Windows tests through it.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX=${WINEPREFIX:-$root/build/wineprefix}
export WINEDEBUG=${WINEDEBUG:--all}
# Neither .NET nor a browser engine is needed; without this, a new prefix asks to download them.
export WINEDLLOVERRIDES='mscoree,mshtml='
# English captions on the buttons of boxes, and the western code page.
export LC_ALL=C.UTF-8

# Tests start several at a time: one of them makes the prefix, the others wait for it.
if [[ ! -e $WINEPREFIX/ready ]]; then
  mkdir -p "$WINEPREFIX"
  exec 9>"$WINEPREFIX/lock"
  flock 9
  if [[ ! -e $WINEPREFIX/ready ]]; then
    (
      unset DISPLAY
      wineboot --init
      # Windows brings this font; here another one with letters of one width stands in.
      wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /f \
        /v 'Lucida Console' /d 'DejaVu Sans Mono'
      # The window tests wait for no window manager.
      wine reg add 'HKCU\Software\Wine\AppDefaults\windows_tests.exe\X11 Driver' /f \
        /v Managed /d N
      # The programs to come find no server that was started without a screen.
      wineserver --wait
    ) >"$WINEPREFIX/init.log" 2>&1 9>&- || { cat "$WINEPREFIX/init.log" >&2; exit 1; }
    touch "$WINEPREFIX/ready"
  fi
  exec 9>&-
fi

if [[ -z ${DISPLAY:-} ]]; then
  source "$root/scripts/screen.sh"
  open_screen
  trap close_screen EXIT
fi

# Wine's background programs keep this stream open for some seconds after the program's end. Were it
# the caller's own, ctest would wait for them, and each test would have to start them anew.
errors=$(mktemp)
status=0
wine "$@" 2>"$errors" || status=$?
cat "$errors" >&2
rm -f "$errors"
exit $status
