"""Validates scenario files with the project's JSON schema.

  validate.py accepts|rejects ROOT

accepts: every scenario of the clone is valid, and its #:schema line, if it has one, names the schema.
rejects: no file under tests/schema/broken is.
"""

import datetime
import json
import pathlib
import sys
import tomllib

import jsonschema


def plain(value):
    """A TOML value as JSON has it: dates and times are strings."""
    if isinstance(value, dict):
        return {key: plain(item) for key, item in value.items()}
    if isinstance(value, list):
        return [plain(item) for item in value]
    if isinstance(value, (datetime.date, datetime.time)):
        return value.isoformat()
    return value


def mistake_in(path, validator):
    """What is wrong with a file, None for a good one."""
    document = plain(tomllib.loads(path.read_text(encoding="utf-8")))
    error = jsonschema.exceptions.best_match(validator.iter_errors(document))
    return None if error is None else f"{'/'.join(map(str, error.absolute_path))}: {error.message}"


def wrong_schema_line(path, schema_path, needed):
    """What is wrong with the line that names the schema to editors."""
    first = path.read_text(encoding="utf-8").split("\n", 1)[0]
    if not first.startswith("#:schema "):
        return "the first line names no schema" if needed else None
    named = path.parent / first.removeprefix("#:schema ").strip()
    return None if named.resolve() == schema_path.resolve() else f"{named} is not the schema"


def main(expected, root):
    schema_path = root / "docs" / "scenario.schema.json"
    schema = json.loads(schema_path.read_text(encoding="utf-8"))
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    shipped = sorted((root / "simulator" / "scenarios").glob("*.toml")) + sorted((root / "samples").rglob("*.toml"))
    broken = sorted((root / "tests" / "schema" / "broken").glob("*.toml"))
    failures = 0
    if expected == "accepts":
        files = shipped + sorted(path for path in (root / "tests" / "com").rglob("*.toml") if not path.stem.startswith("broken"))
        for path in files:
            wrong = mistake_in(path, validator) or wrong_schema_line(path, schema_path, path in shipped)
            if wrong:
                failures += 1
                print(f"{path}: {wrong}")
    else:
        files = broken
        for path in files:
            if mistake_in(path, validator) is None:
                failures += 1
                print(f"{path} is accepted")
    if not failures:
        print(f"{len(files)} files are as expected")
    return failures != 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], pathlib.Path(sys.argv[2])))
