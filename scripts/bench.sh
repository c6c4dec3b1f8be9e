#!/bin/bash
# Measures a broker's day beside mawk and sort, sqlite3 and plain reads and writes: scripts/bench.sh
# Installs what it needs, builds the release, and runs everything in turn on the same generated
# files. They lie in memory (/dev/shm) where there is one, so that no disk's mood is measured.
# Prints the medians, the ratios and a line per bar. With --quick, one round of everything.
set -euo pipefail
cd "$(dirname "$0")/.."

rounds=7
[[ ${1:-} == --quick ]] && rounds=1

scripts/setup.sh mawk sqlite3 libbenchmark-dev
cmake --preset bench >/dev/null
cmake --build build/bench --target generate day limit micro | tail -n 1

memory=/dev/shm
[[ -w $memory ]] || memory=${TMPDIR:-/tmp}
data=$(mktemp -d -p "$memory" tallyrun-bench.XXXXXX)
trap 'rm -rf "$data"' EXIT
python3 bench/measure.py build/bench/bench bench "$data" "$rounds"
