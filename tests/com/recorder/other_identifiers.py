#!/usr/bin/env python3
"""Copies an interface definition with identifiers of its own: another terminal's, whose classes have the same names.

  other_identifiers.py IDL OUTPUT

The identifiers that the library matches are the same in every terminal, and so are those of the bag's entries, whose
slots the library calls.
"""

import re
import sys
import uuid
from pathlib import Path

SAME = ("Identity to match", "An entry of a parameter bag")
IDENTIFIER = re.compile(r"uuid\(([0-9A-Fa-f-]{36})\)")


def other(match):
    return f"uuid({str(uuid.uuid5(uuid.NAMESPACE_OID, match.group(1))).upper()})"


def main(source, output):
    lines = Path(source).read_text(encoding="utf-8").splitlines(keepends=True)
    result = []
    is_same = False
    for line in lines:
        is_same = is_same or any(mark in line for mark in SAME)
        result.append(line if is_same else IDENTIFIER.sub(other, line))
        if IDENTIFIER.search(line):
            is_same = False
    Path(output).write_text("".join(result), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
