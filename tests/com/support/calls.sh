# shellcheck shell=bash
# Sourced by tests that call script/run as a person does, in a folder of their own outside the clone. They set `clone`.

# shellcheck source=script/lib.sh
source "$clone/script/lib.sh"
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
cd "$folder" || exit
unset QUILLET_SCENARIO QUILLET_TRACE QUILLET_TRACE_TIME QUILLET_KEEP QUILLET_RECORD QUILLET_RECORD_PNR QUILLET_RECORD_BEHIND

# expect STATUS COMMAND...: runs it; what it prints is in stdout.txt and stderr.txt afterwards.
expect() {
  local status=$1 returned=0
  shift
  "$@" >stdout.txt 2>stderr.txt || returned=$?
  if [[ $returned != "$status" ]]; then
    printf 'call: %s\nexpected status %s, returned %s\n' "$*" "$status" "$returned"
    cat stdout.txt stderr.txt
    exit 1
  fi
}

run() { "$clone/script/run" "$@"; }
script_host() { "$clone/script/wine" "$build/win32/bin/script_host.exe" "$@"; }

# expect_text FILE TEXT
expect_text() {
  if ! grep -qF -- "$2" "$1"; then
    printf 'expected in %s: %s\nthere is:\n' "$1" "$2"
    tail -c 4000 "$1"
    exit 1
  fi
}

# The names of the tests: of the functions that begin with "test_".
tests() { declare -F | sed -n 's/^declare -f test_//p'; }
