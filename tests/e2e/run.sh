#!/bin/bash
# Runs end-to-end tests beside a practice exchange of their own: run.sh PORT CLIENT-FOLDER PROGRAM...
# The tests find its folder, and the place for its faults, in TALLYRUN_EXCHANGE; the folder with the
# command-line client is on the search path.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
port=$1
export WINEPATH=Z:${2//\//\\}
shift 2

source "$root/scripts/screen.sh"
own_screen=
if [[ -z ${DISPLAY:-} ]]; then
  open_screen
  own_screen=yes
fi
start_manager

place=$(mktemp -d)
mkdir "$place/exchange"
clean_up() {
  kill "$exchange" 2>/dev/null || true
  stop_manager
  [[ -z $own_screen ]] || close_screen
  rm -rf "$place"
}
trap clean_up EXIT

# Another build tree's tests may hold the port for a while.
for ((attempt = 0; attempt < 300; ++attempt)); do
  /usr/bin/python3 "$root/practice/exchange.py" "$place/exchange" --port "$port" \
    --port-file "$place/port" >"$place/log" 2>&1 &
  exchange=$!
  while [[ ! -s $place/port ]] && kill -0 "$exchange" 2>/dev/null; do sleep 0.1; done
  [[ ! -s $place/port ]] || break
done
[[ -s $place/port ]] || { cat "$place/log" >&2; exit 1; }

export TALLYRUN_EXCHANGE=Z:${place//\//\\}
"$root/scripts/wine.sh" "$@"
