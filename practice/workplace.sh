#!/bin/bash
# Lays out a clerk's place in FOLDER: the program with its settings, and the sample files:
# practice/workplace.sh FOLDER PROGRAM
set -euo pipefail
samples=$(cd "$(dirname "$0")/.." && pwd)/samples
mkdir -p "$1"
cp -r "$samples"/{program,work,import,exchange} "$1"
cp "$2" "$1/program/Tallyrun.exe"
# The settings are text of the system code page, and Wine has the whole file system as drive Z.
folder=Z:$(realpath "$1")
backup_location=$(iconv -t CP1252 <<<"${folder//\//\\}\\work\\")
settings=$(<"$samples/program/Tallyrun.ini")
printf %s "${settings//@BACKUP_LOCATION@/"$backup_location"}" >"$1/program/Tallyrun.ini"
