#!/usr/bin/env bash
# Records terminals as a person does, and replays the recordings. One test per function whose name begins with "test_":
#
#   recorder_test.sh CLONE TERMINAL.dll PROGRAM.exe --list
#   recorder_test.sh CLONE TERMINAL.dll PROGRAM.exe TEST
#
# TERMINAL.dll has the classes of a terminal and answers from a scenario, under identifiers of its own: the tests that
# need a real terminal register it as one is, and take that back at their end. PROGRAM.exe finds the recorder by its
# manifest and knows nothing of a recording.

set -euo pipefail
clone=$1 terminal=$2 program=$3 wanted=$4
# shellcheck source=tests/com/support/calls.sh
source "$clone/tests/com/support/calls.sh"
scenarios=$clone/simulator/scenarios
samples=$clone/samples/vbscript

wine() { "$clone/script/wine" "$@"; }
unregister() { wine regsvr32 /s /u /n /i:simulate "$(windows_path "$terminal")" >/dev/null 2>&1 || true; }

# From here on to the end of the test the registry has a terminal.
install_terminal() {
  "$clone/script/wine" --start
  trap 'unregister; rm -rf -- "$folder"' EXIT
  wine regsvr32 /s /n /i:simulate "$(windows_path "$terminal")"
}

# What a text is when nothing can be told of it but where its words are.
shape() { sed 's/[^ ]/x/g' "$1"; }

# The recording of what the installed terminal answered from a scenario, and a strict replay of it: the script prints the
# same, but for hidden words, and a recording of the replay is the same file. With every word kept it prints the same.
#   reproduces SCENARIO SCRIPT [ARGUMENT...]
reproduces() {
  local scenario=$1
  shift
  QUILLET_SCENARIO=$(windows_path "$scenario") expect 0 script_host --terminal --record one.recorded "$@"
  [[ ! -s stderr.txt ]]
  cp stdout.txt recorded.txt
  expect 0 script_host --strict --scenario one.recorded --record two.recorded "$@"
  diff -u <(shape recorded.txt) <(shape stdout.txt)
  cmp one.recorded two.recorded
  QUILLET_SCENARIO=$(windows_path "$scenario") expect 0 script_host --terminal --record kept.recorded \
    --keep names,cards,contacts,remarks "$@"
  expect 0 script_host --strict --scenario kept.recorded "$@"
  cmp recorded.txt stdout.txt
  rm -f -- ./*.recorded
}

sample() { windows_path "$samples/$1.vbs"; }

test_the_built_in_scenario() {
  install_terminal
  local name
  for name in first_light collect_pages batch queue long_remark; do
    echo "$name"
    reproduces "$scenarios/built_in.toml" "$(sample "$name")"
  done
}

test_the_rich_pnr() {
  install_terminal
  reproduces "$scenarios/rich_pnr.toml" "$(sample read_pnr)"
}

test_the_group() {
  install_terminal
  reproduces "$scenarios/group_pnr.toml" "$(sample read_pnr)"
}

test_the_queue_worked_through() {
  install_terminal
  reproduces "$scenarios/queue_worked_through.toml" "$(sample queue_worked_through)"
}

test_paged_displays() {
  install_terminal
  cat >pages.vbs <<'END'
Set quillet = CreateObject("Wendrill23.CQuillet")
For Each entry In Array("AN15JUNPARLON", "TQN", "HEAN", "QT", "DO1")
  WScript.Echo "> " & entry
  WScript.Echo quillet.SendCommandGetAll(entry)
Next
END
  reproduces "$scenarios/paged_availability.toml" pages.vbs
}

test_the_empty_desktop() {
  install_terminal
  cat >empty.vbs <<'END'
On Error Resume Next
Set list = CreateObject("kzuHostToolKit.HostSessionList")
WScript.Echo list.Count
Set quillet = CreateObject("Wendrill23.CQuillet")
WScript.Echo quillet.GetSessionList & " " & Err.Number & " " & Err.Description
END
  reproduces "$scenarios/empty_desktop.toml" empty.vbs
}

test_the_old_terminal() {
  install_terminal
  cat >old.vbs <<'END'
Set quillet = CreateObject("Wendrill23.CQuillet")
WScript.Echo quillet.SendCommand("ER")
On Error Resume Next
Set alarm = CreateObject("wzuScriptHelper.AlarmManager")
WScript.Echo Err.Number
END
  reproduces "$scenarios/old_terminal.toml" old.vbs
}

# Errors with their numbers, a buffer that comes late, a key that is refused, PNRs that cannot be read.
test_faults() {
  install_terminal
  cat >faults.vbs <<'END'
On Error Resume Next
Set list = CreateObject("kzuHostToolKit.HostSessionList")
Set session = list.Item("A")
For Each entry In Array("FAIL", "RETRY", "RETRY", "WIDE")
  Err.Clear
  Set response = Nothing
  Set response = session.Send(entry, True)
  WScript.Echo entry & " " & Err.Number & " " & Err.Description
  Err.Clear
  WScript.Echo response.ResponseType & " " & response.Buffer
Next
Set response = session.Send("LATE", True)
For turn = 1 To 5
  WScript.Echo turn & " " & response.Buffer
Next
WScript.Echo session.SendKey(322) & " " & session.SendKey(353)
Set pnr = CreateObject("szuPNR.PNR")
For Each entry In Array("SP1", "RTNOHEAD", "RTNOTHERE")
  Err.Clear
  pnr.Retrieve session.HostConnection, entry
  WScript.Echo entry & " " & Err.Number & " " & (pnr.Header Is Nothing) & " " & pnr.Text
Next
Err.Clear
CreateObject("wzuScriptHelper.AlarmManager").LockAlarm True
WScript.Echo Err.Number
END
  reproduces "$scenarios/faults.toml" faults.vbs
}

test_two_sessions() {
  install_terminal
  printf '[[session]]\nname = "A"\n[[session]]\nname = "B"\n[[reply]]\nentry = "JI"\nsession = "A"\nscreen = "IN A"\n[[reply]]\nentry = "JI"\nsession = "B"\nscreen = "IN B"\n' >two.toml
  cat >two.vbs <<'END'
Set list = CreateObject("kzuHostToolKit.HostSessionList")
For Each session In list
  WScript.Echo session.SessionName & " " & session.Send("JI", True).Buffer
Next
Set session = list.Item(2)
WScript.Echo session.LastResponse.Buffer & list.Item("A").LastResponse.HostCommand
END
  reproduces two.toml two.vbs
}

test_a_pnr_that_changes() {
  install_terminal
  cat >changes.toml <<'END'
[[session]]
name = "A"
[[reply]]
entry = "ER"
then = "saved"
screen = "END OF TRANSACTION COMPLETE"
[[pnr]]
RecordLocator = "ABC123"
display = "RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123\n  1.TREMBLAY/ODETTE MRS"
[[pnr]]
RecordLocator = "ABC123"
when = "saved"
display = "RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0945Z   ABC123\n  1.TREMBLAY/ODETTE MRS   2.TREMBLAY/LUC MR"
END
  cat >changes.vbs <<'END'
Set session = CreateObject("kzuHostToolKit.HostSession")
Set pnr = CreateObject("szuPNR.PNR")
pnr.Retrieve session.HostConnection, "RTABC123"
WScript.Echo pnr.Names.Count & pnr.Text
session.Send "ER", True
pnr.Retrieve session.HostConnection, "RTABC123"
WScript.Echo pnr.Names.Count & pnr.Text & pnr.RetrieveCurrent(session.HostConnection)
END
  reproduces changes.toml changes.vbs
}

# The key brings an event, for which the member waits.
test_events() {
  install_terminal
  printf '[[session]]\nname = "A"\n[[reply]]\nentry = "0500"\nscreen = "MODE 05"\n' >mode.toml
  cat >mode.vbs <<'END'
Set quillet = CreateObject("Wendrill23.CQuillet")
quillet.ChangeSMOD 5
WScript.Echo quillet.SendCommand("0500")
END
  reproduces mode.toml mode.vbs
}

# What the program read only empty stays empty in the replay, also where the buffer filled after it had given up.
test_buffers_that_never_fill() {
  install_terminal
  cat >never.toml <<'END'
[[session]]
name = "A"
[[reply]]
entry = "NEVER"
never = true
[[reply]]
entry = "SLOW"
late = 3
screen = "AT LAST"
[[reply]]
entry = "IG"
screen = "IGNORED"
END
  cat >never.vbs <<'END'
Set session = CreateObject("kzuHostToolKit.HostSession")
For Each entry In Array("NEVER", "SLOW", "IG")
  Set response = session.Send(entry, True)
  For turn = 1 To 3
    WScript.Echo entry & " " & Len(response.Buffer) & " " & response.HostCommand & " " & response.NumberOfColumns
  Next
Next
WScript.Echo Len(session.LastResponse.Buffer)
END
  reproduces never.toml never.vbs
  expect 0 run --record out.toml --scenario never.toml never.vbs
  [[ $(grep -c '^never = true$' out.toml) == 2 ]]
  if grep -F 'AT LAST' out.toml; then exit 1; fi
}

test_silent_keys() {
  printf '[terminal]\nrefuses = [322]\nsilent = [353]\n[[session]]\nname = "A"\n' >silent.toml
  export QUILLET_SCENARIO
  QUILLET_SCENARIO=$(windows_path silent.toml)
  QUILLET_RECORD=one.recorded beside_the_program 0 keys
  cp stdout.txt recorded.txt
  diff -u <(tr -d '\r' <recorded.txt) - <<'END'
322: refused, 0 events
353: accepted, 0 events
272: accepted, 1 events
END
  expect_text one.recorded 'silent = [353]'
  QUILLET_SCENARIO=$(windows_path one.recorded)
  QUILLET_RECORD=two.recorded beside_the_program 0 keys
  cmp recorded.txt stdout.txt
  cmp one.recorded two.recorded
}

# What the script host does not do: the variables alone ask for a recording, and the last object or the process ends it.
beside_the_program() {
  local status=$1
  shift
  QUILLET_RECORD_BEHIND=$(windows_path "$build/win32/bin/QuilletSimulator.dll") expect "$status" wine "$program" "$@"
}

test_of_a_program_that_knows_nothing_of_it() {
  echo 'WScript.Echo CreateObject("kzuHostToolKit.HostSession").Send("AN15JUNPARLON", True).Buffer' >send.vbs
  local end
  for end in release leave; do
    QUILLET_RECORD=$end.toml beside_the_program 0 "$end"
    expect_text stdout.txt '400 characters'
    expect 0 run --strict --scenario "$end.toml" send.vbs
  done
  cmp release.toml leave.toml
  beside_the_program 0 release
  expect_text stdout.txt '400 characters'
}

# The file is not written after each of them; the end of the process writes what is missing.
test_of_a_program_that_lets_go_again_and_again() {
  printf '[[session]]\nname = "A"\n[[reply]]\nstarts = "DO"\nscreen = "OK"\n' >rounds.toml
  export QUILLET_SCENARIO
  QUILLET_SCENARIO=$(windows_path rounds.toml)
  QUILLET_RECORD=out.recorded beside_the_program 0 rounds
  [[ $(grep -c '^entry = ' out.recorded) == 200 ]]
  [[ $(find . -name 'out.recorded*') == ./out.recorded ]]
}

# Whoever sees neither a status nor a message finds a file.
test_of_a_program_whose_recording_would_hold_what_is_hidden() {
  printf '[[session]]\nname = "A"\n[[reply]]\nentry = "AN15JUNPARLON"\nscreen = "FP CC4111111111111111/1226 41111111111111110012345"\n' >card.toml
  local end
  export QUILLET_SCENARIO
  QUILLET_SCENARIO=$(windows_path card.toml)
  for end in release leave; do
    QUILLET_RECORD=out.recorded beside_the_program 0 "$end"
    [[ $(find . -name 'out.recorded*') == ./out.recorded.error ]]
    [[ $(tr -d '\r' <out.recorded.error) == 'The recording would hold a name or a number that is to be hidden. It was not written.' ]]
  done
  QUILLET_KEEP=cards QUILLET_RECORD=out.recorded beside_the_program 0 release
  [[ $(find . -name 'out.recorded*') == ./out.recorded ]]
}

test_of_a_program_whose_recording_cannot_begin() {
  echo mine >out.toml
  QUILLET_RECORD=out.toml beside_the_program 1 release
  expect_text stdout.txt 'creation failed: '
  [[ $(<out.toml) == mine ]]
  QUILLET_RECORD=other.toml QUILLET_RECORD_PNR=sometimes beside_the_program 1 release
  expect_text stdout.txt 'creation failed: QUILLET_RECORD_PNR must be eager or lazy, not "sometimes".'
  QUILLET_RECORD=other.toml QUILLET_KEEP=phones beside_the_program 1 release
  expect_text stdout.txt 'creation failed: QUILLET_KEEP takes names, cards, contacts and remarks'
  [[ ! -e other.toml ]]
  QUILLET_RECORD_BEHIND=no.dll expect 1 wine "$program" release
  expect_text stdout.txt 'creation failed: QUILLET_RECORD_BEHIND names no DLL with a manifest: Z:'
}

test_nothing_lives_after_the_program_let_go() {
  cat >lives.vbs <<'END'
Set control = CreateObject("QuilletSimulator.Control")
Sub Work
  Set session = CreateObject("kzuHostToolKit.HostSessionList").Item(1)
  session.Send "AN15JUNPARLON", True   ' nobody reads the answer
  Set pnr = CreateObject("szuPNR.PNR")
  pnr.RetrieveCurrent session.HostConnection
  For Each name In pnr.Names
    WScript.Echo name.ElementNo
  Next
End Sub
Work
WScript.Echo "living: " & control.LiveObjects
END
  expect 0 run --record out.toml lives.vbs
  expect_text stdout.txt 'living: 0'
  expect_text out.toml 'entry = "AN15JUNPARLON"'
  expect 0 run --strict --scenario out.toml lives.vbs
}

test_lazy_reading_takes_what_the_script_reads() {
  cat >lazy.vbs <<'END'
Set session = CreateObject("kzuHostToolKit.HostSession")
Set pnr = CreateObject("szuPNR.PNR")
pnr.RetrieveCurrent session.HostConnection
WScript.Echo pnr.Names.Count
END
  QUILLET_RECORD_PNR=lazy expect 0 run --scenario "$scenarios/rich_pnr.toml" --record lazy.toml lazy.vbs
  cp stdout.txt recorded.txt
  expect 0 run --strict --scenario lazy.toml lazy.vbs
  cmp recorded.txt stdout.txt
  QUILLET_RECORD_PNR=sometimes expect 2 run --record other.toml lazy.vbs
  expect_text stderr.txt 'script_host: QUILLET_RECORD_PNR must be eager or lazy, not "sometimes".'
}

test_as_a_person_calls_it() {
  expect 0 run --record out.toml "$samples/read_pnr.vbs" --scenario "$scenarios/rich_pnr.toml"
  cp stdout.txt recorded.txt
  expect 0 run "$samples/read_pnr.vbs" --scenario out.toml
  diff -u <(shape recorded.txt) <(shape stdout.txt)
  expect 0 run --strict "$samples/read_pnr.vbs" --scenario out.toml
}

# In entries, in names, in displays and in what an element says.
test_no_planted_word_is_in_a_recording() {
  cat >planted.toml <<'END'
[[session]]
name = "A"
[[reply]]
starts = ""
screen = "BARTHOLOMEW/AGATHA MRS   PHONE 0612345678"
[[pnr]]
RecordLocator = "ABC123"
on_display = true
display = '''
RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
  1.BARTHOLOMEW/AGATHA MRS   2.QUIGLEY/FERGUS MR
  3 AP PAR 0612345678
  4 RM WHEELCHAIR FOR BARTHOLOMEW
  5 FP CC4111111111111111/1226
'''
END
  cat >planted.vbs <<'END'
Set session = CreateObject("kzuHostToolKit.HostSession")
Set pnr = CreateObject("szuPNR.PNR")
pnr.RetrieveCurrent session.HostConnection
WScript.Echo pnr.Names.Count
For Each entry In Array("NM1BARTHOLOMEW/AGATHA MRS", "RM WHEELCHAIR FOR QUIGLEY", "APPAR 0612345678", "FPCC4111111111111111/1226")
  WScript.Echo session.Send(entry, True).Buffer
Next
END
  expect 0 run --scenario planted.toml --record out.recorded planted.vbs
  if grep -iE 'bartholomew|agatha|quigley|fergus|wheelchair|0612345678|4111111111111111' out.recorded; then exit 1; fi
  expect 0 run --strict --scenario out.recorded planted.vbs
  expect 0 run --scenario planted.toml --record kept.recorded --keep names,cards,contacts,remarks planted.vbs
  local word
  for word in BARTHOLOMEW AGATHA QUIGLEY WHEELCHAIR 0612345678 4111111111111111; do expect_text kept.recorded "$word"; done
}

# A longer number is no card's, so it is not hidden; but it holds the number of a card, which another answer shows. And a
# name that a row's end cuts in two is no word of that screen, but one of the file, where the rows follow each other.
test_a_recording_that_would_hold_what_is_hidden_is_not_written() {
  cat >card.toml <<'END'
[[session]]
name = "A"
[[reply]]
entry = "TQT"
screen = "FP CC4111111111111111/1226"
[[reply]]
entry = "VL"
screen = "APPROVED 41111111111111110012345"
END
  cat >name.toml <<END
[[session]]
name = "A"
[[reply]]
entry = "TQT"
screen = "  1.BARTHOLOMEW/AGATHA MRS"
[[reply]]
entry = "VL"
raw = true
screen = "$(printf 'PASSENGER%65sBARTHOLOMEW' '')"
END
  cat >held.vbs <<'END'
Set session = CreateObject("kzuHostToolKit.HostSession")
For Each entry In Array("TQT", "VL")
  WScript.Echo entry & ": " & Len(session.Send(entry, True).Buffer)
Next
END
  cp held.vbs quits.vbs
  echo 'WScript.Quit 7' >>quits.vbs
  local kind script
  for kind in card name; do
    for script in held quits; do
      expect 1 run --record out.recorded --scenario "$kind.toml" "$script.vbs"
      expect_text stdout.txt 'VL: 8'
      expect_text stderr.txt "$script.vbs: there is no recording: The recording would hold a name or a number that is to be hidden. It was not written."
      [[ -z $(find . -name 'out.recorded*') ]]
    done
  done
  expect 1 script_host --record out.recorded --scenario card.toml held.vbs
  expect_text stderr.txt 'held.vbs: there is no recording: '
  [[ -z $(find . -name 'out.recorded*') ]]
  expect 0 run --record out.recorded --keep cards --scenario card.toml held.vbs
  expect_text out.recorded 41111111111111110012345
}

test_an_existing_file_is_refused() {
  echo mine >out.toml
  echo 'WScript.Echo "never"' >never.vbs
  expect 2 run --record out.toml never.vbs
  expect_text stderr.txt 'script_host: exists already, and a recording replaces no file: Z:'
  [[ ! -s stdout.txt && $(<out.toml) == mine ]]
  QUILLET_RECORD=out.toml expect 2 run never.vbs
  [[ ! -s stdout.txt && $(<out.toml) == mine ]]
  expect 2 run --record no/folder/out.toml never.vbs
  [[ ! -s stdout.txt ]]
}

test_the_environment_asks_for_a_recording() {
  echo 'WScript.Echo CreateObject("Wendrill23.CQuillet").SendCommand("AN15JUNPARLON")' >send.vbs
  QUILLET_RECORD=out.toml expect 0 run send.vbs
  expect_text out.toml 'entry = "AN15JUNPARLON"'
}

test_an_interrupted_recording_leaves_no_file() {
  cat >killed.vbs <<'END'
WScript.Echo CreateObject("Wendrill23.CQuillet").SendCommand("AN15JUNPARLON")
WScript.Sleep 60000
END
  "$clone/script/wine" --start
  expect 124 env WENDRILL_TIME_LIMIT=15 "$clone/script/wine" "$build/win32/bin/script_host.exe" --record out.toml killed.vbs
  [[ -z $(find . -name 'out.toml*') ]]
  printf 'Do\nLoop\n' >endless.vbs
  expect 124 run --timeout 0.5 --record out.toml endless.vbs
  expect_text stderr.txt 'endless.vbs: there is no recording: the process was ended'
  [[ -z $(find . -name 'out.toml*') ]]
}

test_what_cannot_be_reproduced_is_said() {
  cat >fails.vbs <<'END'
On Error Resume Next
Set session = CreateObject("kzuHostToolKit.HostSession")
CreateObject("QuilletSimulator.Control").FailNext "LastResponse", &H80004005, 1
session.LastResponse
WScript.Echo Err.Number
END
  expect 4 run --record out.toml fails.vbs
  expect_text stderr.txt 'fails.vbs: not reproduced: '
  expect_text out.toml '# not reproduced: '
  echo 'WScript.Quit 7' >>fails.vbs
  expect 7 run --record other.toml fails.vbs
}

test_without_a_terminal_behind_it() {
  echo 'WScript.CreateObject "kzuHostToolKit.HostSessionList"' >none.vbs
  expect 1 script_host --terminal --record out.toml none.vbs
  expect_text stderr.txt 'There is no class "kzuHostToolKit.HostSessionList" behind the recorder'
}

test_beside_a_trace() {
  echo 'WScript.Echo CreateObject("Wendrill23.CQuillet").SendCommand("AN15JUNPARLON")' >send.vbs
  expect 0 run --record out.toml --trace run.jsonl send.vbs
  expect_text run.jsonl '"kind":"send","session":"A","entry":"AN15JUNPARLON"'
  expect_text out.toml 'entry = "AN15JUNPARLON"'
}

test_the_recorder_is_never_registered() {
  local recorder
  recorder=$(windows_path "$build/win32/bin/QuilletRecorder.dll")
  local words
  for words in '' '/n /i:simulate' '/n /i:user'; do
    # shellcheck disable=SC2086 # several words
    if WENDRILL_REGISTER_LOG=why.txt wine regsvr32 /s $words "$recorder" >stdout.txt 2>&1; then exit 1; fi
  done
  expect_text why.txt 'it is never registered'
}

test_wrong_usage() {
  echo 'WScript.Echo "never"' >never.vbs
  mkdir tests
  expect 2 script_host --record out.toml --tests tests
  expect_text stderr.txt 'a recording is that of one script; --record and QUILLET_RECORD do not go with --tests'
  expect 2 run never.vbs --record
  expect_text stderr.txt 'run: --record needs a file'
  expect 2 run --record out.toml --keep phones never.vbs
  expect_text stderr.txt 'script_host: --keep takes names, cards, contacts and remarks, joined with commas, not "phones".'
  expect 0 run --record out.toml --keep names never.vbs
  expect_text stdout.txt never
}

if [[ $wanted == --list ]]; then
  tests
else
  "test_$wanted"
fi
