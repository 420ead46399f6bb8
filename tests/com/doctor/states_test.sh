#!/usr/bin/env bash
# Prepares the Wine prefix of WENDRILL_WINEPREFIX for a state, lets the doctor look at it, and compares its table with
# states/STATE.txt. What was prepared is removed, and the doctor must have changed nothing.
#
#   states_test.sh FOLDER_OF_THE_DLLS EMULATOR STATE...

# shellcheck disable=SC2317 # the states are prepared by their names

set -euo pipefail
export LC_ALL=C.UTF-8
folder=$1 emulator=$2
shift 2
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
"$emulator" --start
drive=$WENDRILL_WINEPREFIX/drive_c
work=$(mktemp -d)

windows_path() { printf 'Z:%s' "${1//\//\\}"; }
bin=$(windows_path "$folder")
regsvr32() { "$emulator" regsvr32 /s "$@"; }

# import FILE: registry contents from standard input.
import() {
  { printf 'REGEDIT4\r\n\r\n' && sed 's/$/\r/'; } >"$work/import.reg"
  "$emulator" regedit /S "$(windows_path "$work/import.reg")"
}

names=(kzuHostToolKit.HostSessionList kzuHostToolKit.HostSession szuPNR.PNR wzuScriptHelper.AlarmManager
  Pellorin.ParamBag Pellorin.TextHelper)

classes='HKEY_LOCAL_MACHINE\Software\Classes'

foreign_id() { printf '{%08d-0000-0000-0000-000000000000}' "$1"; }

# Components of a terminal: classes that no simulator has, served by the DLL of this name in C:\Quillet.
install_terminal() {
  local number=0 name
  for name in "${names[@]}"; do
    number=$((number + 1))
    printf '[%s\\%s\\CLSID]\n@="%s"\n' "$classes" "$name" "$(foreign_id "$number")"
    printf '[%s\\CLSID\\%s\\InprocServer32]\n@="C:\\\\Quillet\\\\%s"\n' "$classes" "$(foreign_id "$number")" "$1"
  done | import
}

remove_terminal() {
  local number=0 name
  for name in "${names[@]}"; do
    number=$((number + 1))
    printf '[-%s\\%s]\n[-%s\\CLSID\\%s]\n' "$classes" "$name" "$classes" "$(foreign_id "$number")"
  done | import
}

foreign_dll() { mkdir -p "$drive/Quillet" && cp "$folder/$1" "$drive/Quillet/$2"; }

prepare_nothing_registered() { :; }
prepare_user_only() { regsvr32 /n /i:user "$bin\\Wendrill23.dll"; }
prepare_machine_only() { regsvr32 "$bin\\Wendrill23.dll"; }
prepare_both() { prepare_user_only && prepare_machine_only; }
prepare_wrong_path() {
  mkdir -p "$drive/gone"
  cp "$folder/Wendrill23.dll" "$drive/gone/"
  regsvr32 'C:\gone\Wendrill23.dll'
  rm "$drive/gone/Wendrill23.dll"
}
# A file with the head of a 64-bit program; this prefix cannot run any.
prepare_association_64_bit() {
  mkdir -p "$drive/host64"
  { printf 'MZ' && head -c 58 /dev/zero && printf '\x40\0\0\0PE\0\0\x64\x86' && head -c 300 /dev/zero; } \
    >"$drive/host64/wscript.exe"
  import <<'END'
[HKEY_CURRENT_USER\Software\Classes\.vbs]
@="VBS64"
[HKEY_CURRENT_USER\Software\Classes\VBS64\Shell\Open\Command]
@="\"C:\\host64\\wscript.exe\" \"%1\" %*"
END
}
prepare_simulator_in_disguise() { foreign_dll QuilletSimulator.dll toolkit.dll && install_terminal toolkit.dll; }
prepare_mixture() {
  foreign_dll Wendrill23.dll terminal.dll
  install_terminal terminal.dll
  import <<'END'
[-HKEY_LOCAL_MACHINE\Software\Classes\Pellorin.ParamBag]
[-HKEY_LOCAL_MACHINE\Software\Classes\Pellorin.TextHelper]
[HKEY_LOCAL_MACHINE\Software\Classes\Pellorin.ParamBag\CLSID]
@="{584A4907-1879-4236-8AF8-485A819BF8D5}"
[HKEY_LOCAL_MACHINE\Software\Classes\Pellorin.TextHelper\CLSID]
@="{72ECC1F3-5690-437D-98A8-A1F81FD9E93F}"
END
  import <<END
[HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{584A4907-1879-4236-8AF8-485A819BF8D5}\\InprocServer32]
@="${bin//\\/\\\\}\\\\QuilletSimulator.dll"
[HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{72ECC1F3-5690-437D-98A8-A1F81FD9E93F}\\InprocServer32]
@="${bin//\\/\\\\}\\\\QuilletSimulator.dll"
END
}

remove_everything() {
  regsvr32 /u "$bin\\Wendrill23.dll"
  regsvr32 /u /n /i:user "$bin\\Wendrill23.dll"
  if [[ -d $drive/gone ]]; then cp "$folder/Wendrill23.dll" "$drive/gone/" && regsvr32 /u 'C:\gone\Wendrill23.dll'; fi
  remove_terminal
  import <<'END'
[-HKEY_CURRENT_USER\Software\Classes\.vbs]
[-HKEY_CURRENT_USER\Software\Classes\VBS64]
[-HKEY_LOCAL_MACHINE\Software\Classes\CLSID\{584A4907-1879-4236-8AF8-485A819BF8D5}]
[-HKEY_LOCAL_MACHINE\Software\Classes\CLSID\{72ECC1F3-5690-437D-98A8-A1F81FD9E93F}]
END
  rm -rf "${drive:?}/gone" "$drive/host64" "$drive/Quillet"
}
trap 'remove_everything; rm -rf -- "$work"' EXIT

# What differs from one machine to another gets a name of its own.
without_this_machine() {
  sed -e 's/Wine [0-9].* as Windows [0-9.]*/WINE/' -e 's/32-bit, as administrator$/32-bit/' -e "s|${bin//\\/\\\\}|BIN|g" \
    -e 's/C:\\windows\\system32/C:\\windows\\system32/I' -e 's/\r$//'
}

export_classes() {
  "$emulator" reg export 'HKEY_LOCAL_MACHINE\Software\Classes' "$(windows_path "$work/$1.machine")" /y >/dev/null
  "$emulator" reg export 'HKEY_CURRENT_USER\Software' "$(windows_path "$work/$1.user")" /y >/dev/null
}

# The exit status that a table's closing line asks for.
status_of() {
  case $(tail -n 1 "$1") in
    '0 things are missing, 0 warnings.') echo 0 ;;
    '0 things are missing, '*) echo 1 ;;
    *) echo 2 ;;
  esac
}


remove_everything
failed=0
for state in "$@"; do
  "prepare_$state"
  export_classes before
  status=0
  "$emulator" "$folder/doctor.exe" >"$work/table" || status=$?
  export_classes after
  without_this_machine <"$work/table" >"$work/found"
  diff -u --label "states/$state.txt" --label "the doctor's table" "$here/states/$state.txt" "$work/found" || failed=1
  if [[ $status != "$(status_of "$here/states/$state.txt")" ]]; then echo "$state: exit status $status" && failed=1; fi
  cmp "$work/before.machine" "$work/after.machine" && cmp "$work/before.user" "$work/after.user" || failed=1
  remove_everything
done
exit "$failed"
