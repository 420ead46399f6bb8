#!/usr/bin/env python3
"""How many lines of a PNR's display the template parser of script authors takes in a millisecond, beside our scan.

    textfsm_bench.py TEMPLATE SCAN ROWS.json

TEMPLATE cuts the special service requests out of a display, one of the files that the scanners are tested with; beside it
are the records that are expected, and the parser is measured only when it finds the same. SCAN is the program
special_service_bench, which measures the scan of the same display. Parser and scan take turns; of each the best
counts.
"""

import json
import pathlib
import subprocess
import sys
import time

import textfsm

DISPLAY = pathlib.Path(__file__).parents[2] / "tests/unit/scan/displays/SpecialServiceElements/pnr_of_a_family.txt"
COPIES = 50
TURNS = 5
ROUNDS = 5  # in a turn
AT_LEAST = 100  # times the parser's lines


def records_of(path):
    """The records of a file: a dictionary of the entries that are not empty for each."""
    records = []
    for line in path.read_text().splitlines():
        if line.startswith("index "):
            records.append({})
        elif " = " in line:
            key, value = line.split(" = ", 1)
            records[-1][key] = value.strip('"')
    return records


def as_record(found):
    """A parsed row in the keys of the records; what is empty is left out."""
    seats = found["SeatNbr"]
    record = {
        "strKeyElement": " ".join(found["Element"]),
        "strKeyElementNr": found["ElementNr"],
        "strKeyStatus": found["Status"],
        "strKeyPasAsso": ",".join(found["SeatPassenger"]) or found["PasAsso"],
        "strKeySegAsso": found["SegAsso"],
        "strKeyCode": found["Code"],
        "strKeyAirline": found["Airline"],
        "strKeyFFNnumber": found["FFNnumber"],
        "strKeyFreeText": " ".join(found["FreeText"]),
        "strKeySeatNbr": ",".join(seats),
        "blnKeySeat": "True" if seats else "",
        "blnKeyAsterix": "True" if found["Asterix"] else "",
    }
    return {key: value for key, value in record.items() if value}


def require_same(parser, display, expected):
    parser.Reset()
    found = [as_record(row) for row in parser.ParseTextToDicts(display)]
    for number, (ours, theirs) in enumerate(zip(expected, found)):
        if ours != theirs:
            sys.exit(f"textfsm_bench: record {number} should be {ours}, the template finds {theirs}")
    if len(expected) != len(found):
        sys.exit(f"textfsm_bench: there should be {len(expected)} records, the template finds {len(found)}")


def lowest_seconds(work):
    lowest = float("inf")
    for _ in range(ROUNDS):
        start = time.process_time()
        work()
        lowest = min(lowest, time.process_time() - start)
    return lowest


def lines_per_ms_of_scan(program):
    options = ["--benchmark_format=json", "--benchmark_min_time=0.05", f"--benchmark_repetitions={ROUNDS}"]
    told = subprocess.run([program, *options], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout
    runs = [run for run in json.loads(told)["benchmarks"] if run["run_type"] == "iteration"]
    for run in runs:
        if run.get("error_occurred"):
            sys.exit(f"textfsm_bench: {program}: {run['error_message']}")
    return max(run["items_per_second"] for run in runs) / 1000


def main(template, scan, rows):
    with open(template) as file:
        parser = textfsm.TextFSM(file)
    text = DISPLAY.read_text().split("\n", 1)[1]  # the first line tells the form of the others
    require_same(parser, text, records_of(DISPLAY.with_suffix(".records")))
    text *= COPIES

    def parse():
        parser.Reset()
        parser.ParseText(text)

    lines = text.count("\n")
    ours = theirs = 0
    for _ in range(TURNS):
        ours = max(ours, lines_per_ms_of_scan(scan))
        theirs = max(theirs, lines / lowest_seconds(parse) / 1000)
    row = {
        "what": "special service scan, a family's PNR",
        "beside": "python3-textfsm, the same fields",
        "unit": "lines/ms",
        "ours": ours,
        "reference": theirs,
        "at_least": AT_LEAST,
    }
    pathlib.Path(rows).write_text(json.dumps([row]) + "\n")


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
