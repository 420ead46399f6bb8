#!/usr/bin/env bash
# 64-bit programs and the 32-bit library, in the prefix of WENDRILL_WINEPREFIX, a 64-bit Windows.
#
#   hosts64_test.sh FOLDER_OF_THE_DLLS EMULATOR CLIENT64.exe

set -euo pipefail
folder=$1 emulator=$2 client=$3
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
failed=0

windows_path() { printf 'Z:%s' "${1//\//\\}"; }
library="$(windows_path "$folder")\\Wendrill23.dll"
simulator="$(windows_path "$folder")\\QuilletSimulator.dll"
regsvr32() { "$emulator" 'C:\windows\syswow64\regsvr32.exe' /s "$@"; }

complain() {
  echo "$*"
  failed=1
}

# All classes and interfaces, in both views. Keys that are removed and written again may be in another order.
snapshot() {
  "$emulator" reg export 'HKLM\Software\Classes' "$(windows_path "$work/export")" /y >/dev/null
  iconv -f UTF-16LE -t UTF-8 "$work/export" | tr -d '\r' | grep . | sort >"$work/$1"
  [[ $(wc -l <"$work/$1") -gt 1000 ]] || complain "the export of $1 is too short"
}

quillet='{AA7DC265-8498-44CD-9BE6-F949A7610C4D}'

snapshot before
status=0
"$emulator" "$client" >"$work/unregistered" || status=$?
[[ $status == 1 ]] || complain "without registration the client ended with status $status"

regsvr32 "$library"
snapshot plain
regsvr32 /n /i:simulate "$simulator"
regsvr32 /n /i:surrogate "$library"
"$emulator" reg query "HKLM\\Software\\Classes\\CLSID\\$quillet" /reg:64 >"$work/of64" 2>&1 || complain 'no class for 64-bit programs'
if grep -q InprocServer32 "$work/of64"; then complain '64-bit programs would load the DLL'; fi
"$emulator" reg query "HKLM\\Software\\Classes\\CLSID\\$quillet\\InprocServer32" /reg:32 >/dev/null || complain 'no class for 32-bit programs'
"$emulator" "$client" >"$work/printed" || complain "the client failed: $(cat "$work/printed")"
tr -d '\r' <"$work/printed" | diff - <(
  cat <<'END'
in this process: no
late bound: ** AVAILABILITY **
error: 0x80020009 0x800A0005
description: Invalid procedure call or argument
source: Wendrill23
early bound: ** AVAILABILITY **
last response: ** AVAILABILITY **
END
) || failed=1

status=0
"$emulator" "$folder/doctor.exe" >"$work/doctor" || status=$?
grep -q '^cscript  *ok .*64-bit' "$work/doctor" || complain "the doctor does not see the surrogate: $(cat "$work/doctor")"

# Without the word the surrogate goes; afterwards the doctor warns.
regsvr32 /u /n /i:simulate "$simulator"
regsvr32 "$library"
snapshot plain_again
diff "$work/plain" "$work/plain_again" >"$work/difference" || complain "registering without the word left: $(head "$work/difference")"
"$emulator" "$folder/doctor.exe" >"$work/doctor" || true
grep -q '^cscript  *warn .*64-bit' "$work/doctor" || complain "the doctor does not warn: $(cat "$work/doctor")"
regsvr32 /n /i:surrogate "$library"
regsvr32 /u "$library"
snapshot after
diff "$work/before" "$work/after" >"$work/difference" || complain "unregistering left: $(head "$work/difference")"
exit "$failed"
