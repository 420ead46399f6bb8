"""A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.

    py -3-32 queue_to_csv.py ABC123 locators.txt >pnrs.csv

On a desktop with Quillet, the library registered; 32-bit Python with pywin32. An argument that is the name of a file
means the locators in it, one a line. The CSV (RFC 4180) goes to standard output, everything else to standard error.
A PNR that is not found is skipped; the status is 1 when an error ends the list, 2 without locators.
"""

import csv
import os
import sys

import pywintypes
from win32com.client import CastTo, Dispatch
from win32com.client.gencache import EnsureDispatch

COLUMNS = ["locator", "kind", "number", "what", "from", "to", "date", "departs", "arrives", "detail"]


def all_locators(words):
    lines = []
    for word in words:
        if os.path.isfile(word):
            with open(word, encoding="ascii", errors="replace") as file:
                lines += file.read().splitlines()
        else:
            lines.append(word)
    return [line.strip() for line in lines if line.strip()]


def bag_at(index):
    """A new bag for each call: a member leaves there what an earlier call has put."""
    bag = Dispatch("Scripting.Dictionary")
    bag.Add("intKeyIndex", index)
    return bag


def value(bag, key):
    """The value under a key; nothing when the member did not put one. Reading a missing key would add it."""
    return str(bag.Item(key)) if bag.Exists(key) else ""


def element(pnr, kind, index):
    bag = bag_at(index)
    bag.Add("strKeyPNRElement", kind)
    CastTo(pnr, "_IGetPNR").Elements(bag)  # returns the bag too, because it is passed by reference
    return bag


def belonging(bag):
    segment = value(bag, "strKeySegAsso")
    passenger = value(bag, "strKeyPasAsso")
    return joined("segment " + segment if segment else "", "passenger " + passenger if passenger else "")


def joined(*values):
    """The values that are not empty, with blanks between them."""
    return " ".join(text for text in values if text)


def names(pnr, locator):
    for index in range(pnr.NameElementsCount):
        bag = bag_at(index)
        CastTo(pnr, "_IGet").NameElement(bag)
        yield [locator, "name", value(bag, "strKeyElementNr"),
               value(bag, "strKeyLastName") + "/" + value(bag, "strKeyInitial"), "", "", "", "", "",
               value(bag, "strKeyPapType")]


def segments(pnr, locator):
    """Flights have times when they are neither open nor flown."""
    for index in range(pnr.AllAirSegmentsCount):
        bag = bag_at(index)
        CastTo(pnr, "_IGet").AllAirSegments(bag)
        yield [locator, "segment", value(bag, "strKeySegmentNr"),
               value(bag, "strKeyAirline") + " " + value(bag, "strKeyNumber"), value(bag, "strKeyDepCity"),
               value(bag, "strKeyArrCity"), value(bag, "strKeyDepDate"), value(bag, "strKeyDepTime"),
               value(bag, "strKeyArrTime"), "class " + value(bag, "strKeyClass")]


def tickets(pnr, locator):
    for index in range(pnr.AutoTktElementsCount):
        bag = element(pnr, "FA", index)
        yield [locator, "ticket", value(bag, "strKeyElementNr"), value(bag, "strKeyTktNbr"), "", "", "", "", "",
               belonging(bag)]


def services(pnr, locator):
    for index in range(pnr.SpecialServiceElementsCount):
        bag = element(pnr, "SSR", index)
        yield [locator, "service", value(bag, "strKeyElementNr"), value(bag, "strKeyCode"), "", "", "", "", "",
               joined(value(bag, "strKeyAirline"), value(bag, "strKeyStatus"), belonging(bag))]


def rows_of(locator):
    """All rows of a PNR at once: one that cannot be read to its end leaves no half of it."""
    pnr = EnsureDispatch("Wendrill23.CPNR")  # a new one for each PNR: it keeps the creation line
    return [*names(pnr, locator), *segments(pnr, locator), *tickets(pnr, locator), *services(pnr, locator)]


def failure(error):
    """The number that the documentation names, and the message."""
    told = error.excepinfo
    status = (told[5] if told and told[5] else error.hresult) & 0xFFFFFFFF
    number = status & 0xFFFF if status >> 16 == 0x800A else status
    return number, told[2] if told and told[2] else error.strerror


def main(words):
    locators = all_locators(words)
    if not locators:
        print("Name record locators, or a file with one on each line.", file=sys.stderr)
        return 2
    place = ""
    try:
        quillet = EnsureDispatch("Wendrill23.CQuillet")  # connects to the running session
        output = csv.writer(sys.stdout, lineterminator="\n")
        output.writerow(COLUMNS)
        for locator in locators:
            place = f" in PNR {locator}"
            if quillet.RetrieveRecLoc(locator):
                output.writerows(rows_of(locator))
            else:
                print(f"There is no PNR {locator}.", file=sys.stderr)
    except pywintypes.com_error as error:
        number, message = failure(error)
        print(f"Error {number}{place}: {message}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
