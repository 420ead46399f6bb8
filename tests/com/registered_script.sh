#!/usr/bin/env bash
# Registers both DLLs with regsvr32, runs a script under the system's own cscript, which finds the classes through the
# registry alone, and takes the registration back.
#
#   registered_script.sh FOLDER_OF_THE_DLLS SCRIPT.vbs EXPECTED_TEXT EMULATOR...

set -euo pipefail
folder=$1 script=$2 expected=$3
emulator=("${@:4}")
cd -- "$folder"

unregister() {
  "${emulator[@]}" regsvr32 /s /u Wendrill23.dll
  "${emulator[@]}" regsvr32 /s /u /n /i:simulate QuilletSimulator.dll
}
unregister
"${emulator[@]}" regsvr32 /s Wendrill23.dll
"${emulator[@]}" regsvr32 /s /n /i:simulate QuilletSimulator.dll
printed=$("${emulator[@]}" cscript //nologo "Z:${script//\//\\}") || { unregister; exit 1; }
unregister
after=$("${emulator[@]}" cscript //nologo "Z:${script//\//\\}" || true)

grep -qF -- "$expected" <<<"$printed" || { echo "registered, the script printed: $printed"; exit 1; }
if grep -qF -- "$expected" <<<"$after"; then
  echo "unregistered, the script still found the classes"
  exit 1
fi
echo "registered, run and unregistered"
