"""Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not fetched.

    py -3-32 find_in_pages.py [TEXT [ENTRY]]

On a desktop with Quillet, the library registered; 32-bit Python with pywin32. Without arguments: a flight in an
availability display of the simulator. The members that collect pages fetch all of them; here each page is an entry of
its own, MD. An error goes to standard error, and the status is 1.
"""

import re
import sys

import pywintypes
from win32com.client.gencache import EnsureDispatch

PAGE_NUMBERS = re.compile(r">(?: *PAGE)? *([0-9]+) */ *([0-9]+) *$")  # ">   PAGE  1/ 3" or ")> 1/ 3"


def page_of(quillet, entry):
    """Sends an entry, waits for the host's answer and cuts it into rows: it is one text of rows of the screen's width,
    without line breaks."""
    text = quillet.SendCommandNoClear(entry)
    columns = quillet.LastNumberOfColumns or 80
    return [text[start:start + columns] for start in range(0, len(text), columns)]


def row_with(page, text):
    """The first row that holds the text, without the blanks around it; empty when there is none."""
    return next((row.strip(" ") for row in page if text in row), "")


def goes_on(page):
    """Whether more pages follow: the last row with text begins with "MORE", or has a page number below the last one."""
    last = next((row for row in reversed(page) if row.strip(" ")), "")
    numbers = PAGE_NUMBERS.search(last)
    return last.startswith("MORE") or (numbers is not None and int(numbers[1]) < int(numbers[2]))


def find(text, entry):
    quillet = EnsureDispatch("Wendrill23.CQuillet")  # connects to the running session
    print(">", entry)
    page = page_of(quillet, entry)
    number = 1
    while not row_with(page, text) and goes_on(page):
        print(f"Page {number}: not there")
        page = page_of(quillet, "MD")
        number += 1
    row = row_with(page, text)
    if not row:
        print(f"Page {number}: not there, and this is the last one")
    elif goes_on(page):
        print(f"Page {number}: {row}")
        print("The pages after it were not fetched.")
    else:
        print(f"Page {number}, the last one: {row}")


def failure(error):
    """The number that the documentation names, and the message."""
    told = error.excepinfo
    status = (told[5] if told and told[5] else error.hresult) & 0xFFFFFFFF
    number = status & 0xFFFF if status >> 16 == 0x800A else status
    return number, told[2] if told and told[2] else error.strerror


def main(text="AF 123", entry="AN20JUNNCEPAR"):
    try:
        find(text, entry)
    except pywintypes.com_error as error:
        number, message = failure(error)
        print(f"Error {number}: {message}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
