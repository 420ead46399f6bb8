#!/usr/bin/env bash
# Calls script/run as a person does. One test per function whose name begins with "test_":
#
#   script_run_test.sh CLONE --list
#   script_run_test.sh CLONE TEST

set -euo pipefail
clone=$1
wanted=$2
folder=$(mktemp -d) # outside the clone
trap 'rm -rf -- "$folder"' EXIT
cd "$folder"
unset QUILLET_SCENARIO

# expect STATUS STDOUT COMMAND...: runs it; what it prints to stderr is in stderr.txt afterwards.
expect() {
  local status=$1 stdout=$2 returned=0 printed
  shift 2
  printed=$("$@" 2>stderr.txt | tr -d '\r'; exit "${PIPESTATUS[0]}") || returned=$?
  if [[ $returned != "$status" || $printed != "$stdout" ]]; then
    printf 'call: %s\nexpected status %s and\n%s\nreturned %s and\n%s\nstderr:\n' "$*" "$status" "$stdout" "$returned" "$printed"
    cat stderr.txt
    exit 1
  fi
}

expect_stderr() {
  if ! grep -qF -- "$1" stderr.txt; then
    printf 'expected on stderr: %s\nprinted:\n' "$1"
    cat stderr.txt
    exit 1
  fi
}

one_session() { printf '[[session]]\nname = "%s"\n' "$1"; }

print_sessions='Set quillet = CreateObject("Wendrill23.CQuillet")
WScript.Echo quillet.GetSessionList'

test_script_and_scenario_outside_the_clone() {
  echo "$print_sessions" >sessions.vbs
  one_session OUTSIDE >outside.toml
  expect 0 OUTSIDE "$clone/script/run" "$folder/sessions.vbs" --scenario "$folder/outside.toml"
}

test_scenario_in_front_of_the_script() {
  echo "$print_sessions" >sessions.vbs
  one_session OUTSIDE >outside.toml
  expect 0 OUTSIDE "$clone/script/run" --scenario outside.toml sessions.vbs
}

test_relative_paths_and_blanks_in_names() {
  mkdir 'my scripts' 'my scripts/deeper'
  echo "$print_sessions" >'my scripts/all sessions.vbs'
  one_session BLANK >'my scripts/a scenario.toml'
  cd 'my scripts/deeper'
  expect 0 BLANK "$clone/script/run" '../all sessions.vbs' --scenario '../a scenario.toml'
}

test_letters_beyond_ascii() {
  echo 'WScript.Echo WScript.ScriptName, WScript.Arguments(0)' >'Zürich.vbs'
  expect 0 'Zürich.vbs Málaga' "$clone/script/run" 'Zürich.vbs' Málaga
}

test_scenario_of_the_environment() {
  echo "$print_sessions" >sessions.vbs
  one_session ENVIRONMENT >environment.toml
  QUILLET_SCENARIO=environment.toml expect 0 ENVIRONMENT "$clone/script/run" sessions.vbs
}

test_arguments_reach_the_script() {
  echo 'For Each word In WScript.Arguments
    WScript.Echo "<" & word & ">"
  Next' >words.vbs
  expect 0 $'<one>\n<two words>\n<--scenario>\n<--help>' "$clone/script/run" words.vbs one 'two words' --scenario --help
}

test_exit_status_is_the_scripts() {
  echo 'WScript.Quit(7);' >leave.js
  expect 7 '' "$clone/script/run" leave.js
}

test_syntax_error_is_no_success() {
  printf 'WScript.Echo "never"\nIf Then\n' >broken.vbs
  expect 1 '' "$clone/script/run" broken.vbs
  expect_stderr 'broken.vbs(2, '
}

test_uncaught_error_is_no_success() {
  printf 'WScript.Echo "before"\nErr.Raise 2505, "Here", "it broke"\n' >failing.vbs
  expect 1 before "$clone/script/run" failing.vbs
  expect_stderr 'failing.vbs(2, 1) Here: it broke (2505)'
}

test_missing_script_is_named() {
  expect 2 '' "$clone/script/run" nowhere.vbs
  expect_stderr 'script file not found: nowhere.vbs'
}

test_missing_scenario_is_named() {
  echo "$print_sessions" >sessions.vbs
  expect 2 '' "$clone/script/run" sessions.vbs --scenario nowhere.toml
  expect_stderr 'scenario file not found: nowhere.toml'
}

test_broken_scenario_is_named() {
  echo "$print_sessions" >sessions.vbs
  printf '[[session]]\nnam = "A"\n' >broken.toml
  expect 2 '' "$clone/script/run" sessions.vbs --scenario broken.toml
  expect_stderr 'broken.toml, line 2: unknown key "nam" in [[session]]'
}

tests() { declare -F | sed -n 's/^declare -f test_//p'; }

if [[ $wanted == --list ]]; then
  tests
else
  "test_$wanted"
fi
