#!/usr/bin/env python3
"""How many displays wendrill reads in a second, beside its goal, two threads beside one, the library's own members, and
the template parser of script authors.

    wendrill_bench.py WENDRILL ACCESSORS TEMPLATE ROWS.json

ACCESSORS is the program accessor_bench. TEMPLATE cuts names and air segments out of a display, and nothing else. The
displays are those of the scenarios in turn: 8, 25 and 58 rows. One and two threads take turns, five times; of each the
best counts.
"""

import json
import pathlib
import resource
import subprocess
import sys
import tempfile
import time

import textfsm

DISPLAYS = 30000
FEW = 3000  # for what takes longer
TURNS = 5
GOAL = 20000  # displays a second and core
MOST_MEGABYTES = 100
MANY = pathlib.Path(__file__).parent.parent / "tests/tool/many_displays.py"


def many(count, path):
    with open(path, "w") as file:
        subprocess.run([sys.executable, MANY, str(count)], stdout=file, check=True)


def seconds(command):
    start = time.perf_counter()
    subprocess.run(command, stdout=subprocess.DEVNULL, check=True)
    return time.perf_counter() - start


def parsed_per_second(template, path):
    with open(template) as file:
        parser = textfsm.TextFSM(file)
    displays = [json.loads(line)["display"] for line in open(path)]
    start = time.perf_counter()
    records = 0
    for display in displays:
        parser.Reset()
        records += len(parser.ParseText(display))
    took = time.perf_counter() - start
    if records < 3 * len(displays):
        sys.exit(f"wendrill_bench: the template finds {records} records in {len(displays)} displays")
    return len(displays) / took


def main(wendrill, accessors, template, rows):
    with tempfile.TemporaryDirectory() as folder:
        large, small = f"{folder}/large.jsonl", f"{folder}/small.jsonl"
        many(DISPLAYS, large)
        many(FEW, small)
        best = {"1": float("inf"), "2": float("inf")}
        for _ in range(TURNS):
            for threads in best:
                best[threads] = min(best[threads], seconds([wendrill, "read", "-j", threads, large]))
        megabytes = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
        one, two = DISPLAYS / best["1"], DISPLAYS / best["2"]
        members = float(subprocess.run([accessors, small], stdout=subprocess.PIPE, check=True).stdout)
        parsed = parsed_per_second(template, small)
    per_second = "displays/s"
    pathlib.Path(rows).write_text(json.dumps([
        {"what": "wendrill read, one thread", "beside": "the goal", "unit": per_second, "ours": one,
         "reference": GOAL, "at_least": 1},
        {"what": "wendrill read, two threads", "beside": "one thread", "unit": per_second, "ours": two,
         "reference": one, "at_least": 1.6},
        {"what": "wendrill read, one thread", "beside": "every member and index of the library's core",
         "unit": per_second, "ours": one, "reference": members, "at_least": 1},
        {"what": "wendrill read, one thread", "beside": "python3-textfsm, names and air segments alone",
         "unit": per_second, "ours": one, "reference": parsed},
        {"what": "wendrill read, memory", "beside": "the limit", "unit": "MB", "ours": megabytes,
         "reference": MOST_MEGABYTES, "at_most": 1},
    ]) + "\n")


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    main(*sys.argv[1:])
