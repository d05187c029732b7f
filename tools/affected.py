#!/usr/bin/env python3
"""What a change to these files asks for: affected.py BUILD FILE...

Prints the targets to lint on one line, and the test programs to build and run on the next: those of the rooms that the
files belong to, and of the rooms that lean on these directly by the table of docs/architecture.md. Files outside the
rooms and the tests, such as CMake's, concern all: then both lines read "all"."""

import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent / "checks"))
import architecture  # noqa: E402
import lint  # noqa: E402

DOCUMENTS = "documents"  # a label of tests without a program of their own


def room_of(file):
    """src/ROOM/..., tests/ROOM/..., simulator/...; None for any other."""
    parts = file.parts
    if parts[0] in ("src", "tests") and len(parts) > 2 and parts[1] != "support":
        return parts[1]
    return "simulator" if parts[0] == "simulator" else None


def affected(build, files):
    leans = architecture.table((lint.SOURCE / "docs/architecture.md").read_text())
    to_lint, to_test = set(), set()
    targets = lint.targets(build)
    for file in files:
        room = room_of(file)
        if file.suffix == ".md":
            to_test.add(DOCUMENTS)
            continue
        own = {t.name for t in targets if str(lint.SOURCE / file) in t.files} or {
            t.name for t in targets if t.folder == file.parent}  # a header belongs to the targets of its folder
        if room is None and not own or file.name == "CMakeLists.txt":
            return {"all"}, {"all"}
        to_lint |= own
        tested = {room} - {None}
        if file.parts[0] == "src":
            tested |= {other for other, uses in leans.items() if room in uses}
        to_test |= {t.name for t in targets if t.folder.parts[0] in ("tests", "fuzz") and t.name in own or
                    any(room_of(pathlib.Path(f).relative_to(lint.SOURCE)) in tested and "/tests/" in f for f in t.files)}
    return to_lint, to_test


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    files = [pathlib.Path(os.path.relpath(file, lint.SOURCE)) for file in sys.argv[2:]]
    for file in files:
        if not (lint.SOURCE / file).is_file():
            sys.exit(f"error: there is no file {file}")
    for names in affected(build, files):
        print(*sorted(names))


if __name__ == "__main__":
    main()
