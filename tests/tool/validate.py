#!/usr/bin/env python3
"""Validates each line of standard input against a JSON schema.

    validate.py SCHEMA.json

Prints how many lines there were; the exit status is 1 when one does not validate, or when there is none.
"""

import json
import sys

import jsonschema


def main(path):
    with open(path) as file:
        schema = json.load(file)
    jsonschema.Draft202012Validator.check_schema(schema)
    good, bad = schema["oneOf"]
    validators = {False: jsonschema.Draft202012Validator(good), True: jsonschema.Draft202012Validator(bad)}
    lines = 0
    for line in sys.stdin:
        lines += 1
        value = json.loads(line)
        for error in validators["error" in value].iter_errors(value):
            sys.exit(f"line {lines}: {error.json_path}: {error.message}")
    print(f"{lines} lines validate")
    return lines == 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
