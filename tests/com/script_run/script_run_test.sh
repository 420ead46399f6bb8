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
  printed=$("$@" 2>stderr.txt) || returned=$?
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

# expect_file FILE TEXT: the whole content, without the times that a run took.
expect_file() {
  if ! diff -u --label expected --label written <(printf '%s\n' "$2") <(sed 's/ time="[0-9.]*"//' "$1"); then exit 1; fi
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
  expect 0 $'<one>\n<two words>\n<--scenario>\n<--help>' "$clone/script/run" words.vbs one 'two words' -- --scenario --help
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

test_options_on_either_side_of_the_script() {
  echo "$print_sessions" >sessions.vbs
  one_session EITHER >either.toml
  expect 0 EITHER "$clone/script/run" --timeout 60 sessions.vbs --strict --scenario either.toml
}

test_unknown_option_is_rejected() {
  echo "$print_sessions" >sessions.vbs
  expect 2 '' "$clone/script/run" sessions.vbs --stritc
  expect_stderr 'run: unknown option: --stritc'
}

test_lines_end_with_a_line_feed() {
  printf 'WScript.Echo "one"\nWScript.StdOut.WriteLine "two"\nWScript.StdOut.Write "th" & vbCrLf & "ree"\n' >lines.vbs
  expect 0 $'one\ntwo\nth\nree' "$clone/script/run" lines.vbs
}

test_standard_input_reaches_the_script() {
  cat >input.vbs <<'END'
WScript.Echo WScript.StdIn.Read(2) & "|" & WScript.StdIn.Column & "|" & WScript.StdIn.AtEndOfLine
Do Until WScript.StdIn.AtEndOfStream
  WScript.Echo WScript.StdIn.Line & " <" & WScript.StdIn.ReadLine & ">"
Loop
END
  printf 'one\r\nMálaga\n\nlast' >input.txt
  expect 0 $'on|3|False\n1 <e>\n2 <Málaga>\n3 <>\n4 <last>' "$clone/script/run" input.vbs <input.txt
}

test_time_limit_ends_an_endless_loop() {
  printf 'Do\n  WScript.Sleep 10\nLoop\n' >endless.vbs
  expect 124 '' "$clone/script/run" --timeout 0.3 endless.vbs
  [[ $(<stderr.txt) == $'endless.vbs: line 2: no end after 0.3 s, in WScript.Sleep\n    WScript.Sleep 10' ]] ||
    { cat stderr.txt && exit 1; }
}

failing_test='Set expect = CreateObject("QuilletSimulator.Expect")
expect.Equal "office", "PARXX<1>", "NCE"
expect.Holds "odd " & Chr(1) & " name", True
WScript.Quit 0'

failing_suite='  <testsuite name="%s" tests="6" failures="1" errors="0" skipped="0">
    <testcase classname="%s" name="office">
      <failure type="failure" message="got &quot;PARXX&lt;1&gt;&quot;, expected &quot;NCE&quot; (first difference: character 1)">%s: office: got &quot;PARXX&lt;1&gt;&quot;, expected &quot;NCE&quot; (first difference: character 1)</failure>
    </testcase>
    <testcase classname="%s" name="odd \uFFFD name"/>
    <testcase classname="%s" name="unanswered entries"/>
    <testcase classname="%s" name="unused replies"/>
    <testcase classname="%s" name="warnings"/>
    <testcase classname="%s" name="script ended"/>
  </testsuite>'

# The suite of the failing test under a name.
suite_of() {
  local form
  form=$(printf '%b' "$failing_suite")
  printf '%s' "${form//%s/$1}"
}

test_results_in_a_folder_that_is_missing() {
  echo "$failing_test" >mine.vbs
  expect 2 '' "$clone/script/run" mine.vbs --junit results/out.xml
  expect_stderr 'script_host: cannot be written: '
}

test_results_as_junit() {
  echo "$failing_test" >mine.vbs
  expect 3 '' "$clone/script/run" mine.vbs --junit out.xml
  expect_file out.xml '<?xml version="1.0" encoding="UTF-8"?>
<testsuites>
'"$(suite_of mine.vbs)"'
</testsuites>'
}

test_results_of_an_uncaught_error_and_of_a_status() {
  printf 'Err.Raise 2505, "Here", "it broke"\n' >broken.vbs
  expect 1 '' "$clone/script/run" broken.vbs --junit out.xml
  grep -qF '<failure type="failure" message="broken.vbs(1, 1) Here: it broke (2505)">broken.vbs: script ended: broken.vbs(1, 1) Here: it broke (2505)</failure>' out.xml
  echo 'WScript.Quit 7' >leaving.vbs
  expect 7 '' "$clone/script/run" leaving.vbs --junit out.xml
  grep -qF '<failure type="failure" message="ended with status 7">leaving.vbs: script ended: ended with status 7</failure>' out.xml
}

test_results_of_a_script_that_is_ended() {
  printf 'CreateObject("QuilletSimulator.Expect").Holds "before", True\nDo\nLoop\n' >endless.vbs
  expect 124 '' "$clone/script/run" --timeout 0.3 endless.vbs --junit out.xml
  expect_file out.xml '<?xml version="1.0" encoding="UTF-8"?>
<testsuites>
  <testsuite name="endless.vbs" tests="5" failures="1" errors="0" skipped="3">
    <testcase classname="endless.vbs" name="before"/>
    <testcase classname="endless.vbs" name="unanswered entries"><skipped/></testcase>
    <testcase classname="endless.vbs" name="unused replies"><skipped/></testcase>
    <testcase classname="endless.vbs" name="warnings"><skipped/></testcase>
    <testcase classname="endless.vbs" name="script ended">
      <failure type="failure" message="endless.vbs: no end after 0.3 s, in a loop without calls: the line is not known; last call Expect.Holds">endless.vbs: script ended: endless.vbs: no end after 0.3 s, in a loop without calls: the line is not known; last call Expect.Holds</failure>
    </testcase>
  </testsuite>
</testsuites>'
}

test_try_runs_the_tests_of_a_folder() {
  mkdir tests
  echo "$failing_test" >tests/b_test.vbs
  echo 'WScript.Echo(new ActiveXObject("Wendrill23.CQuillet").GetSessionList());' >tests/a_test.js
  one_session OWN >tests/a_test.toml
  echo 'WScript.Quit 9' >tests/no_test_at_all.vbs
  expect 3 $'OWN\npassed a_test.js\nFAILED b_test.vbs, status 3\n1 passed, 1 failed' "$clone/script/try" tests --junit out.xml
  expect_stderr 'b_test.vbs: expectation "office" failed: got "PARXX<1>", expected "NCE" (first difference: character 1)'
  expect_file out.xml '<?xml version="1.0" encoding="UTF-8"?>
<testsuites>
  <testsuite name="a_test.js" tests="4" failures="0" errors="0" skipped="0">
    <testcase classname="a_test.js" name="unanswered entries"/>
    <testcase classname="a_test.js" name="unused replies"/>
    <testcase classname="a_test.js" name="warnings"/>
    <testcase classname="a_test.js" name="script ended"/>
  </testsuite>
'"$(suite_of b_test.vbs)"'
</testsuites>'
}

test_try_returns_the_gravest_status() {
  mkdir tests
  echo 'WScript.Quit 7' >tests/a_test.vbs
  echo "$failing_test" >tests/b_test.vbs
  expect 7 $'FAILED a_test.vbs, status 7\nFAILED b_test.vbs, status 3\n0 passed, 2 failed' "$clone/script/try" tests
  printf 'If Then\n' >tests/c_test.vbs
  expect 1 $'FAILED a_test.vbs, status 7\nFAILED b_test.vbs, status 3\nFAILED c_test.vbs, status 1\n0 passed, 3 failed' \
    "$clone/script/try" tests
}

test_try_without_tests() {
  mkdir nothing
  expect 2 '' "$clone/script/try" nothing
  expect_stderr 'the names of tests end in _test.vbs or _test.js'
  expect 2 '' "$clone/script/try" nowhere
  expect_stderr 'try: folder not found: nowhere'
}

test_help_has_the_table_of_statuses() {
  expect 0 "$(sed -n '2,/^$/ s/^# \{0,1\}//p' "$clone/script/run")" "$clone/script/run" --help
  "$clone/script/run" --help | grep -qx '  124  the time limit was reached'
  "$clone/script/run" --help | grep -qx '  3    an expectation failed, or --strict found something'
}

test_a_build_folder_that_cannot_be_written_is_named() {
  echo "$print_sessions" >sessions.vbs
  : >file
  WENDRILL_BUILD=$folder/file expect 1 '' "$clone/script/run" sessions.vbs
  expect_stderr "run: nothing can be written to $folder/file: name a folder of your own in WENDRILL_BUILD"
}

test_another_build_is_waited_for() {
  echo "$print_sessions" >sessions.vbs
  one_session WAITED >waited.toml
  (
    flock 9
    touch locked
    for _ in {1..600}; do # until the other one says that it waits
      if grep -q waiting stderr.txt 2>/dev/null; then break; fi
      sleep 0.1
    done
  ) 9>"$clone/build/win32.lock" &
  while [[ ! -e locked ]]; do sleep 0.05; done
  expect 0 WAITED "$clone/script/run" sessions.vbs --scenario waited.toml
  expect_stderr '== waiting for another build of build/win32'
  wait
}

tests() { declare -F | sed -n 's/^declare -f test_//p'; }

if [[ $wanted == --list ]]; then
  tests
else
  "test_$wanted"
fi
