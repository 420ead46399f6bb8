#!/usr/bin/env python3
"""Writes displays without end that look like those of the scenarios, as JSON Lines or as text.

    many_displays.py COUNT [--broken PERCENT] [--text]

Locators count up, so that the order of what comes out can be checked. A broken display has a row that is too wide, no
header, or (in JSON Lines) is no JSON.
"""

import json
import pathlib
import sys
import tomllib

HAND_WRITTEN = pathlib.Path(__file__).parent.parent / "unit/derive/hand_written"


def displays():
    for name in ("built_in", "rich_pnr", "group_pnr"):
        with open(HAND_WRITTEN / f"{name}.toml", "rb") as file:
            pnr = tomllib.load(file)["pnr"][0]
        yield pnr["display"], pnr["RecordLocator"]


def locator_of(number):
    letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    text = ""
    for _ in range(6):
        number, letter = divmod(number, 26)
        text = letters[letter] + text
    return text


def broken(display, number):
    if number % 2:
        return display.replace("RP/", "XX/")
    return display + "  1 RM " + "X" * 80 + "\n"


def main(count, percent, is_text):
    originals = list(displays())
    write = sys.stdout.write
    for number in range(count):
        display, locator = originals[number % len(originals)]
        display = display.replace(locator, locator_of(number))
        is_broken = percent and number % 100 < percent
        if is_broken:
            display = broken(display, number // 100)
        if is_text:
            write(display + "\n")
        elif is_broken and number // 100 % 3 == 2:
            write('{"id":%d,"display":"RP/\n' % number)
        else:
            write(json.dumps({"id": number, "display": display}) + "\n")


if __name__ == "__main__":
    words = sys.argv[1:]
    share = int(words[words.index("--broken") + 1]) if "--broken" in words else 0
    main(int(words[0]), share, "--text" in words)
