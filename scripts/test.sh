#!/bin/bash
# Builds and runs every test: the portable ones natively with sanitizers, the Windows ones under
# Wine, and the whole program end to end. Arguments go to ctest: scripts/test.sh -R frmMain
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
for preset in native windows; do
  cmake --preset "$preset"
  cmake --build --preset "$preset"
done

# One run, and so one summary, over both build trees.
echo 'subdirs(native windows)' >build/CTestTestfile.cmake

export WINEPREFIX=$PWD/build/wineprefix
source scripts/screen.sh
open_screen
# Wine's own programs stay a while; they end first, or they would complain about the lost screen.
trap 'wineserver --kill || true; close_screen' EXIT
ctest --test-dir build --output-on-failure --no-tests=error --parallel "$(nproc)" "$@"
