#!/usr/bin/env bash
# Runs a script under a copy of the system's cscript whose manifest gives it the library, the simulator and the stand-in.
#
#   stand_in_script.sh FOLDER_OF_THE_DLLS SCRIPT.vbs PREFIX EMULATOR...
#
# PREFIX is "usual", the one of all tests, or "day-month-year": a prefix of its own, whose user writes 31/12/2008 and
# 1.234,5. The usual one must not be changed: other tests run in it at the same time.

set -euo pipefail
folder=$1 script=$2 prefix=$3
emulator=("${@:4}")
cd -- "$folder"

# A program that is started under another locale than the one before rewrites the user's regional settings.
export LC_ALL=C

if [[ $prefix == day-month-year ]]; then
  export WENDRILL_WINEPREFIX=${folder%/*}/wineprefix-day-month-year
  trap '"${emulator[@]}" --stop' EXIT
  set_value() { "${emulator[@]}" reg add 'HKCU\Control Panel\International' /v "$1" /t REG_SZ /d "$2" /f >/dev/null; }
  set_value sDecimal ,
  set_value sThousand .
  set_value sShortDate dd/MM/yyyy
  set_value iDate 1
fi

host=cscript_$prefix.exe
"${emulator[@]}" cmd /c "copy /y C:\\windows\\system32\\cscript.exe $host >nul"
"${emulator[@]}" "./$host" //nologo "Z:${script//\//\\}"
