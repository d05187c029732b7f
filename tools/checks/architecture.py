#!/usr/bin/env python3
"""Checks what each room includes and links against the table of docs/architecture.md, and the forms of reports against
those of docs/protocol.md: architecture.py SOURCE_FOLDER"""

import pathlib
import re
import sys

ROW = re.compile(r"^\| `([a-z]+)` \| .* \| ([^|]*) \|$", re.MULTILINE)
INCLUDE = re.compile(r'^ *# *include +(?:<(Q)|"([^"/]+)/)', re.MULTILINE)
LINK = re.compile(r"lumbra_([a-z]+)|(Qt6)::")


def table(page):
    """The rooms, each with the rooms that it may use; "Qt" stands for itself."""
    return {room: set(re.findall(r"`([a-z]+)`", uses)) | {room} | ({"Qt"} if "Qt" in uses else set())
            for room, uses in ROW.findall(page)}


def violations(source):
    rooms = table((source / "docs/architecture.md").read_text())
    for folder in (source / "src").iterdir():
        if folder.is_dir() and folder.name not in rooms:
            yield f"{folder} is not in the table"
    # A mistake in the protocol must not be made in the simulated unit too.
    if rooms["simulator"] != {"simulator", "system", "Qt"}:
        yield "the simulator uses the application's rooms"
    for room, allowed in rooms.items():
        folder = source / "simulator" if room == "simulator" else source / "src" / room
        for file in [*folder.rglob("*.h"), *folder.rglob("*.cpp"), folder / "CMakeLists.txt"]:
            for qt, used in (LINK if file.suffix == ".txt" else INCLUDE).findall(file.read_text()):
                qt, used = (used, qt) if file.suffix == ".txt" else (qt, used)
                if (used in rooms and used not in allowed) or (qt and "Qt" not in allowed):
                    yield f"{file}: {room} may not use {used or 'Qt'}"


def forms(source):
    """The forms that only the code has, or only the page."""
    code = "".join(file.read_text() for file in (source / "src/protocol").glob("*Messages.*"))
    return set(re.findall(r'(?<=["(])U#.+?(?=(?:\)"|(?<!\*)"),)', code)) ^ set(
        re.findall(r"`(U#.+?)` \|", (source / "docs/protocol.md").read_text()))


def main():
    root = pathlib.Path(sys.argv[1])
    found = [*violations(root), *(f"only in the code, or only in protocol.md: {form}" for form in forms(root))]
    sys.exit("\n".join(found) or 0)


if __name__ == "__main__":
    main()
