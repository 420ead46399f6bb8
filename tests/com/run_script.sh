#!/usr/bin/env bash
# Runs a script under script_host and compares what it prints and returns with what a file expects.
#
#   run_script.sh EXPECTED.txt SCRIPT_HOST.exe [EMULATOR...]
#
# The file has one of these on each line, and nothing else:
#   call: WORD|WORD...   what script_host is called with; without it the .vbs or .js file of the same name
#   status: NUMBER       the exit status
#   stdout: TEXT         one line of standard output, in order; all lines must be there
#   stderr: TEXT         likewise
# The words are relative to the file's folder, which is the working folder.

set -euo pipefail
export LC_ALL=C.UTF-8

expected=$1
shift
host=("${@:2}" "$1")
name=$(basename -- "$expected" .txt)
cd -- "$(dirname -- "$expected")"

call=()
status=
stdout=
stderr=
while IFS= read -r line || [[ -n $line ]]; do
  case $line in
    'call: '*) IFS='|' read -r -a call <<<"${line#call: }" ;;
    'status: '*) status=${line#status: } ;;
    'stdout: '*) stdout+=${line#stdout: }$'\n' ;;
    'stderr: '*) stderr+=${line#stderr: }$'\n' ;;
    *) echo "$expected: not understood: $line" && exit 2 ;;
  esac
done <"$name.txt"
[[ -n $status ]] || { echo "$expected: no status is expected" && exit 2; }
if ((${#call[@]} == 0)); then
  script=("$name".[vj]*s)
  call=("${script[0]}")
fi

printed=$(mktemp -d)
trap 'rm -rf -- "$printed"' EXIT
returned=0
"${host[@]}" "${call[@]}" >"$printed/stdout" 2>"$printed/stderr" </dev/null || returned=$?

failed=no
for stream in stdout stderr; do
  if ! diff -u --label "expected $stream" --label "printed to $stream" --strip-trailing-cr \
    <(printf '%s' "${!stream}") "$printed/$stream"; then
    failed=yes
  fi
done
if [[ $returned != "$status" ]]; then
  echo "expected status $status, returned $returned"
  failed=yes
fi
[[ $failed == no ]]
