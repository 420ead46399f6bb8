#!/usr/bin/env bash
# Runs a script under script_host, or a program, and compares what it prints and returns with what a file expects.
#
#   run_script.sh EXPECTED.txt PROGRAM.exe [EMULATOR...]
#
# The file has one of these on each line, and nothing else:
#   call: WORD|WORD...   what the program is called with; without it the .vbs or .js file of the same name
#   arguments: WORD|...  instead of "call", for an expectation that several scripts or programs share: what the script
#                        named by WENDRILL_SCRIPT, or without one the program, is called with
#   env: NAME=VALUE      a variable of the environment
#   status: NUMBER       the exit status
#   stdout: TEXT         one line of standard output, in order; all lines must be there
#   stderr: TEXT         likewise
#   report: TEXT         one line of the report that the script host, and no other program, prints at the end to stderr
# The words are relative to the file's folder, which is the working folder. With WENDRILL_SHARED=1 the file is shared,
# and there may be neither line.

set -euo pipefail
export LC_ALL=C.UTF-8

expected=$1
shift
host=("${@:2}" "$1")
name=$(basename -- "$expected" .txt)
cd -- "$(dirname -- "$expected")"

call=()
shared=${WENDRILL_SHARED:-}
if [[ -n ${WENDRILL_SCRIPT:-} ]]; then call=("$WENDRILL_SCRIPT"); fi
status=
stdout=
stderr=
while IFS= read -r line || [[ -n $line ]]; do
  case $line in
    'call: '*) IFS='|' read -r -a call <<<"${line#call: }" ;;
    'arguments: '*) IFS='|' read -r -a words <<<"${line#arguments: }" && call+=("${words[@]}") ;;
    'env: '*) export "${line#env: }" ;;
    'status: '*) status=${line#status: } ;;
    'stdout: '*) stdout+=${line#stdout: }$'\n' ;;
    'stderr: '*) stderr+=${line#stderr: }$'\n' ;;
    'report: '*) if [[ ${host[-1]} == */script_host.exe ]]; then stderr+=${line#report: }$'\n'; fi ;;
    *) echo "$expected: not understood: $line" && exit 2 ;;
  esac
done <"$name.txt"
[[ -n $status ]] || { echo "$expected: no status is expected" && exit 2; }
if ((${#call[@]} == 0)) && [[ -z $shared ]]; then
  script=("$name".[vj]*s)
  call=("${script[0]}")
fi

printed=$(mktemp -d)
trap 'rm -rf -- "$printed"' EXIT
returned=0
"${host[@]}" "${call[@]}" >"$printed/stdout" 2>"$printed/stderr" </dev/null || returned=$?

# The script host writes line feeds; a program of its own kind may write what it likes.
strip=()
[[ ${host[-1]} == */script_host.exe ]] || strip=(--strip-trailing-cr)
failed=no
for stream in stdout stderr; do
  if ! diff -u --label "expected $stream" --label "printed to $stream" "${strip[@]}" \
    <(printf '%s' "${!stream}") "$printed/$stream"; then
    failed=yes
  fi
done
if [[ $returned != "$status" ]]; then
  echo "expected status $status, returned $returned"
  failed=yes
fi
[[ $failed == no ]]
