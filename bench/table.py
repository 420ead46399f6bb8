#!/usr/bin/env python3
"""Prints the rows of several benchmark programs as one table.

    table.py ALL.json ROWS.json...

Each ROWS.json is a list of rows: what was measured, beside what, the unit, our figure and the reference's, and perhaps
the limit that their ratio has to keep, "at_most" or "at_least". ALL.json receives all rows with their ratios. The exit
status is 1 when a limit is not kept.
"""

import json
import pathlib
import sys


def with_ratio(row):
    ratio = row["ours"] / row["reference"]
    kept = row.get("at_least", 0) <= ratio <= row.get("at_most", float("inf"))
    return {**row, "ratio": ratio, "kept": kept}


def figure(number):
    return f"{number:,.0f}" if number >= 1000 else f"{number:.4g}"


def limit(row):
    if "at_most" in row:
        text = f"at most {row['at_most']:g}"
    elif "at_least" in row:
        text = f"at least {row['at_least']:g}"
    else:
        return ""
    return text if row["kept"] else text + "  NOT KEPT"


def print_table(rows):
    columns = [("", "unit", "ours", "reference", "ratio", "limit", "the reference is")]
    for row in rows:
        columns.append((row["what"], row["unit"], figure(row["ours"]), figure(row["reference"]),
                        figure(row["ratio"]), limit(row), row["beside"]))
    widths = [max(len(line[column]) for line in columns) for column in range(len(columns[0]))]
    for line in columns:
        cells = [cell.rjust(width) if 2 <= column <= 4 else cell.ljust(width)
                 for column, (cell, width) in enumerate(zip(line, widths))]
        print("  ".join(cells).rstrip())


def main(everything, *parts):
    rows = [with_ratio(row) for part in parts for row in json.loads(pathlib.Path(part).read_text())]
    pathlib.Path(everything).write_text(json.dumps(rows, indent=1) + "\n")
    print_table(rows)
    return 0 if all(row["kept"] for row in rows) else 1


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
