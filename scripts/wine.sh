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
    if ! env -u DISPLAY wineboot --init >"$WINEPREFIX/init.log" 2>&1 9>&-; then
      cat "$WINEPREFIX/init.log" >&2
      exit 1
    fi
    # The server must not go on without a screen for the programs to come.
    wineserver --wait 9>&-
    touch "$WINEPREFIX/ready"
  fi
  exec 9>&-
fi

if [[ -n ${DISPLAY:-} ]]; then
  exec wine "$@"
fi
source "$root/scripts/screen.sh"
open_screen
trap close_screen EXIT
wine "$@"
