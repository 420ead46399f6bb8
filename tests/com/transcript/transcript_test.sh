#!/usr/bin/env bash
# Writes transcripts as a person does, and looks at them. One test per function whose name begins with "test_":
#
#   transcript_test.sh CLONE --list
#   transcript_test.sh CLONE TEST

set -euo pipefail
clone=$1
wanted=$2
# shellcheck source=tests/com/support/calls.sh
source "$clone/tests/com/support/calls.sh"

expect_gone() {
  if [[ -e $1 ]]; then
    echo "$1 is still there"
    exit 1
  fi
}

test_of_the_main_sample() {
  expect 0 run --transcript run.html "$clone/samples/vbscript/read_pnr.vbs" \
    --scenario "$clone/simulator/scenarios/rich_pnr.toml"
  expect_text run.html '<h1>read_pnr.vbs</h1>'
  expect_text run.html 'rich_pnr.toml · started 20'
  expect_text run.html '<figcaption>Screen of session A</figcaption><pre>'
  expect_text run.html 'RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   RCH001'
  expect_text run.html '<code>status 0</code>'
  expect_gone run.html.jsonl
}

test_beside_a_trace_that_stays() {
  echo 'CreateObject("Wendrill23.CQuillet").SendCommand "JI"' >send.vbs
  expect 0 run --transcript run.html --trace run.jsonl --trace-time off send.vbs
  expect_text run.jsonl '"entry":"JI"'
  expect_text run.html '<code>JI</code>'
  expect_gone run.html.jsonl
}

test_of_an_uncaught_error() {
  printf 'WScript.Echo 1\nErr.Raise 2505, "Here", "it broke"\n' >broken.vbs
  expect 1 run --transcript run.html broken.vbs
  expect_text run.html '<code>it broke</code> <strong>error</strong>'
  expect_text run.html '<code>status 1</code>'
  expect_gone run.html.jsonl
}

test_of_a_script_that_quits() {
  echo 'WScript.Quit 7' >quits.vbs
  expect 7 run --transcript run.html quits.vbs
  expect_text run.html '<code>status 7</code>'
}

test_of_a_script_that_is_ended_by_its_time_limit() {
  printf 'Do\nLoop\n' >endless.vbs
  expect 124 run --transcript run.html --timeout 1 endless.vbs
  expect_text run.html 'no end after 1 s'
  expect_text run.html '<code>status 124</code>'
  expect_gone run.html.jsonl
}

test_after_a_crash_the_trace_stays_and_is_named() {
  printf 'Sub Again\n  Again\nEnd Sub\nAgain\n' >crash.vbs
  echo 'of an earlier run' >run.html
  expect 1 run --transcript run.html crash.vbs
  expect_gone run.html
  expect_text stderr.txt '"wendrill transcript" makes one of the trace, '
  expect_text stderr.txt 'run.html.jsonl'
  expect_text run.html.jsonl '"kind":"error"'
}

test_a_page_that_cannot_be_written_is_told_before_the_script_runs() {
  echo 'WScript.Echo "ran"' >echo.vbs
  expect 2 run --transcript nowhere/run.html echo.vbs
  expect_text stderr.txt 'cannot be written: '
  expect_text stderr.txt 'run.html'
  [[ ! -s stdout.txt ]] || exit 1
}

test_a_folder_of_tests_has_none() {
  mkdir tests
  expect 2 script_host --transcript run.html --tests tests
  expect_text stderr.txt '--transcript'
}

if [[ $wanted == --list ]]; then
  tests
else
  "test_$wanted"
fi
