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

# Tests start several at a time: one of them makes the prefix, the others wait for it.
if [[ ! -e $WINEPREFIX/ready ]]; then
  mkdir -p "$WINEPREFIX"
  exec 9>"$WINEPREFIX/lock"
  flock 9
  if [[ ! -e $WINEPREFIX/ready ]]; then
    # Without a display, so that the server of this prefix is not bound to a passing screen.
    env -u DISPLAY wineboot --init >"$WINEPREFIX/init.log" 2>&1 ||
      { cat "$WINEPREFIX/init.log" >&2; exit 1; }
    wineserver --wait
    touch "$WINEPREFIX/ready"
  fi
  exec 9>&-
fi

if [[ -n ${DISPLAY:-} ]]; then
  exec wine "$@"
fi
exec xvfb-run --auto-servernum --server-args='-screen 0 1280x1024x24' wine "$@"
