#!/usr/bin/env python3
"""Runs clang-tidy over the C++ sources of a build: lint.py BUILD [TARGET...]

Most of its time goes into the headers of Qt and of the standard library, which it reads and checks anew for each source.
So the sources of all targets in a folder of the project become one joint source, apart those that see Qt's headers and
those that don't. With targets, only theirs. File-local names that clash there make it lint these targets one by one,
which it says. It takes no more processes than there are processors."""

import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

SOURCE = pathlib.Path(__file__).resolve().parent.parent


class Target:
    """A CMake target with its sources and the flags that matter for reading them."""

    def __init__(self, folder, name):
        self.folder, self.name, self.files, self.flags = folder, name, [], []

    def add(self, command):
        file = pathlib.Path(command["file"])
        joined = re.findall(r'^#include "(.*)"', file.read_text(), re.MULTILINE) if "Unity" in file.parts else [file]
        self.files += [str(f) for f in joined if is_ours(f)]
        words = iter(shlex.split(command["command"]))
        for word in words:
            if word == "-isystem":
                self.flags.append(("-isystem", next(words)))
            elif word.startswith(("-D", "-I", "-std=")):
                self.flags.append((word,))

    def group(self):
        return self.folder.parts[0], ("-DQT_CORE_LIB",) in self.flags


def is_ours(file):
    path = pathlib.Path(file)
    return path.is_relative_to(SOURCE) and "build" not in path.relative_to(SOURCE).parts


def targets(build):
    found = {}
    for command in json.loads((build / "compile_commands.json").read_text()):
        folder, name = re.match(r"(.*)/CMakeFiles/([^/]+)\.dir/", output(command)).groups()
        found.setdefault(name, Target(pathlib.Path(folder), name)).add(command)
    return [target for target in found.values() if target.files]


def output(command):
    words = shlex.split(command["command"])
    return words[words.index("-o") + 1]


def lint(build, joint):
    """What clang-tidy says of these targets, and whether their sources compile together."""
    file = build / "lint" / ("+".join(target.name for target in joint)[:100] + ".cpp")
    file.parent.mkdir(exist_ok=True)
    sources = [source for target in joint for source in target.files]
    file.write_text("".join(f"#undef main\n#define main main_{number}\n"
                            f"#undef runFrontEnd\n#define runFrontEnd runFrontEnd_{number}\n#include \"{source}\"\n"
                            for number, source in enumerate(sources)))
    flags = [word for flag in dict.fromkeys(flag for target in joint for flag in target.flags) for word in flag]
    # A joint source includes what is no header.
    result = subprocess.run(["clang-tidy", "--quiet", "--checks=-bugprone-suspicious-include", file, "--", *flags],
                            cwd=SOURCE, capture_output=True, text=True)
    return result.returncode, result.stdout


def main():
    build, chosen = pathlib.Path(sys.argv[1]).resolve(), set(sys.argv[2:])
    groups = collections.defaultdict(list)
    for target in targets(build):
        if not chosen or target.name in chosen:
            groups[target.group()].append(target)
    failed = False
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = {pool.submit(lint, build, joint): joint for joint in groups.values()}
        while jobs:
            done = next(concurrent.futures.as_completed(jobs))
            joint = jobs.pop(done)
            code, said = done.result()
            clash = re.search(r"^.*\[clang-diagnostic-error\]", said, re.MULTILINE)
            if clash and len(joint) > 1:
                print(f"linted one by one, for names clash in a joint source: {' '.join(t.name for t in joint)}\n"
                      f"  {os.path.relpath(clash[0], SOURCE)}", flush=True)
                jobs |= {pool.submit(lint, build, [target]): [target] for target in joint}
            elif code:
                failed = True
                print(said, flush=True)
    sys.exit(failed)


if __name__ == "__main__":
    main()
