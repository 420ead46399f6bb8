"""Validates the lines of traces with their JSON schema, and checks what a schema cannot say.

  validate_traces.py SCHEMA FILE...
  validate_traces.py SCHEMA --run PROGRAM [ARGUMENT...]

With --run the traces are those that a test program leaves in the folder named by WENDRILL_TRACES.
"""

import collections
import json
import os
import pathlib
import subprocess
import sys
import tempfile

import jsonschema


def check_order(lines):
    """What is wrong with the lines of one trace taken together, None for a good one."""
    if not lines or lines[0].get("kind") != "run":
        return "the first line is not of the kind run"
    last_time = 0
    with_screen = None
    for number, line in enumerate(lines[1:], start=1):
        if line["kind"] == "run" or line["n"] != number:
            return f"line {number} has the number {line.get('n')} and the kind {line['kind']}"
        if line["t"] < last_time:
            return f"the time goes back in line {number}"
        last_time = line["t"]
        if "screen" in line:
            with_screen = number
        if "same" in line and line["same"] != with_screen:
            return f"line {number} refers to line {line['same']}, and the last screen is in line {with_screen}"
        if line["kind"] == "end" and number != len(lines) - 1:
            return f"line {number} is not the last one"
    return None


def mistake_in(path, validator, kinds):
    text = path.read_bytes()
    if not text.endswith(b"\n"):
        return "the last line has no end"
    if b"\r" in text:
        return "there is a carriage return"
    lines = []
    for number, row in enumerate(text.decode("utf-8").split("\n")[:-1]):
        line = json.loads(row)
        error = jsonschema.exceptions.best_match(validator.iter_errors(line))
        if error is not None:
            return f"line {number}: {error.message}: {row[:300]}"
        kinds[line["kind"]] += 1
        lines.append(line)
    return check_order(lines)


def validate(paths, validator):
    failures = 0
    kinds = collections.Counter()
    for path in paths:
        wrong = mistake_in(path, validator, kinds)
        if wrong:
            failures += 1
            print(f"{path}: {wrong}")
    if not paths:
        print("there is no trace")
    elif not failures:
        print(f"{sum(kinds.values())} lines of {len(paths)} traces are valid: {', '.join(sorted(kinds))}")
    return failures != 0 or not paths


def main(schema_path, words):
    schema = json.loads(pathlib.Path(schema_path).read_text(encoding="utf-8"))
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    if words[:1] != ["--run"]:
        return validate([pathlib.Path(word) for word in words], validator)
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(words[1:], check=True, stdout=subprocess.DEVNULL, env=os.environ | {"WENDRILL_TRACES": folder})
        return validate(sorted(pathlib.Path(folder).glob("*.jsonl")), validator)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2:]))
