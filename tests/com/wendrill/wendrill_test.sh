#!/usr/bin/env bash
# wendrill.exe beside the library, under Wine: its records of every PNR that comes with the simulator are those that a
# script reads through the library's accessors.
#
#   wendrill_test.sh CLONE WENDRILL.exe SCRIPT_HOST.exe [EMULATOR...]

set -euo pipefail
export LC_ALL=C.UTF-8
clone=$1
wendrill=$2
host=$3
emulator=("${@:4}")
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
cd -- "$work"

/usr/bin/python3 - "$clone"/simulator/scenarios/*.toml >displays.txt <<'PYTHON'
import sys, tomllib
for path in sys.argv[1:]:
    for pnr in tomllib.load(open(path, "rb")).get("pnr", []):
        if pnr.get("display", "").find("RP/") >= 0:
            print(pnr["display"])
PYTHON
"${emulator[@]}" "$wendrill" --version
"${emulator[@]}" "$wendrill" read -j 2 --keys bag displays.txt >records.jsonl
"${emulator[@]}" "$wendrill" scenario displays.txt >pnrs.toml
mapfile -t locators < <(sed -n 's/.*"RecordLocator":"\([A-Z0-9]*\)","CreationOfficeID.*/\1/p' records.jsonl)
"${emulator[@]}" "$host" --scenario pnrs.toml "$clone/tests/com/wendrill/dump_records.vbs" "${locators[@]}" >dump.txt
/usr/bin/python3 "$clone/tests/com/wendrill/compare_records.py" records.jsonl dump.txt
