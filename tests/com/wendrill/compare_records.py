#!/usr/bin/env python3
"""Compares the records of wendrill with those that the library's accessors gave, key by key.

    compare_records.py RECORDS.jsonl DUMP.txt

RECORDS.jsonl is what wendrill read --keys bag wrote, DUMP.txt what dump_records.vbs printed. Of the kinds that count from
index 1 the accessors give an empty element at index 0 and cannot reach the last; wendrill gives each element once.
"""

import collections
import json
import sys

FROM_ONE = ("ATX", "SUR", "MCO", "* SP")
IN_HEAD = ("RecordLocator", "CreationOfficeID", "CreationAgentSign", "CreationDate")


def text_of(value):
    return "" if value is None else str(value)  # True and False as scripts write them


def records_of(pnr):
    """The lists of records under the members' names."""
    members = {name: value for name, value in pnr.items() if isinstance(value, list) and name != "warnings"}
    members.update(pnr["Elements"])
    members["PNRHeader"] = [pnr["PNRHeader"]]
    return members


def main(records, dump):
    pnrs = {}
    for line in open(records, encoding="utf-8"):
        pnr = json.loads(line)
        pnrs[pnr["RecordLocator"]] = pnr
    given = collections.defaultdict(lambda: collections.defaultdict(dict))
    counts = {}
    keys = 0
    for line in open(dump, encoding="utf-8"):
        locator, member, index, key, value = line.rstrip("\r\n").split("|", 4)
        keys += 1
        if not member:
            if text_of(pnrs[locator][key]) != value:
                sys.exit(f"{locator} {key}: {pnrs[locator][key]!r}, the library gives {value!r}")
        elif not index:
            counts[locator, member] = int(value)
        else:
            given[locator, member][int(index)][key] = value
    for locator, pnr in pnrs.items():
        members = records_of(pnr)
        dumped = {member for name, member in counts if name == locator}
        if set(members) != dumped:
            sys.exit(f"{locator}: members {sorted(set(members) ^ dumped)} are on one side alone")
        for member, list_of in members.items():
            ours = [{key: text_of(value) for key, value in record.items()} for record in list_of]
            theirs = [record for _, record in sorted(given[locator, member].items())]
            if member in FROM_ONE:
                if len(ours) != counts[locator, member]:
                    sys.exit(f"{locator} {member}: {len(ours)} records, the library counts {counts[locator, member]}")
                if theirs and any(value not in ("", "False") for value in theirs[0].values()):
                    sys.exit(f"{locator} {member}: index 0 is not empty: {theirs[0]}")
                ours, theirs = ours[:-1], theirs[1:]
            if ours != theirs:
                for number, (mine, other) in enumerate(zip(ours, theirs)):
                    if mine != other:
                        sys.exit(f"{locator} {member} {number}: {mine}\nthe library gives {other}")
                sys.exit(f"{locator} {member}: {len(ours)} records, the library gives {len(theirs)}")
    print(f"{len(pnrs)} PNRs, {keys} keys, all equal")
    return len(pnrs) < 6 or keys < 500


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
