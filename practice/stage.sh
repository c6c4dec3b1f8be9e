#!/bin/bash
# Runs a command on a clerk's stage: practice/stage.sh BUILD FOLDER COMMAND...
# The stage has a screen in memory where there is no display, a window manager, the client of the
# Windows build BUILD on the search path, and the practice exchange, which serves FOLDER/exchange
# and looks for faults in FOLDER/faults. All of it ends with the command.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(realpath "$1")
folder=$(realpath "$2")
shift 2
export WINEPREFIX=${WINEPREFIX:-$root/build/wineprefix}
# Wine has no command-line FTP client of its own.
export WINEPATH=Z:${build//\//\\}\\practice

source "$root/scripts/screen.sh"
own_screen=
exchange=
clean_up() {
  [[ -z $exchange ]] || kill "$exchange" || true
  [[ -z $own_screen ]] || wineserver --kill || true
  stop_manager
  [[ -z $own_screen ]] || close_screen
}
if [[ -z ${DISPLAY:-} ]]; then
  open_screen 1280x800
  own_screen=yes
  xsetroot -solid '#4a6478'
fi
start_manager
trap clean_up EXIT

port=$(sed -n 's/^TALLYRUN_PRACTICE_PORT:STRING=//p' "$build/CMakeCache.txt")
# Another build tree's stage may hold the port for a while.
for ((attempt = 0; attempt < 300; ++attempt)); do
  exec {exchange_lines}< <(exec /usr/bin/python3 "$root/practice/exchange.py" \
    "$folder/exchange" --port "$port" 2>"$folder/exchange.log")
  exchange=$!
  # It tells once it takes clients.
  if read -r <&"$exchange_lines"; then break; fi
  exec {exchange_lines}<&-
  exchange=
  sleep 0.1
done
[[ -n $exchange ]] || { cat "$folder/exchange.log" >&2; exit 1; }

"$@"
