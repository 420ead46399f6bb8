#!/usr/bin/env bash
# Writes traces as a person does, and looks at them. One test per function whose name begins with "test_":
#
#   trace_test.sh CLONE PROGRAM.exe --list
#   trace_test.sh CLONE PROGRAM.exe TEST
#
# PROGRAM.exe uses the library beside the simulator and knows nothing of a trace. Every line of every trace that a test
# leaves is validated at its end.

set -euo pipefail
clone=$1
program=$2
wanted=$3
# shellcheck source=tests/com/support/calls.sh
source "$clone/tests/com/support/calls.sh"

read_pnr=("$clone/samples/vbscript/read_pnr.vbs" --scenario "$clone/simulator/scenarios/rich_pnr.toml")

# expect_last FILE LINE...: the last lines of a trace without times, but for their numbers.
expect_last() {
  local file=$1
  shift
  if ! diff -u --label expected --label written <(printf '%s\n' "$@") \
    <(tail -n "$#" "$file" | sed -E 's/^\{"t":0,"n":[0-9]+,/{/'); then exit 1; fi
}

counts_of_nothing='"sent":0,"unanswered":0,"calls":0,"expectations":0,"failed":0,"findings":0'

test_of_the_main_sample() {
  expect 0 run --trace run.jsonl "${read_pnr[@]}"
  expect_text run.jsonl '"script":"read_pnr.vbs","scenario":"rich_pnr.toml","started":"20'
  expect_text run.jsonl '"kind":"retrieve","session":"A","on_display":true,"found":true,"locator":"RCH001","screen":["--- TST AXR ---  '
  expect_text run.jsonl '"kind":"end","status":0,'
}

test_personal_data_is_hidden() {
  cat >names.vbs <<'END'
Set quillet = CreateObject("Wendrill23.CQuillet")
quillet.RetrieveCurrent
quillet.SendCommand "NM1BARTHOLOMEW/AGATHA MRS"
quillet.SendCommand "RM WHEELCHAIR FOR SMITH;AP PAR 0612345678"
quillet.SendCommand "FPCC4111111111111111/1226"
CreateObject("QuilletSimulator.Expect").Equal "name", "Miller", "Bartholomew"
Err.Raise 2505, "Agatha", "no seat for Mr Smith, card 5500 0055 5555 5559"
END
  local planted='smith|miller|lea|tom|john|ann|bartholomew|agatha|wheelchair|0612345678|4111111111111111|5500 0055 5555 5559'
  expect 1 run --trace run.jsonl names.vbs --scenario "$clone/simulator/scenarios/rich_pnr.toml"
  if grep -iwE "$planted" run.jsonl; then exit 1; fi
  expect_text run.jsonl '"locator":"RCH001"'
  expect 1 run --trace kept.jsonl --keep names,cards,contacts,remarks names.vbs --scenario "$clone/simulator/scenarios/rich_pnr.toml"
  local word
  for word in ${planted//|/ }; do expect_text <(tr '[:upper:]' '[:lower:]' <kept.jsonl) "$word"; done
}

test_two_runs_without_times_are_equal() {
  expect 0 run --trace one.jsonl --trace-time off "${read_pnr[@]}"
  expect 0 run "${read_pnr[@]}" --trace-time off --trace two.jsonl
  cmp one.jsonl two.jsonl
  printf 'CreateObject("Wendrill23.CQuillet").SendCommand "JI"\n' >wait.vbs
  printf '[[session]]\nname = "A"\n\n[[reply]]\nentry = "JI"\nafter = 0.7\nscreen = "IN"\n' >wait.toml
  expect 0 run --trace one.jsonl --trace-time off wait.vbs --scenario wait.toml
  expect 0 run --trace two.jsonl --trace-time off wait.vbs --scenario wait.toml
  cmp one.jsonl two.jsonl
}

test_of_an_uncaught_error() {
  printf 'WScript.Echo 1\n  Err.Raise 2505, "Here", "it broke"\n' >broken.vbs
  expect 1 run --trace run.jsonl --trace-time off broken.vbs
  expect_last run.jsonl \
    '{"kind":"error","text":"it broke","number":2505,"source":"Here","file":"broken.vbs","line":2,"column":3}' \
    "{\"kind\":\"end\",\"status\":1,\"duration\":0,$counts_of_nothing}"
}

test_of_a_syntax_error() {
  printf 'If Then\n' >broken.vbs
  expect 1 run --trace run.jsonl --trace-time off broken.vbs
  expect_text run.jsonl '"kind":"error","text":'
  expect_text run.jsonl '"file":"broken.vbs","line":1,'
}

# The session that the scenario has is asked first, so that the trace is more than its end.
test_of_a_process_that_crashes() {
  cat >crash.vbs <<'END'
WScript.Echo CreateObject("Wendrill23.CQuillet").GetSessionList
Sub Again
  Again
End Sub
Again
END
  printf '[[session]]\nname = "A"\n' >one.toml
  expect 1 run --trace run.jsonl --trace-time off crash.vbs --scenario one.toml
  expect_text run.jsonl '"kind":"call","operation":"SessionName"'
  expect_last run.jsonl \
    '{"kind":"error","text":"crash.vbs: the script ran out of stack: does a procedure call itself without end? (exception 0xC00000FD)","file":"crash.vbs"}' \
    '{"kind":"end","status":1,"duration":0}'
}

test_of_a_process_that_is_killed() {
  cat >killed.vbs <<'END'
Set quillet = CreateObject("Wendrill23.CQuillet")
For turn = 1 To 200
  quillet.SendCommand "JI"
  If turn = 150 Then WScript.Echo "now"
Next
WScript.Sleep 60000
END
  printf '[[session]]\nname = "A"\n\n[[reply]]\nentry = "JI"\nscreen = "IN"\n' >one.toml
  # Wine's own way to end a process without a word to it.
  "$clone/script/wine" --start
  expect 124 env WENDRILL_TIME_LIMIT=15 "$clone/script/wine" "$build/win32/bin/script_host.exe" \
    --trace run.jsonl --scenario one.toml killed.vbs
  [[ $(grep -c '"kind":"send"' run.jsonl) == 200 ]]
}

test_of_the_time_limit() {
  printf 'Do\n  WScript.Sleep 10\nLoop\n' >endless.vbs
  expect 124 run --timeout 0.5 --trace run.jsonl --trace-time off endless.vbs
  expect_last run.jsonl \
    '{"kind":"error","text":"endless.vbs: line 2: no end after 0.5 s, in WScript.Sleep","file":"endless.vbs","line":2,"column":3}' \
    "{\"kind\":\"end\",\"status\":124,\"duration\":0,$counts_of_nothing}"
}

test_of_a_loop_that_must_be_ended_with_the_process() {
  printf 'Do\nLoop\n' >endless.vbs
  expect 124 run --timeout 0.5 --trace run.jsonl --trace-time off endless.vbs
  expect_last run.jsonl \
    '{"kind":"error","text":"endless.vbs: no end after 0.5 s, in a loop without calls: the line is not known; no call was made","file":"endless.vbs"}' \
    '{"kind":"end","status":124,"duration":0}'
}

test_of_a_strict_run() {
  printf '[[session]]\nname = "A"\n\n[[reply]]\nentry = "JO"\nscreen = "OUT"\n' >near.toml
  cat >strict.vbs <<'END'
CreateObject("Wendrill23.CQuillet").SendCommand "JI"
CreateObject("QuilletSimulator.Expect").Equal "office", "PARXX0100", "NCEYY2100"
END
  expect 3 run --strict --trace run.jsonl --trace-time off strict.vbs --scenario near.toml
  expect_text run.jsonl '"kind":"send","session":"A","entry":"JI","answered":false,"ms":0,"type":0,"screen":["ENTRY NOT UNDERSTOOD'
  expect_text run.jsonl '"kind":"key","session":"A","code":322,"name":"kbClear","accepted":true}'
  expect_last run.jsonl \
    '{"kind":"expect","name":"office","held":false,"failure":"got \"PARXX0100\", expected \"NCEYY2100\" (first difference: character 1)"}' \
    '{"kind":"warning","about":"unanswered","text":"JI"}' \
    '{"kind":"warning","about":"unused","text":"line 4, entry = \"JO\""}' \
    '{"kind":"end","status":3,"duration":0,"sent":1,"unanswered":1,"calls":0,"expectations":1,"failed":1,"findings":2}'
}

test_status_of_quit() {
  printf 'WScript.Quit 7\n' >leave.vbs
  expect 7 run --trace run.jsonl --trace-time off leave.vbs
  expect_last run.jsonl "{\"kind\":\"end\",\"status\":7,\"duration\":0,$counts_of_nothing}"
}

test_of_the_environment() {
  printf 'WScript.Quit 7\n' >leave.vbs
  QUILLET_TRACE=run.jsonl QUILLET_TRACE_TIME=off QUILLET_KEEP=cards,names expect 7 run leave.vbs
  expect_text run.jsonl '{"v":1,"kind":"run","script":"leave.vbs","scenario":"built-in scenario","started":"","kept":["names","cards"]}'
  QUILLET_TRACE=other.jsonl QUILLET_TRACE_TIME=off expect 7 run --trace option.jsonl --trace-time on leave.vbs
  [[ ! -e other.jsonl ]]
  expect_text option.jsonl '"started":"20'
}

test_of_a_program_without_the_script_host() {
  QUILLET_TRACE=run.jsonl QUILLET_TRACE_TIME=off expect 0 "$clone/script/wine" "$program"
  expect_text run.jsonl '{"v":1,"kind":"run","script":"read_pnr.exe","scenario":"built-in scenario","started":""}'
  expect_text run.jsonl '"kind":"retrieve","session":"A","entry":"RTABC123","found":true,"locator":"ABC123","screen":['
  [[ $(tail -n 1 run.jsonl) == *'"kind":"end","duration":0,"sent":1,'* ]]
}

test_of_a_program_whose_trace_cannot_be_written() {
  QUILLET_TRACE=no/folder.jsonl expect 1 "$clone/script/wine" "$program"
  QUILLET_TRACE=run.jsonl QUILLET_KEEP=phones expect 1 "$clone/script/wine" "$program"
  [[ ! -e run.jsonl ]]
}

test_a_program_that_the_script_starts_leaves_the_trace_alone() {
  cat >starts.vbs <<'END'
WScript.Echo CreateObject("WScript.Shell").Environment("Process")("QUILLET_TRACE") & "."
END
  QUILLET_TRACE=run.jsonl expect 0 run starts.vbs
  [[ $(<stdout.txt) == . ]]
}

test_beside_a_real_terminal() {
  printf 'Err.Raise 2505, "Here", "it broke"\n' >broken.vbs
  expect 1 script_host --terminal --trace run.jsonl --trace-time off broken.vbs
  printf '%s\n' '{"v":1,"kind":"run","script":"broken.vbs","scenario":"","started":""}' \
    '{"t":0,"n":1,"kind":"error","text":"it broke","number":2505,"source":"Here","file":"broken.vbs","line":1,"column":1}' \
    '{"t":0,"n":2,"kind":"end","status":1,"duration":0}' | cmp - run.jsonl
}

test_an_older_trace_is_replaced() {
  printf 'WScript.Quit 7\n' >leave.vbs
  seq 1000 >run.jsonl
  expect 7 run --trace run.jsonl leave.vbs
  [[ $(wc -l <run.jsonl) == 2 ]]
}

test_wrong_usage() {
  printf 'WScript.Echo "never"\n' >never.vbs
  local words message
  while IFS='|' read -r words message; do
    # shellcheck disable=SC2086 # several words
    expect 2 run $words never.vbs
    expect_text stderr.txt "$message"
    [[ ! -s stdout.txt ]]
  done <<'END'
--trace no/folder.jsonl|script_host: cannot be written: Z:
--trace run.jsonl --trace-time later|script_host: --trace-time must be on or off, not "later".
--trace run.jsonl --keep phones|script_host: --keep takes names, cards, contacts and remarks, joined with commas, not "phones".
--keep names|script_host: --keep is for a trace or a recording; --trace FILE, --transcript FILE or --record FILE is missing
--trace-time off|script_host: --trace-time is for a trace; --trace FILE or --transcript FILE is missing
END
  expect 2 run never.vbs --trace
  expect_text stderr.txt 'run: --trace needs a file'
  mkdir tests
  expect 2 script_host --trace run.jsonl --tests tests
  expect_text stderr.txt 'a trace is that of one script; --trace, --transcript and QUILLET_TRACE do not go with --tests'
  QUILLET_TRACE=run.jsonl QUILLET_TRACE_TIME=maybe expect 2 run never.vbs
  expect_text stderr.txt 'script_host: QUILLET_TRACE_TIME must be on or off, not "maybe".'
  [[ ! -e run.jsonl ]]
}

validate() {
  local traces
  shopt -s nullglob
  traces=("$folder"/*.jsonl)
  if ((${#traces[@]} > 0)); then
    python3 "$clone/tests/schema/validate_traces.py" "$clone/docs/trace.schema.json" "${traces[@]}"
  fi
}

if [[ $wanted == --list ]]; then
  tests
else
  "test_$wanted"
  validate
fi
