"""Every program and DLL can be unwound from each place in it.

    frames_test.py FILE...

GCC moves what is seldom run of a function into a part of its own, which may become empty. The description of an empty part
begins where the next part does, and the unwinder, which looks for descriptions by bisection, may then miss the one of the
next part: an exception that passes there ends the process. No description may be empty.
"""
import struct
import sys
from pathlib import Path

SECTION = b".eh_fram"  # eight characters are all that a section's name has here
CIE = 0
POINTER = struct.Struct("<i")  # a signed distance from its own place
ENCODED_AS_DISTANCE = 0x1B


def section(image):
    """Contents of the section, and the address that it has in memory."""
    header = struct.unpack_from("<I", image, 0x3C)[0]
    count = struct.unpack_from("<H", image, header + 6)[0]
    table = header + 24 + struct.unpack_from("<H", image, header + 20)[0]
    for start in range(table, table + 40 * count, 40):
        name, size, address, stored, place = struct.unpack_from("<8sIIII", image, start)
        if name == SECTION or long_name(image, header, name) == ".eh_frame":
            return image[place : place + min(size, stored)], address
    return None


def long_name(image, header, name):
    """A name like "/4" is an offset into the table of strings behind the symbols."""
    if not name.startswith(b"/"):
        return ""
    symbols, count = struct.unpack_from("<II", image, header + 12)
    start = symbols + 18 * count + int(name[1:].rstrip(b"\0"))
    return image[start : image.index(b"\0", start)].decode()


def encoding_of(entry):
    """How addresses are encoded that the descriptions of this common part contain."""
    end = entry.index(b"\0", 5)
    letters = entry[5:end].decode()
    at = end + 1
    for _ in range(2):  # alignment factors of code and data
        while entry[at] & 0x80:
            at += 1
        at += 1
    at += 2  # register of the return address, size of what follows: one byte each
    for letter in letters[1:]:
        if letter == "R":
            return entry[at]
        at += 5 if letter == "P" else 1
    return 0


def descriptions(frames, address):
    """(begin, size) of each part of a function, addresses in memory."""
    at = 0
    encodings = {}
    while at + 4 <= len(frames):
        length = struct.unpack_from("<I", frames, at)[0]
        if length == 0:
            at += 4
            continue
        entry = frames[at + 4 : at + 4 + length]
        common = struct.unpack_from("<I", entry)[0]
        if common == CIE:
            encodings[at] = encoding_of(entry)
        else:
            encoding = encodings[at + 4 - common]
            if encoding != ENCODED_AS_DISTANCE:
                raise SystemExit(f"addresses are encoded as {encoding:#x}, which this test cannot read")
            begin = POINTER.unpack_from(entry, 4)[0] + address + at + 8
            yield begin, struct.unpack_from("<I", entry, 8)[0]
        at += 4 + length


def main(paths):
    failed = False
    for path in paths:
        found = section(Path(path).read_bytes())
        parts = list(descriptions(*found)) if found else []
        empty = [begin for begin, size in parts if size == 0]
        print(f"{Path(path).name}: {len(parts)} parts of functions, {len(empty)} empty")
        for begin in empty:
            print(f"  an empty part begins at {begin:#x}")
        failed = failed or not parts or bool(empty)
    return failed


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
