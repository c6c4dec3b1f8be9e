#!/bin/bash
# Works the demo's day on a stage and leaves a picture of each step and demo.log in FOLDER:
# practice/film.sh BUILD FOLDER [--stay]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$1 folder=$2

say() {
  printf '%s\n' "$1" | tee -a "$folder/demo.log"
}

# The screen is still being painted when the clerk asks: two pictures alike are a finished one. A
# blinking caret keeps it from coming to rest, so it is not waited for without end.
take_picture() {
  local before= now
  for _ in {1..8}; do
    import -silent -window root -strip "png:$folder/$1"
    now=$(cksum <"$folder/$1")
    [[ $now != "$before" ]] || break
    before=$now
  done
  say "   picture $1"
}

coproc CLERK { exec "$root/scripts/wine.sh" "$build/practice/clerk/demo_clerk.exe" \
  "Z:${folder//\//\\}" "${@:3}" 2>/dev/null; }
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
  echo "The demo failed; see $folder." >&2
  exit 1
fi

say "Done: pictures lie in build/demo/, the clerk's files in work/, and what was sent in exchange/."
if [[ ${3:-} == --stay ]]; then
  say "Tallyrun stays open on display $DISPLAY, with the exchange; close its window to end."
  wineserver --wait
fi
