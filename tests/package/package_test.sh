#!/usr/bin/env bash
# The installers under Wine, in a prefix of their own.
#
#   package_test.sh FOLDER
#
# FOLDER holds what script/package made, and in newer/, signed/ and broken/ the same with version 99.0.0, with a command
# that writes down what it signs (in signed/signed.txt), and with a library that cannot be registered.

# shellcheck disable=SC2317 # the tests are called by their names

set -euo pipefail
export LC_ALL=C.UTF-8
packages=$1
clone=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
export WENDRILL_WINEPREFIX=$packages/prefix
export WENDRILL_TIME_LIMIT=240
version=$(sed -n 's/^project(Wendrill23 VERSION \([0-9.]*\).*/\1/p' "$clone/CMakeLists.txt")
wine=$clone/script/wine
drive=$WENDRILL_WINEPREFIX/drive_c
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

fail() {
  echo "  $*"
  return 1
}

# install STATUS INSTALLER [SWITCHES...]: starts an installer silently, which must end with the status. A folder with blanks
# is given word by word, because the last switch of an installer takes no quotation marks.
install() {
  local wanted=$1 installer=$2 status=0
  shift 2
  rm -f -- "$work/log"
  "$wine" "$packages/$installer" /S "/LOG=$(windows_path "$work/log")" "$@" || status=$?
  [[ $status == "$wanted" ]] || { cat "$work/log"; fail "$installer $*: status $status, expected $wanted"; }
}

logged() { grep -qF -- "$1" "$work/log" || { cat "$work/log"; fail "the log does not say: $1"; }; }

# uninstall FOLDER: the uninstaller goes on as a copy of itself; the folder is gone when it is ready.
uninstall() {
  "$wine" "$1/uninstall.exe" /S
  for _ in $(seq 100); do
    [[ -e $1 ]] || { sleep 1 && return; }
    sleep 0.2
  done
  fail "$1 is still there: $(find "$1")"
}

# All keys and values, and all files and folders but the temporary ones.
snapshot() {
  "$wine" reg export HKLM\\Software "$(windows_path "$work/$1.machine")" /y >/dev/null
  "$wine" reg export HKCU\\Software "$(windows_path "$work/$1.user")" /y >/dev/null
  (cd -- "$drive" && find . -path './users/*/Temp/*' -prune -o -path './windows/temp/*' -prune -o -print | sort) >"$work/$1.files"
}

# The keys and values of an export. Removing and writing keys again may change their order. Wine keeps the colours and
# measures of windows in keys of its own, which are there once a window was made.
lines_of() {
  iconv -f UTF-16LE -t UTF-8 "$work/$1" | tr -d '\r' |
    awk '/^\[/ { own = index($0, "[HKEY_CURRENT_USER\\Software\\Wine") == 1 } NF && !own' | sort
}

expect_same() {
  local part
  for part in machine user; do
    diff <(lines_of "$1.$part") <(lines_of "$2.$part") | head -n 20 >"$work/difference" || true
    [[ ! -s $work/difference ]] || { cat "$work/difference"; fail "the registry ($part) differs"; }
  done
  diff "$work/$1.files" "$work/$2.files" || fail 'the files differ'
}

# value KEY [NAME]: a text in the registry; nothing where there is none.
value() {
  local name=(/ve)
  if (($# > 1)); then name=(/v "$2"); fi
  { "$wine" reg query "$1" "${name[@]}" 2>/dev/null || true; } | tr -d '\r' | sed -n 's/^ .*REG_[A-Z]* *//p'
}

quillet_of() { value "$1\\Software\\Classes\\CLSID\\$(value "$1\\Software\\Classes\\Wendrill23.CQuillet\\CLSID")\\InprocServer32"; }

# script_runs FOLDER: the installed script host runs an installed sample.
script_runs() {
  local printed
  printed=$("$wine" "$1/bin/script_host.exe" "$(windows_path "$1/samples/vbscript/first_light.vbs")") || fail "the sample failed: $printed"
  grep -qF 'PNR ABC123' <<<"$printed" || fail "the sample printed: $printed"
}

key=Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Wendrill23
for_all="$drive/Program Files/Wendrill23"

test_machine_installer_registers_runs_and_leaves_nothing() {
  snapshot before
  install 0 "wendrill23-$version-machine.exe"
  [[ $(quillet_of HKLM) == 'C:\Program Files\Wendrill23\bin\Wendrill23.dll' ]] || fail "registered: $(quillet_of HKLM)"
  [[ $(value "HKLM\\$key" DisplayVersion) == "$version" ]] || fail 'no version'
  printf '%s\n' 'Set queue = CreateObject("Wendrill23.CQueue")' 'WScript.Echo queue.Count' >"$work/system.vbs"
  [[ $("$wine" cscript //nologo "$(windows_path "$work/system.vbs")" | tr -d '\r') == 0 ]] || fail 'cscript finds no class'
  script_runs "$for_all"
  "$wine" "$for_all/bin/doctor.exe" --json >"$work/doctor" || true
  grep -qF '"registered for all users"' "$work/doctor" || fail 'the doctor sees no registration'
  uninstall "$for_all"
  snapshot after
  expect_same before after
}

test_user_installer_registers_runs_and_leaves_nothing() {
  snapshot before
  install 0 "wendrill23-$version-user.exe"
  local folder
  folder=$(echo "$drive"/users/*/AppData/Local/Programs/Wendrill23)
  [[ $(quillet_of HKCU) == *'\AppData\Local\Programs\Wendrill23\bin\Wendrill23.dll' ]] || fail "registered: $(quillet_of HKCU)"
  [[ -z $(quillet_of HKLM) ]] || fail 'registered for all users'
  script_runs "$folder"
  uninstall "$folder"
  snapshot after
  expect_same before after
}

test_blanks_and_other_letters_in_the_path() {
  local folder="$drive/Zürich & Málaga 日本/my tools/Wendrill 23"
  snapshot before
  install 0 "wendrill23-$version-machine.exe" '/D=C:\Zürich' '&' Málaga '日本\my' 'tools\Wendrill' 23
  logged 'installed in C:\Zürich & Málaga 日本\my tools\Wendrill 23'
  "$wine" reg export "HKLM\\$key" "$(windows_path "$work/key")" /y >/dev/null # what reg query prints has no such letters
  iconv -f UTF-16LE -t UTF-8 "$work/key" | grep -F '"InstallLocation"="C:\\Zürich & Málaga 日本\\my tools\\Wendrill 23"' >/dev/null ||
    fail 'another folder'
  script_runs "$folder"
  uninstall "$folder"
  snapshot after
  expect_same before after
}

test_without_registration() {
  snapshot before
  install 0 "wendrill23-$version-machine.exe" /NOREGISTER
  [[ -z $(quillet_of HKLM) ]] || fail 'registered all the same'
  script_runs "$for_all"
  uninstall "$for_all"
  snapshot after
  expect_same before after
}

test_newer_replaces_older_and_older_does_not_replace_newer() {
  snapshot before
  install 0 "wendrill23-$version-machine.exe"
  echo mine >"$for_all/mine.txt"
  install 0 newer/wendrill23-99.0.0-machine.exe
  logged "removing version $version from C:\\Program Files\\Wendrill23"
  [[ $(value "HKLM\\$key" DisplayVersion) == 99.0.0 ]] || fail 'the version stayed'
  [[ $(cat "$for_all/mine.txt") == mine ]] || fail "the user's own file is gone"
  script_runs "$for_all"
  snapshot newer
  install 5 "wendrill23-$version-machine.exe"
  logged 'Version 99.0.0, which is newer, is installed in C:\Program Files\Wendrill23'
  snapshot after
  expect_same newer after
  rm "$for_all/mine.txt"
  uninstall "$for_all"
  snapshot after
  expect_same before after
}

test_an_upgrade_may_move_to_another_folder() {
  snapshot before
  install 0 "wendrill23-$version-machine.exe"
  install 0 newer/wendrill23-99.0.0-machine.exe '/D=C:\moved' here
  [[ ! -e $for_all ]] || fail 'the old folder is still there'
  [[ $(quillet_of HKLM) == 'C:\moved here\bin\Wendrill23.dll' ]] || fail "registered: $(quillet_of HKLM)"
  uninstall "$drive/moved here"
  snapshot after
  expect_same before after
}

test_a_dll_in_use_stays_and_works() {
  local script=$work/long.vbs user
  install 0 "wendrill23-$version-machine.exe"
  snapshot before
  printf '%s\n' 'Set q = CreateObject("Wendrill23.CQuillet")' "CreateObject(\"Scripting.FileSystemObject\").CreateTextFile \"$(windows_path "$work/started")\"" \
    'Do Until CreateObject("Scripting.FileSystemObject").FileExists("'"$(windows_path "$work/go")"'"): WScript.Sleep 200: Loop' 'WScript.Echo q.SendCommand("AN15JUNPARLON")' >"$script"
  "$wine" "$for_all/bin/script_host.exe" "$(windows_path "$script")" >"$work/long" 2>&1 &
  user=$!
  for _ in $(seq 100); do
    if [[ -e $work/started ]]; then break; fi
    sleep 0.2
  done
  [[ -e $work/started ]] || fail "the script did not start: $(cat "$work/long")"
  install 4 newer/wendrill23-99.0.0-machine.exe
  logged 'A program uses C:\Program Files\Wendrill23\bin'
  local status=0
  "$wine" "$for_all/uninstall.exe" /S '_?=C:\Program' 'Files\Wendrill23' || status=$?
  [[ $status == 4 ]] || fail "the uninstaller: status $status"
  snapshot after
  expect_same before after
  touch "$work/go"
  wait "$user" || fail 'the script failed'
  [[ -s $work/long ]] || fail 'the script got no answer'
  uninstall "$for_all"
}

test_each_kind_refuses_beside_the_other() {
  install 0 "wendrill23-$version-machine.exe"
  snapshot before
  install 6 "wendrill23-$version-user.exe"
  logged 'is installed for all users already, in C:\Program Files\Wendrill23.'
  snapshot after
  expect_same before after
  uninstall "$for_all"
  install 0 "wendrill23-$version-user.exe"
  install 6 "wendrill23-$version-machine.exe"
  logged 'is installed for this user already'
  uninstall "$(echo "$drive"/users/*/AppData/Local/Programs/Wendrill23)"
}

test_a_failing_registration_is_taken_back() {
  snapshot before
  "$wine" reg add 'HKLM\Software\Classes\Wendrill23.CQueue\CLSID' /ve /d '{11111111-2222-3333-4444-555555555555}' /f >/dev/null
  install 3 "wendrill23-$version-machine.exe"
  logged 'The name Wendrill23.CQueue belongs to another server already: {11111111-2222-3333-4444-555555555555}'
  "$wine" reg delete 'HKLM\Software\Classes\Wendrill23.CQueue' /f >/dev/null
  snapshot after
  expect_same before after
}

test_a_failing_upgrade_puts_the_old_version_back() {
  install 0 "wendrill23-$version-machine.exe" '/D=C:\here'
  snapshot before
  install 3 broken/wendrill23-99.0.0-machine.exe
  snapshot after
  expect_same before after
  cmp "$drive/here/bin/Wendrill23.dll" "$clone/build/win32/bin/Wendrill23.dll"
  script_runs "$drive/here"
  uninstall "$drive/here"
}

test_zip_and_installation_hold_the_same_files() {
  install 0 "wendrill23-$version-machine.exe"
  (cd -- "$for_all" && find . -type f ! -name uninstall.exe -printf '%P\n' | sort) >"$work/installed"
  python3 -c 'import sys, zipfile; print("\n".join(sorted(zipfile.ZipFile(sys.argv[1]).namelist())))' \
    "$packages/wendrill23-$version.zip" | sort >"$work/zipped"
  diff "$work/installed" "$work/zipped"
  local folder
  for folder in bin samples scenarios docs regfree; do
    grep -q "^$folder/" "$work/zipped" || fail "nothing in $folder"
  done
  grep -qx docs/pages/index.html "$work/zipped" || fail 'no pages of the reference'
  uninstall "$for_all"
}

test_every_executable_is_signed_once() {
  local expected=$work/expected
  printf '%s\n' "wendrill23-$version-machine.exe" "wendrill23-$version-user.exe" >"$expected"
  python3 -c 'import sys, zipfile; print("\n".join(zipfile.ZipFile(sys.argv[1]).namelist()))' \
    "$packages/wendrill23-$version.zip" | grep -E '\.(exe|dll)$' | sed 's|.*/||' >>"$expected"
  printf 'an uninstaller\nan uninstaller\n' >>"$expected"
  # The uninstallers have temporary names then.
  sed 's|.*/||; /^wendrill23-/b; /\.\(exe\|dll\)$/b; s/.*/an uninstaller/' "$packages/signed/signed.txt" | sort |
    diff <(sort "$expected") -
}

test_two_builds_are_equal() {
  local file
  for file in "wendrill23-$version-user.exe" "wendrill23-$version-machine.exe" "wendrill23-$version.zip" "wendrill23-$version-symbols.zip"; do
    cmp "$packages/$file" "$packages/again/$file"
  done
}

test_every_executable_says_its_version() {
  local file
  python3 -m zipfile -e "$packages/wendrill23-$version.zip" "$work/zip"
  for file in "$work"/zip/bin/* "$packages/wendrill23-$version"-{user,machine}.exe; do
    # A text of UTF-16, where the name is followed by a zero and its value.
    strings -el "$file" | grep -A 1 '^FileVersion$' | grep -qxF "$version" || fail "$file does not say $version"
  done
}

# The oldest Windows that is named in docs/install.md is 7: its functions and no others are imported, and the loader of an
# older one refuses the files, whose subsystem is 6.1.
test_imports_are_those_of_windows_7() {
  local file headers wanted
  python3 -m zipfile -e "$packages/wendrill23-$version.zip" "$work/zip"
  for file in "$work"/zip/bin/*; do
    headers=$(i686-w64-mingw32-objdump -p "$file")
    awk '/DLL Name:/ { dll = $3 } dll && /^\t[0-9a-f]+\t *[0-9]+  / { print dll, $3 }' <<<"$headers" >>"$work/imports"
    for wanted in 'MajorSubsystemVersion[[:space:]]*6$' 'MinorSubsystemVersion[[:space:]]*1$' DYNAMIC_BASE NX_COMPAT NO_SEH \
      'Time/Date[[:space:]]*Thu Jan  1 00:00:00 1970'; do
      grep -q "$wanted" <<<"$headers" || fail "$(basename -- "$file") has no $wanted"
    done
    [[ -z $(i686-w64-mingw32-nm "$file" 2>/dev/null) ]] || fail "$file has symbols in it"
  done
  sort -u "$work/imports" >"$work/imported"
  [[ $(wc -l <"$work/imported") -gt 100 ]] || fail 'no imports were found'
  grep -v '^#' "$clone/tests/package/imports_of_windows_7.txt" | sort -u | comm -13 - "$work/imported" >"$work/unknown"
  [[ ! -s $work/unknown ]] || fail "not in imports_of_windows_7.txt: $(cat "$work/unknown")"
}

# What somebody does who was sent "Wendrill23.dll+0x1234".
test_symbols_name_the_function_of_an_address() {
  local address
  python3 -m zipfile -e "$packages/wendrill23-$version-symbols.zip" "$work/symbols"
  address=$(i686-w64-mingw32-nm "$work/symbols/Wendrill23.dll.debug" | awk '$3 ~ /^_DllCanUnloadNow/ && !found { print $1; found = 1 }')
  [[ -n $address ]] || fail 'the symbols have no DllCanUnloadNow'
  i686-w64-mingw32-addr2line -f -e "$work/symbols/Wendrill23.dll.debug" "0x$address" >"$work/line"
  [[ $(tr '\n' ' ' <"$work/line") == *DllCanUnloadNow*src/com/server/exports.cpp* ]] || fail "$(cat "$work/line")"
}

# What the first person with a Windows types. Wine's powershell.exe does nothing, which must not pass.
test_the_first_windows_run_passes_but_for_powershell() {
  local folder=$drive/first status=0
  snapshot before
  mkdir -p "$folder"
  cp "$packages/wendrill23-$version"-{user,machine}.exe "$packages/first-windows-run.cmd" "$folder"
  "$wine" cmd /c 'C:\first\first-windows-run.cmd' >"$work/table" 2>&1 || status=$?
  mv "$folder/first-windows-run.log" "$work/first.log"
  rm -r "$folder"
  tr -d '\r' <"$work/table" | grep -E '^(pass|FAIL|skipped) ' >"$work/rows" || true
  diff - "$work/rows" <<'END' || { cat "$work/table" "$work/first.log"; fail "status $status"; }
pass     "user: installs"
pass     "user: is registered"
pass     "user: a script runs without registration"
pass     "user: the doctor sees the registration"
pass     "user: the doctor reads a manifest"
pass     "user: uninstalling leaves no folder and no class"
pass     "machine: installs"
pass     "machine: is registered, 32-bit view"
pass     "machine: VBScript"
FAIL     "machine: PowerShell, 32-bit"
pass     "machine: the doctor creates objects"
skipped  "machine: 64-bit programs", "this is a 32-bit Windows"
skipped  "machine: VBA", "by hand: see docs\first-windows-run.md"
pass     "machine: uninstalling leaves no folder and no class"
END
  [[ $status == 1 ]] || fail "status $status"
  snapshot after
  expect_same before after
}

# Every user of Windows has these keys; Wine makes them when they are first needed. The first script that runs writes to the
# registry, too.
prepare() {
  "$wine" --start
  local name
  for name in Classes Microsoft\\Windows\\CurrentVersion\\Uninstall; do "$wine" reg add "HKCU\\Software\\$name" /f >/dev/null; done
  "$wine" reg add 'HKCU\Software\Classes' /v kept /d by-the-test /f >/dev/null
  "$wine" reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall' /v kept /d by-the-test /f >/dev/null
}

# What a failed test has left installed.
clean_up() {
  local found
  "$wine" reg delete 'HKLM\Software\Classes\Wendrill23.CQueue' /f >/dev/null 2>&1 || true
  while IFS= read -r -d '' found; do
    "$wine" "$found" /S
    sleep 5
  done < <(find "$drive" -name uninstall.exe -path '*endrill*' -print0 -o -path '*/here/uninstall.exe' -print0)
}

if [[ ${2:-} == --run ]]; then
  "test_$3"
  exit
fi
failed=0
prepare
tests=("${@:2}")
if ((${#tests[@]} == 0)); then mapfile -t tests < <(declare -F | sed -n 's/^declare -f test_//p'); fi
for name in "${tests[@]}"; do
  # A process of its own, in which a failing line ends the test.
  status=0
  "$0" "$packages" --run "$name" || status=$?
  if ((status == 0)); then echo "passed $name"; else echo "FAILED $name" && failed=1 && clean_up; fi
done
"$wine" --stop
exit "$failed"
