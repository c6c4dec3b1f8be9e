#!/bin/bash
# Measures the program: a broker's day beside mawk and sort, sqlite3 and plain reads and writes, the
# inner pieces alone, and the real windows under Wine beside its notepad: scripts/bench.sh
# Installs what it needs, builds the release, and runs everything in turn on the same generated
# files. They lie in memory (/dev/shm) where there is one, so that no disk's mood is measured.
# Prints the medians, the ratios and a line per bar; fails when something does not run or when a
# peer's output differs, not when a bar falls short. With --quick, one round of everything.
set -euo pipefail
cd "$(dirname "$0")/.."

rounds=5
[[ ${1:-} == --quick ]] && rounds=1

scripts/setup.sh mawk sqlite3 libbenchmark-dev
cmake --preset bench >/dev/null
cmake --build build/bench --target generate day micro | tail -n 1
cmake --preset windows >/dev/null
cmake --build build/windows --target Tallyrun window_times start_time | tail -n 1

memory=/dev/shm
[[ -w $memory ]] || memory=${TMPDIR:-/tmp}
data=$(mktemp -d -p "$memory" tallyrun-bench.XXXXXX)
export WINEPREFIX=$PWD/build/wineprefix
# A screen in memory also where there is a display: what the clerk does there is not to be measured.
source scripts/screen.sh
open_screen 1920x1080
clean_up() {
  stop_manager
  wineserver --kill || true
  close_screen
  rm -rf "$data"
}
trap clean_up EXIT
start_manager

python3 bench/measure.py build/bench build/windows "$data" "$rounds"
