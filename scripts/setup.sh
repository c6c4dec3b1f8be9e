#!/bin/bash
# Installs what building, testing and the demo need on Debian 12, and does nothing when all is there:
# scripts/setup.sh [MORE-PACKAGES...]
# Works as root or through sudo and asks no question.
set -euo pipefail

packages=(
  cmake ninja-build
  g++ googletest               # the native build
  g++-mingw-w64-x86-64-posix   # the Windows build
  wine wine64 fonts-wine       # run it here ...
  xvfb                         # ... on a screen in memory
  libxcomposite1 libxcursor1 libxi6 libxinerama1 libxrandr2 libxrender1
  openbox x11-xserver-utils    # the demo's title bars and background ...
  imagemagick                  # ... and its pictures
  fonts-dejavu-core fonts-liberation
  python3 python3-pyftpdlib    # the practice exchange
  "$@"
)

missing=()
for package in "${packages[@]}"; do
  [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
    missing+=("$package")
done
((${#missing[@]})) || exit 0

as_root=()
if ((EUID != 0)); then
  as_root=(sudo -n)
  if ! sudo -n true 2>/dev/null; then
    echo "setup: run this once as root or through sudo; missing: ${missing[*]}" >&2
    exit 1
  fi
fi
echo "setup: installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! {
  "${as_root[@]}" apt-get -q update &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q install --yes \
      --no-install-recommends -o Dpkg::Options::=--force-confold "${missing[@]}"
} >"$log" 2>&1 </dev/null; then
  cat "$log" >&2
  exit 1
fi
