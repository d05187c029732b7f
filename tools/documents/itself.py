#!/usr/bin/env python3
"""What run.py finds wrong: itself.py SOURCE_FOLDER REMOTE_PROGRAM SIMULATOR_PROGRAM"""

import contextlib
import io
import pathlib
import shutil
import sys
import tempfile

sys.dont_write_bytecode = True  # into the sources
import run  # noqa: E402

# A page, and a part of what is said about it; an empty one for a page that is right.
CASES = [
    ("```sh\nfalse | true\n```", "ends with status 1"),
    ("```sh\necho a\necho b\n```\n\n```text\nb\n```", "prints\na\nb"),
    ("```sh\necho a; echo b; echo b2\n```\n```text\n...\nb...\n```", ""),
    ("```sh\necho /home/you $HOME | fold -w 9\n```\n```text\nb\n```", "prints\n/home/you"),
    ("```sh\n./dev fly\n```", "./dev knows no ['fly']"),
    ("```sh\nsudo true; lumbra-unit-sim --fly\n```", "lumbra-unit-sim has no --fly"),
    ("`lumbra-remote --fly`", "lumbra-remote has no --fly"),
    ("```sh\nlumbra-remote --demo --settings /proc/version  # a window\n```", "can't be read"),
    ("```sh\nlumbra-unit-sim --port 99999\n```", "ended with status 2"),
    ("```sh\nlumbra-unit-sim --port 2323\n```\n```sh\nlumbra-remote --console --connect-to example.com:2323 <<'E'\nwait open\nE\n```", ""),
    ("```console\n$ lumbra-remote --console --demo\n...\nzone> tab fly\nok\n```", "error: fly"),
    ("```crontab\n0 23 * * * exit 3\n```", "ends with status 3"),
    ("```python\nraise SystemExit(4)\n```", "ends with status 4"),
    ("```python a.py\n```", "nothing uses a.py"),
    ("```json\n{]\n```", "Expecting"),
    ("```\nls\n```", "a block of the kind ''"),
    ("    $ ls", "a command in an indented block"),
    ("[a](b.md) [c](#d)", "no such heading: #d"),
]


def main(source, remote, simulator, wrong=0):
    for text, sentence in CASES:
        said = io.StringIO()
        with tempfile.TemporaryDirectory(prefix="lumbra-test-") as folder, contextlib.redirect_stderr(said):
            shutil.copy(pathlib.Path(source) / "dev", folder)
            (pathlib.Path(folder) / "page.md").write_text(text + "\n")
            failed = run.main(folder, "page.md", remote, simulator)
        if failed != bool(sentence) or sentence not in said.getvalue():
            print(f"{text}\n  should give {sentence!r}, gives {said.getvalue()!r}", file=sys.stderr)
            wrong += 1
    return wrong


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
