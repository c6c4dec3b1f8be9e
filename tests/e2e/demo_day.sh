#!/bin/bash
# Works the demo's day without its pictures and compares the log and all files that program and
# exchange are left with to tests/data/day, the dates and times of the run masked:
# tests/e2e/demo_day.sh BUILD
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
golden=$root/tests/data/day
day=$1/tests/e2e/day
made=$1/tests/e2e/day_made
rm -rf "$day" "$made"
"$root/practice/workplace.sh" "$day" "$1/practice/Tallyrun.exe"

# Nobody takes the pictures, and each counts as taken. How the day ends stands in the log.
"$root/practice/stage.sh" "$1" "$day" "$root/scripts/wine.sh" \
  "$1/practice/clerk/demo_clerk.exe" "Z:${day//\//\\}" < <(yes '') >"$day/clerk.log" || true

mkdir "$made"
sed '/^@/d; s/\r$//' "$day/clerk.log" >"$made/log"
cp -r "$day"/{work,exchange} "$made"
cp "$day"/program/*INSTRUCTIONS "$made" || true
sed -i -E 's/^(Print Date +: )[0-9]{2}-[A-Z][a-z]{2}-[0-9]{4} /\1dd-MMM-yyyy /' "$made"/*INSTRUCTIONS
date='[0-9]{2}-[A-Z][a-z]{2}-[0-9]{2}' time='[0-9]{2}-[0-9]{2}-[0-9]{2}'
find "$made" -type f | while IFS= read -r file; do
  masked=$(sed -E "s/_${date}_${time}(AM|PM)\.txt$/_dd-MMM-yy_hh-mm-ssAMPM.txt/
                   s/[0-9]{4}-[0-9]{2}-[0-9]{2}_${time}_/yyyy-mm-dd_hh-mm-ss_/" <<<"$file")
  [[ $masked == "$file" ]] || mv "$file" "$masked"
done

if ! diff -r --text --unified=1 "$golden" "$made"; then
  echo "The day differs. To make this one the measure: rm -r '$golden'; cp -r '$made' '$golden'"
  exit 1
fi
