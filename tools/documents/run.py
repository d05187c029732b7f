#!/usr/bin/env python3
"""Runs what one document shows: documents.PAGE in ctest. docs/testing.md describes the notation.

run.py SOURCE_FOLDER PAGE REMOTE_PROGRAM SIMULATOR_PROGRAM"""

import json
import os
import pathlib
import re
import shlex
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # s; the bound of a hang, on a busy machine and under a sanitizer
# What begins a command that can't run in a test: it needs root, another machine, a build or the user's own session.
ELSEWHERE = """./dev apt apt-get build/ cmake ctest ninja sudo systemctl loginctl journalctl crontab ssh nc
               xargs""".split()
# Programs that a machine with the tests need not have, and what plays them.
STAND_INS = {"mosquitto_sub": "echo lumbra/zone/Kitchen/volume/set -40", "mosquitto_pub": 'test -n "$5"'}
KINDS = {"sh", "text", "console", "crontab", "python", "json", "cpp", "ini", "xml"}
# Beside the programs' own: words that begin no command by themselves.
SHELL_WORDS = {"{", "(", "do", "then", "else", "exec", "while", "if", "!", "for", "done", "fi", "}", "time"}


class Wrong(Exception):
    """What a document says does not hold; the text says why."""


class Block:
    def __init__(self, kind, name, line):
        self.kind, self.name, self.line = kind, name, line
        self.lines = []
        self.output = None  # the lines of the text block right behind it

    @property
    def text(self):
        return "\n".join(self.lines) + "\n"


def blocks_of(text):
    """The fenced blocks. An indented one with a command in it is wrong: nobody would run it."""
    blocks, block, before = [], None, None
    for number, line in enumerate(text.splitlines(), 1):
        fence = re.match(r"( *)```(.*)$", line)
        if block:
            if fence and not fence[2]:
                blocks.append(block)
                before, block = block, None
            else:
                block.lines.append(line.removeprefix(indent))
        elif fence:
            indent, (kind, _, name) = fence[1], fence[2].partition(" ")
            if kind not in KINDS:
                raise Wrong(f"line {number}: a block of the kind {kind!r}; there are {', '.join(sorted(KINDS))}")
            block = Block(kind, name, number)
            if kind == "text" and before and before.kind in ("sh", "crontab"):
                before.output = block.lines
        else:
            if re.match(r"    (\$ |\./dev|lumbra-|build/|cmake|ctest|apt)", line):
                raise Wrong(f"line {number}: a command in an indented block; fence it: ```sh")
            if line.strip():
                before = None
    if block:
        raise Wrong(f"line {block.line}: a block without an end")
    return blocks


def commands_of(script):
    """The simple commands of a script, each as its words. Texts for the standard input are left out."""
    script = re.sub(r"<<'?(\w+)'?(.*)\n(?:.*\n)*?\1\n", r"\2\n", script).replace("\\\n", " ")
    for line in script.splitlines():
        lexer = shlex.shlex(line, posix=True, punctuation_chars="|&;()")
        lexer.whitespace_split = True
        words = []
        for word in [*lexer, ";"]:
            if word[0] not in "|&;()":
                if words or not (re.match(r"\w+=", word) or word in SHELL_WORDS):
                    words.append(word)
            elif words:
                yield words
                words = []


def is_elsewhere(words):
    return any(words[0] == word or word.endswith("/") and words[0].startswith(word) for word in ELSEWHERE)


def is_window(words):
    return words[0] == "lumbra-remote" and not {"--console", "--help", "--version"} & set(words)


def matches(shown, output):
    """Whether the output is what is shown: "..." is any text in a line, and any lines where it is a line. A backslash
    at the end of a line joins the next one to it."""
    shown = re.sub(r"\\\n *", "", "\n".join(shown)).split("\n")
    pattern = "".join(r"(?:.*\n)*" if line.strip() == "..." else re.escape(line).replace(r"\.\.\.", ".*") + r"\n"
                      for line in shown)
    return re.fullmatch(pattern, output)


class Page:
    """One page's surroundings: a home of its own, a unit of its own, and a loopback address of its own, at which
    the ports that the page names are free."""

    def __init__(self, source, remote, simulator, folder):
        self.source, self.folder = source, folder
        self.home = folder / "home"
        self.home.mkdir()
        process = os.getpid()
        self.address = f"127.{1 + (process >> 16) % 200}.{process >> 8 & 255}.{1 + process % 250}"
        self.units = []
        (folder / "bin").mkdir()
        self.environment = {name: value for name, value in os.environ.items() if not name.startswith(("XDG_", "LC_", "LANG"))}
        self.environment |= {"PATH": f"{folder / 'bin'}:{os.environ['PATH']}", "HOME": str(self.home), "LC_ALL": "C.UTF-8",
                             "XDG_RUNTIME_DIR": str(folder), "QT_QPA_PLATFORM": "offscreen"}
        self.programs = {"lumbra-remote": remote, "lumbra-unit-sim": simulator}
        self.options = {name: set(re.findall(r"--[a-z-]+", subprocess.run([path, "--help"], capture_output=True, text=True).stdout))
                        for name, path in self.programs.items()}
        # Whatever address a unit listens on in the document, here it is the page's own.
        for name, text in STAND_INS.items():
            self.put_program(name, text)
        self.put_program("lumbra-unit-sim", f'exec {shlex.quote(simulator)} "$@" --listen {self.address}')
        place = re.search(r"\S+$", self.start_unit("lumbra-unit-sim --verbose"))[0]
        self.unit, self.log = self.units[-1]
        # The stored address leads to the page's unit; the host of --connect-to is the page's address.
        self.put_program("lumbra-remote", f"""own= previous=
for word; do
  shift
  case $word in
  --demo|--connect-to|--help|--version) own=1 ;;
  --connect-to=*) own=1 word=--connect-to={self.address}:${{word##*:}} ;;
  esac
  [ "$previous" != --connect-to ] || word={self.address}:${{word##*:}}
  previous=$word
  set -- "$@" "$word"
done
[ "$own" ] || set -- --connect-to {place} "$@"
exec {shlex.quote(remote)} "$@\"""")

    def put_program(self, name, text):
        path = self.folder / "bin" / name
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def start(self, line, **options):
        options = {"stdin": subprocess.DEVNULL, "stderr": subprocess.STDOUT, "start_new_session": True} | options
        return subprocess.Popen(["bash", "-e", "-o", "pipefail", "-c", line], cwd=self.home, env=self.environment, **options)

    def shown(self, output):
        """An output as a document shows it."""
        text = output.decode(errors="replace")
        return text.replace(self.address, "127.0.0.1").replace(str(self.home), "/home/you")

    def wait_for(self, fact, process, what):
        end = time.monotonic() + PATIENCE
        while not (result := fact()):
            if process.poll() is not None:
                raise Wrong(f"{what} ended with status {process.returncode}")
            if time.monotonic() > end:
                raise Wrong(f"{what} was not ready within {PATIENCE} s")
            time.sleep(0.005)
        return result

    def start_unit(self, line):
        """Starts a unit that runs to the end of the page. Gives its first line, printed when it is ready."""
        log = self.folder / f"unit{len(self.units)}"
        with open(log, "wb") as output:
            process = self.start(f"exec env {line}", stdout=output)
        self.units.append((process, log))
        return self.wait_for(lambda: re.match(r".* listens on .*(?=\n)", log.read_text()), process, line)[0]

    def show_window(self, line, words):
        """Starts a window, and ends it as a session does once it is ready: with a signal, which is no failure."""
        commands = lambda: self.log.read_bytes().count(b" > ")
        before = commands()
        with tempfile.TemporaryFile() as output:
            process = self.start(f"exec env {line}", stdout=output)

            def handles_signals():
                status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
                caught = re.search(r"^SigCgt:\s*(\w+)", status, re.M)
                return caught and int(caught[1], 16) >> signal.SIGTERM - 1 & 1 and "lumbra-remote" in status

            try:
                if {"--demo", "--connect-to"} & set(words):
                    self.wait_for(handles_signals, process, line)
                else:
                    self.wait_for(lambda: commands() > before, process, line)
                process.terminate()
                status = process.wait(PATIENCE)
            finally:
                process.kill()
            output.seek(0)
            if status or output.tell() != output.seek(0, os.SEEK_END):
                output.seek(0)
                raise Wrong(f"{line}: status {status}, {self.shown(output.read())}")

    def run(self, script, shown=None, given=None, allowed=(0,)):
        """Runs a script to its end, and compares what it prints with what is shown."""
        process = self.start(script, stdout=subprocess.PIPE, stdin=subprocess.PIPE if given else subprocess.DEVNULL)
        try:
            output, _ = process.communicate(given and given.encode(), PATIENCE)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            raise Wrong(f"does not end within {PATIENCE} s") from None
        text = self.shown(output)
        if process.returncode not in allowed:
            raise Wrong(f"ends with status {process.returncode} and prints\n{text}")
        if shown is not None and not matches(shown, text):
            raise Wrong(f"prints\n{text}")

    def run_shell(self, block):
        commands = list(commands_of(block.text))
        for words in commands:
            self.check_words(words)
        if any(map(is_elsewhere, commands)):
            return
        # What stays until it is ended has its line for itself.
        if any(is_window(words) or words[0] == "lumbra-unit-sim" and "--help" not in words for words in commands):
            for line, words in zip(filter(str.strip, block.lines), commands, strict=True):
                if is_window(words):
                    self.show_window(line, words)
                elif words[0] == "lumbra-unit-sim":
                    first = self.start_unit(line)
                    if block.output and not matches(block.output[:1], self.shown(first.encode()) + "\n"):
                        raise Wrong(f"prints {first}")
                else:
                    self.run(line)
        else:
            self.run(block.text, block.output)

    def check_words(self, words):
        """Whether what a command names exists. This is all that is known of one that can't run here."""
        name = pathlib.PurePath(words[0]).name
        if words[0] == "./dev" and (len(words) < 2 or words[1] not in self.dev_words()):
            raise Wrong(f"./dev knows no {words[1:2]}")
        if name in self.options and (unknown := {word for word in words if word.startswith("--")} - self.options[name]):
            raise Wrong(f"{name} has no {' '.join(unknown)}")

    def dev_words(self):
        labels = re.findall(r"^([a-z][a-z| -]*)\)$", (self.source / "dev").read_text(), re.M)
        return {word for label in labels for word in label.split(" | ")}

    def run_console(self, block):
        """A session as people see it: what they type stands behind a prompt."""
        command, typed, shown = block.lines[0].removeprefix("$ "), [], []
        for line in block.lines[1:]:
            prompt = re.match(r"[a-z]+> (.*)", line)
            (typed if prompt else shown).append(prompt[1] if prompt else line)
        fails = any(line.startswith("error: ") for line in shown)
        self.run(command, shown, "\n".join(typed) + "\n", (1,) if fails else (0,))

    def run_block(self, block, later):
        if block.kind == "sh":
            self.run_shell(block)
        elif block.kind == "console":
            self.run_console(block)
        elif block.kind == "crontab":
            for line in block.lines:
                self.run(line.split(maxsplit=5)[5], block.output)
        elif block.kind == "python" and block.name:
            (self.home / block.name).write_text(block.text)
            if not any(block.name.removesuffix(".py") in other.text for other in later):
                raise Wrong(f"nothing uses {block.name}")
        elif block.kind == "python":
            self.run(f"python3 - <<'END'\n{block.text}END\n", block.output)
        elif block.kind == "json":
            for line in block.lines:
                json.loads(line)

    def close(self):
        """Ends the units, which must be no failure either."""
        wrong = []
        for process, log in self.units:
            process.terminate()
            try:
                if process.wait(PATIENCE):
                    wrong.append(f"a unit ended with {process.returncode}: {log.read_text()[-200:]}")
            except subprocess.TimeoutExpired:
                process.kill()
                wrong.append("a unit did not end")
        return wrong


def anchors_of(text):
    """The names by which a page's headings can be linked to."""
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in re.findall(r"^#+ (.*)", text, re.M)}


def check_links(page):
    """Gives what is wrong with the links of a page to files of the project and to their headings."""
    for path, anchor in re.findall(r"\]\(([^)#:\s]*)(?:#([^)]*))?\)", re.sub(r"```.*?```|`[^`\n]*`", "", page.read_text(), flags=re.S)):
        target = page.parent / path if path else page
        if not target.exists():
            yield f"no such file: {path}"
        elif anchor and anchor not in anchors_of(target.read_text()):
            yield f"no such heading: {path}#{anchor}"


def main(source, name, remote, simulator):
    source = pathlib.Path(source)
    text = (source / name).read_text()
    wrong = list(check_links(source / name))
    try:
        blocks = blocks_of(text)
        with tempfile.TemporaryDirectory(prefix="lumbra-test-") as folder:
            page = Page(source, remote, simulator, pathlib.Path(folder))
            try:
                for command in re.findall(r"`((?:lumbra-remote|lumbra-unit-sim|\./dev) [^`\n]*)`", text):
                    page.check_words(shlex.split(command))
                for number, block in enumerate(blocks):
                    try:
                        page.run_block(block, blocks[number + 1:])
                    except (Wrong, ValueError) as error:
                        raise Wrong(f"line {block.line}:\n{block.text}\n{error}") from None
            finally:
                wrong += page.close()
    except Wrong as error:
        wrong.append(str(error))
    for sentence in wrong:
        print(f"{name}: {sentence}", file=sys.stderr)
    return bool(wrong)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
