#!/usr/bin/env python3
"""Checks the links between the documents; run from the top folder.

  link_rule.py FILE.md...

Each relative link names a file or folder that is there, and its #fragment a heading of that document. Prints one line for
each link that does not; the exit status is 1 then, and also when there is no link at all.
"""

import re
import sys
from pathlib import Path

LINK = re.compile(r"(?<!!)\[(?:[^\[\]]|\[[^\]]*\])*\]\(([^()\s]+)\)|!\[[^\]]*\]\(([^()\s]+)\)")


def lines_of(path):
    """The lines outside fenced blocks, with their numbers."""
    fenced = False
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
        if line.startswith("```"):
            fenced = not fenced
        elif not fenced:
            yield number, line


def anchors_of(path):
    """Headings as they become addresses: small letters, blanks as hyphens, without punctuation; a repeated one counts."""
    anchors = set()
    for _, line in lines_of(path):
        heading = re.match(r"#+ +(.*?) *#*$", line)
        if heading:
            text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading[1])
            name = base = re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-")
            repeated = 0
            while name in anchors:
                repeated += 1
                name = f"{base}-{repeated}"
            anchors.add(name)
    return anchors


def links_of(path):
    for number, line in lines_of(path):
        for match in LINK.finditer(line):
            before = line[:match.start()]
            if before.count("`") % 2 == 0:  # not inside inline code
                yield number, match[1] or match[2]


def fault(path, link):
    target, _, fragment = link.partition("#")
    file = path.parent / target if target else path
    if not file.exists():
        return f"{target} is not there"
    if fragment and fragment not in (anchors_of(file) if file.suffix == ".md" else ()):
        return f"there is no heading for #{fragment}"
    return None


def main(paths):
    checked = failed = 0
    for path in map(Path, paths):
        for number, link in links_of(path):
            if re.match("[a-z]+:", link):
                continue  # of another site
            checked += 1
            message = fault(path, link)
            if message:
                print(f"{path}:{number}: {link}: {message}")
                failed += 1
    if checked == 0:
        print("no links were found")
    return 1 if failed or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
