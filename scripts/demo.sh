#!/bin/bash
# Works a Pay In day and a Pay Out day in the real program, against a practice exchange on this
# machine. Leaves in build/demo/ the files of program, clerk and exchange, a picture of each step and
# demo.log. Where there is no display, it runs on a screen in memory.
#   --stay   leave program and exchange running to practise with; always so on a display
set -euo pipefail
cd "$(dirname "$0")/.."
stay=()
if [[ ${1:-} == --stay || -n ${DISPLAY:-} ]]; then stay=(--stay); fi

scripts/setup.sh
cmake --preset windows >/dev/null
cmake --build --preset windows --target TallyrunPractice ftp demo_clerk

rm -rf build/demo
# The shipped program, but for the address that it has built in.
practice/workplace.sh build/demo build/windows/practice/Tallyrun.exe
practice/stage.sh build/windows build/demo \
  practice/film.sh build/windows "$PWD/build/demo" "${stay[@]}"
