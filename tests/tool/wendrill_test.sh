#!/usr/bin/env bash
# The program wendrill: output, exit statuses, threads, pipes.
#
#   wendrill_test.sh WENDRILL CLONE [DISPLAYS]
#
#   DISPLAYS   how many are read by several threads: a multiple of 2,000; 4,000 unless given

set -euo pipefail
export LC_ALL=C.UTF-8
wendrill=$1
clone=$2
displays=${3:-4000}
here=$clone/tests/tool
many=$here/many_displays.py
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
cd -- "$work"
failed=0

wrong() {
  printf 'FAILED: %s\n' "$*"
  failed=1
}

# expect STATUS COMMAND...: standard output goes to out, standard error to err.
expect() {
  local status=0
  "${@:2}" >out 2>err || status=$?
  [[ $status == "$1" ]] || wrong "status $status instead of $1: ${*:2}: $(cat err)"
}
holds() { grep -qF -- "$2" "$1" || wrong "$1 lacks: $2: $(head -c 400 "$1")"; }
is_empty() { [[ ! -s $1 ]] || wrong "$1 is not empty: $(head -c 400 "$1")"; }

# --- Usage
expect 0 "$wendrill" --version
holds out 'wendrill '
expect 0 "$wendrill" --help
holds out read
expect 0 "$wendrill" read --help
holds out --unordered
for words in '' 'nothing' 'read --out xml' 'read --kind nothing' 'read --out csv' 'read --out csv --kind air,names' \
  'read -j 0' 'read gone.txt' 'read --errors never' 'read --keys bag --out csv --kind original_issues'; do
  # shellcheck disable=SC2086 # the words are to be split
  expect 2 "$wendrill" $words </dev/null
  is_empty out
  [[ -s err ]] || wrong "no message for: $words"
done

# --- Reading
/usr/bin/python3 "$many" 3 --text >three.txt
expect 0 "$wendrill" read three.txt
[[ $(wc -l <out) == 3 ]] || wrong "three displays are $(wc -l <out) lines"
is_empty err # no progress where standard error is no terminal
holds out '"id":"three.txt#3","locator":"AAAAAC"'
expect 0 "$wendrill" read <three.txt
holds out '"id":"-#2"'
expect 0 "$wendrill" read --out json - <three.txt
/usr/bin/python3 -c 'import json, sys; sys.exit(len(json.load(open("out"))) != 3)' || wrong 'no array of three'
expect 0 "$wendrill" read --out json /dev/null
[[ $(tr -d '\n' <out) == '[]' ]] || wrong "no displays are no empty array: $(cat out)"
expect 0 "$wendrill" read --out csv --kind names three.txt
[[ $(wc -l <out) == 8 ]] || wrong "a heading and seven names are $(wc -l <out) lines"
mkdir -p folder/inner
cp three.txt folder/inner/
expect 0 "$wendrill" read folder three.txt
[[ $(wc -l <out) == 6 ]] || wrong 'a folder is not walked'

# --- Bad displays

printf 'NO HEADER\n\fRP/B\n' >bad.txt
expect 1 "$wendrill" read bad.txt
holds out '{"id":"bad.txt#1","error":{"row":1,"text":"no row begins with \"RP/\": this is no display of a PNR"}}'
[[ $(wc -l <out) == 2 ]] || wrong 'not one line for each display'
expect 1 "$wendrill" read --errors skip bad.txt
[[ $(wc -l <out) == 1 ]] || wrong 'a bad display is not skipped'
expect 1 "$wendrill" read --errors stop bad.txt
is_empty out
holds err 'bad.txt#1'
expect 1 "$wendrill" read --out csv --kind names bad.txt
holds err 'bad.txt#1'

# --- A closed pipe is no error, a full disk is one
/usr/bin/python3 "$many" 3000 >many.jsonl
status=0
{ "$wendrill" read many.jsonl 2>err || echo "$?" >status; } | head -n 1 >out
[[ ! -e status ]] || wrong "a closed pipe gives status $(cat status)"
is_empty err
if [[ -e /dev/full ]]; then
  "$wendrill" read many.jsonl >/dev/full 2>err || status=$?
  [[ $status == 1 ]] || wrong "a full disk gives status $status"
  holds err 'cannot be written'
fi

# --- Threads: as many lines as displays, in order, whatever the number of threads
/usr/bin/python3 "$many" "$displays" --broken 1 >input.jsonl
expect 1 "$wendrill" read -j 1 input.jsonl
mv out one
[[ $(wc -l <one) == "$displays" ]] || wrong "$displays displays are $(wc -l <one) lines"
[[ $(grep -c '"error"' one) == "$((displays / 100))" ]] || wrong "$((displays / 100)) broken displays are $(grep -c '"error"' one)"
expect 1 "$wendrill" read -j 2 --ordered input.jsonl
cmp one out || wrong 'the order depends on the threads'
expect 1 "$wendrill" read -j 2 --unordered input.jsonl
cmp <(sort one) <(sort out) || wrong 'unordered output has other lines'
expect 1 "$wendrill" read -j 3 --keys bag input.jsonl
[[ $(wc -l <out) == "$displays" ]] || wrong 'not a line for each display with the names of the library'

# --- The schema
expect 0 "$wendrill" schema
mv out schema.json
{ head -n 2000 one && grep '"error"' one; } | /usr/bin/python3 "$here/validate.py" schema.json >out || wrong "$(cat out)"
holds out "$((2000 + displays / 100)) lines validate"
"$wendrill" read --kind air,payments three.txt | /usr/bin/python3 "$here/validate.py" schema.json >out || wrong "$(cat out)"
echo '{"id":1,"locator":1}' | /usr/bin/python3 "$here/validate.py" schema.json >out 2>&1 && wrong 'the schema takes anything'

# --- A scenario
expect 1 "$wendrill" scenario three.txt bad.txt
holds err 'bad.txt#1'
holds out 'on_display = true'
/usr/bin/python3 -c 'import sys, tomllib
pnrs = tomllib.load(open("out", "rb"))["pnr"]
sys.exit(len(pnrs) != 4 or not pnrs[0]["on_display"] or "AAAAAC" not in pnrs[2]["display"])' || wrong 'no scenario of four PNRs'

# --- A transcript
printf '%s\n' '{"v":1,"kind":"run","script":"mine.vbs"}' '{"t":1,"n":1,"kind":"send","entry":"AN<","answered":false}' \
  '{"t":2,"n":2,"ki' >run.jsonl
expect 0 "$wendrill" transcript run.jsonl
mv out page
is_empty err
holds page '<h1>mine.vbs</h1>'
holds page '<code>AN&lt;</code> <strong>unanswered</strong>'
holds page 'Line 3 of the trace is no object of JSON and was skipped.'
for words in '' -; do
  # shellcheck disable=SC2086 # the word is to be left out
  expect 0 "$wendrill" transcript $words <run.jsonl
  cmp page out || wrong "standard input gives another page: transcript $words"
done
expect 0 "$wendrill" transcript /dev/null
holds out 'The trace has no events.'
expect 2 "$wendrill" transcript gone.jsonl
holds err 'gone.jsonl is not there'
expect 2 "$wendrill" transcript run.jsonl run.jsonl
expect 1 "$wendrill" transcript .
holds err '. cannot be read'
is_empty out
if [[ -e /dev/full ]]; then
  status=0
  "$wendrill" transcript run.jsonl >/dev/full 2>err || status=$?
  [[ $status == 1 ]] || wrong "a full disk gives status $status for a transcript"
  holds err 'cannot be written'
fi

exit "$failed"
