#!/usr/bin/env bash
# The doctor's switches, in a prefix in which nothing is registered.
#
#   command_line_test.sh FOLDER_OF_THE_DLLS EMULATOR

set -euo pipefail
folder=$1 emulator=$2
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
failed=0

# expect STATUS PATTERN ARGUMENTS...: the doctor ends with the status and prints a line that matches.
expect() {
  local wanted=$1 pattern=$2 status=0 printed
  shift 2
  printed=$("$emulator" "$folder/doctor.exe" "$@" 2>&1) || status=$?
  if [[ $status != "$wanted" ]] || ! grep -qE -- "$pattern" <<<"$printed"; then
    printf 'doctor %s: status %s, printed:\n%s\n' "$*" "$status" "$printed"
    failed=1
  fi
}

version=$(sed -n 's/^project(Wendrill23 VERSION \([0-9.]*\).*/\1/p' "$here/../../../CMakeLists.txt")
expect 0 "^doctor $version.?$" --version
expect 0 'It changes nothing' --help
expect 3 'unknown argument: --jsn' --jsn
expect 3 '--exe needs a program' --exe
expect 2 '^ +"state": "missing",?.?$' --json
expect 2 'Wendrill23.CQuillet +missing|library +missing' --create
expect 2 'script_host.exe, 32-bit' --exe "Z:${folder//\//\\}\\script_host.exe"
expect 2 'does not name the library' --exe "Z:${folder//\//\\}\\script_host.exe"
expect 2 'C:\\nowhere.exe, not there' --exe 'C:\nowhere.exe'
if command -v python3 >/dev/null; then
  { "$emulator" "$folder/doctor.exe" --json || true; } | python3 -c '
import json, sys
report = json.load(sys.stdin)
assert report["status"] == 2, report["status"]
for check in report["checks"]:
    assert list(check) == ["check", "found", "state", "what_to_do"], check
    assert check["state"] in ("ok", "warn", "missing"), check
    assert (check["what_to_do"] == "") == (check["state"] == "ok"), check' || failed=1
fi
exit "$failed"
