#!/usr/bin/env bash
# wendrill as a filter of engines: what docs/wendrill.md says of GNU parallel and DuckDB.
#
#   scale_test.sh WENDRILL CLONE NODE_MODULES
#
# Prints "passed NAME" or "FAILED NAME" for each; the exit status is 1 when one failed.

set -euo pipefail
export LC_ALL=C.UTF-8
wendrill=$1
clone=$2
modules=$3
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
cd -- "$work"
failed=0

tell() {
  if [[ $1 == 0 ]]; then
    echo "passed $2"
  else
    echo "FAILED $2"
    failed=1
  fi
}

# --- GNU parallel
same_as_alone() { cmp <(sort alone) <(sort out); }
/usr/bin/python3 "$clone/tests/tool/many_displays.py" 6000 >displays.jsonl
"$wendrill" read -j 1 displays.jsonl >alone
parallel --will-cite --pipepart --block 1M -a displays.jsonl "$wendrill" read -j 1 >out
status=0
same_as_alone || status=1
tell "$status" parallel.JsonLines

# A text has numbers of its own in each part, so the locators are compared.
locators() { grep -o '"locator":"[A-Z0-9]*"' "$1" | sort; }
/usr/bin/python3 "$clone/tests/tool/many_displays.py" 6000 --text >displays.txt
parallel --will-cite --pipepart --block 1M --recend '\n\n' -a displays.txt "$wendrill" read -j 1 >out
status=0
cmp <(locators alone) <(locators out) || status=1
tell "$status" parallel.Text

# --- DuckDB
# Of three displays in turn each has the flown, timed and open segments of its airlines; a gap in the journey has none.
mkdir folder
/usr/bin/python3 "$clone/tests/tool/many_displays.py" 3 --text >folder/three.txt
"$wendrill" read folder --out jsonl | NODE_PATH=$modules node "$clone/tests/scale/query.js" \
  "select segment.airline as airline, count(*)::int as segments from (select unnest(air) as segment
   from read_json('/dev/stdin', format = 'newline_delimited')) where segment.airline is not null group by all order by all" >out
status=0
diff - out <<'ROWS' || status=1
AF,11
SK,1
ROWS
tell "$status" duckdb.SegmentsByAirline

exit "$failed"
