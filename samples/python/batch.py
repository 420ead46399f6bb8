"""Entries that wait in a queue, sent as one batch; the host refuses one of them.

    py -3-32 batch.py

On a desktop with Quillet, the library registered; 32-bit Python with pywin32. A batch joins the entries with ";" and
sends them in as few host entries as they need, at most 239 characters at a time. Its report numbers these host entries
from 1 and says which of them the host refused. An error goes to standard error, and the status is 1.
"""

import sys

import pywintypes
from win32com.client import Dispatch
from win32com.client.gencache import EnsureDispatch

NOT_QUEUED = 2400  # whatever keeps an entry out of the queue


def filled_queue():
    queue = EnsureDispatch("Wendrill23.CQueue")
    queue.Add("RM PAID BY CARD AT THE DESK")
    queue.Add("RM WINDOW SEATS WANTED", "seats")  # an entry may have a key
    queue.Add("ER", "end")
    queue.Add("RUBBISH")  # "RU" begins a host entry; the host does not understand this one
    add_once(queue, "ET", "END")
    return queue


def add_once(queue, entry, key):
    """A key that is there already, whatever its case, is an error."""
    try:
        queue.Add(entry, key)
    except pywintypes.com_error as error:
        if failure(error)[0] != NOT_QUEUED:
            raise
        print(f"{entry} is not queued: there is an entry under its key, {queue.Item(key).Command}")


def send(queue):
    for position in range(1, queue.Count + 1):
        print(">", queue.Item(position).Command)

    batch = EnsureDispatch("Wendrill23.CBatch")
    report = Dispatch("Scripting.Dictionary")  # a bag, filled by the call
    batch.Commands = queue
    batch.SubmitWithResponse(report)

    for number, response in enumerate(report.Item("strKeyResponseArray"), start=1):
        print(f"{number}: {response[:80].rstrip(' ')}")
    if report.Item("blnKeyResponseOK"):
        print("The host accepted everything.")
    else:
        print("Refused: host entry", report.Item("strKeyErr"))


def failure(error):
    """The number that the documentation names, and the message."""
    told = error.excepinfo
    status = (told[5] if told and told[5] else error.hresult) & 0xFFFFFFFF
    number = status & 0xFFFF if status >> 16 == 0x800A else status
    return number, told[2] if told and told[2] else error.strerror


def main():
    try:
        send(filled_queue())
    except pywintypes.com_error as error:
        number, message = failure(error)
        print(f"Error {number}: {message}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
