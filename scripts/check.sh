#!/bin/bash
# What must hold before a change goes in: formatting, clang-tidy on the portable code, both builds
# and all tests.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh clang-format clang-tidy

git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
echo "format: clean"

# The program's code that the native build compiles: clang has no headers for Windows here.
cmake --preset native >/dev/null
python3 - build/native/compile_commands.json <<'LIST' |
import json, os, sys
root = os.getcwd() + os.sep
for entry in json.load(open(sys.argv[1])):
    path = os.path.normpath(os.path.join(entry["directory"], entry["file"]))
    if path.startswith(root) and not path.startswith((root + "build", root + "tests")):
        print(path)
LIST
  xargs -P "$(nproc)" -n 4 clang-tidy -p build/native --quiet --warnings-as-errors='*' \
    --extra-arg=-Wno-unknown-warning-option  # GCC's own options
echo "clang-tidy: clean"

scripts/test.sh
