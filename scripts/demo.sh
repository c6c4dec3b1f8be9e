#!/bin/bash
# Works a Pay In day and a Pay Out day in the real program, against a practice exchange on this
# machine. Leaves in build/demo/ the files of program, clerk and exchange, a picture of each step and
# demo.log. Where there is no display, it runs on a screen in memory.
#   --stay   leave program and exchange running to practise with; always so on a display
set -euo pipefail
cd "$(dirname "$0")/.."
stay=
if [[ ${1:-} == --stay || -n ${DISPLAY:-} ]]; then stay=--stay; fi

scripts/setup.sh
cmake --preset windows >/dev/null
cmake --build --preset windows --target Tallyrun TallyrunPractice ftp demo_clerk

demo=$PWD/build/demo
rm -rf "$demo"
# The shipped program, but for the address that it has built in.
scripts/workplace.sh "$demo" build/windows/practice/Tallyrun.exe
folder=Z:${demo//\//\\}

port=$(sed -n 's/^TALLYRUN_PRACTICE_PORT:STRING=//p' build/windows/CMakeCache.txt)
/usr/bin/python3 practice/exchange.py "$demo/exchange" --port "$port" --port-file "$demo/port" \
  >"$demo/exchange.log" 2>&1 &
exchange_pid=$!
stop_exchange() {
  kill $exchange_pid
  wait $exchange_pid
}
ending=(stop_exchange)
clean_up() {
  local i
  for ((i = ${#ending[@]} - 1; i >= 0; --i)); do ${ending[i]} 2>/dev/null || true; done
}
trap clean_up EXIT
while [[ ! -s $demo/port ]]; do
  if ! kill -0 $exchange_pid 2>/dev/null; then
    cat "$demo/exchange.log" >&2
    exit 1
  fi
  sleep 0.1
done

export WINEPREFIX=$PWD/build/wineprefix
# Wine has no command-line FTP client of its own.
export WINEPATH="Z:${PWD//\//\\}\\build\\windows\\practice"
if [[ -z ${DISPLAY:-} ]]; then
  source scripts/screen.sh
  open_screen 1280x800
  ending+=(close_screen "wineserver --kill")
  start_manager
  xsetroot -solid '#4a6478'
fi

say() {
  printf '%s\n' "$1" | tee -a "$demo/demo.log"
}

# The screen is still being painted when the clerk asks: two pictures alike are a finished one. A
# blinking caret keeps it from coming to rest, so it is not waited for without end.
take_picture() {
  local before= now
  for _ in {1..8}; do
    import -silent -window root -strip "png:$demo/$1"
    now=$(cksum <"$demo/$1")
    [[ $now != "$before" ]] || break
    before=$now
  done
  say "   picture $1"
}

coproc CLERK { exec scripts/wine.sh build/windows/practice/clerk/demo_clerk.exe "$folder" $stay 2>/dev/null; }
clerk_pid=$CLERK_PID
exec {answers}>&"${CLERK[1]}" {lines}<&"${CLERK[0]}"
while IFS= read -r line <&"$lines"; do
  line=${line%$'\r'}
  case $line in
    '@picture '*)
      take_picture "${line#@picture }"
      echo >&"$answers"
      ;;
    # Not the end of the stream: Wine's own processes hold it open a while longer.
    @done) break ;;
    *) say "$line" ;;
  esac
done
if ! wait "$clerk_pid"; then
  echo "The demo failed; see build/demo/." >&2
  exit 1
fi

say "Done: build/demo/ holds the pictures, in work/ the clerk's files and in exchange/ what was sent."
if [[ -n $stay ]]; then
  say "Tallyrun stays open on display $DISPLAY, with the exchange; close its window to end."
  wineserver --wait
fi
