"""What the faults are played with: the program under test, a unit, namespaces, and the table that lists every fault.

Every child is started through a Stage, which knows it by its process id and ends it when the fault is over."""

import concurrent.futures
import contextlib
import fcntl
import json
import os
import pathlib
import random
import re
import select
import shutil
import signal
import socket
import struct
import subprocess
import threading
import time

PATIENCE = 20  # s; a program that has not reacted by then hangs
ANSWER_TIME = 0.05  # s; a command is answered within this, whatever the unit sends
NOBODY = 61234  # a user without processes of its own


class NotSurvived(Exception):
    """The fault was not survived; the text says how that showed."""


class Late(NotSurvived):
    """A time limit was missed. The machine may have been busy, so the fault is played once more."""


class Skipped(Exception):
    """The fault can't be played here; the text says why."""


FAULTS = []  # (name, repetitions, function(stage, repetitions) -> what was measured)


def fault(name, repetitions, *more):
    """Lists a function in the table. `more` is handed on to it, so that one function can play several faults."""

    def add(function):
        FAULTS.append((name, repetitions, lambda stage, times: function(stage, times, *more)))
        return function

    return add


def check(fact, sentence):
    if not fact:
        raise NotSurvived(sentence)


def check_time(seconds, limit, what):
    if seconds > limit:
        raise Late(f"{what} took {seconds * 1000:.0f} ms, not {limit * 1000:.0f}")


def check_flat(before, after, kilobytes=4096):
    """Compares two results of resources()."""
    check(after["descriptors"] <= before["descriptors"], f"descriptors: {before['descriptors']}, then {after['descriptors']}")
    check(after["threads"] <= before["threads"] + 1, f"threads: {before['threads']}, then {after['threads']}")
    grown = after["memory"] - before["memory"]
    check(grown <= kilobytes, f"memory: {grown} kB more")
    return f"{max(grown, 0)} kB"


def resources(process):
    status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
    field = {line.split(":")[0]: line.split(":")[1].split()[0] for line in status.splitlines() if line.split(":")[1].split()}
    descriptors = len(os.listdir(f"/proc/{process.pid}/fd"))
    return {"memory": int(field["VmRSS"]), "threads": int(field["Threads"]), "descriptors": descriptors}


def without_paths(text):
    return re.sub(r"/\S+/|\(process:\d+\)|\d\d:\d\d:\S+", "", text).replace("\n", " ")[:120]


def ended(process, allowed=(0,), patience=PATIENCE):
    """Waits for the end and gives the status. Another one than allowed, or no end in time, is a fault."""
    try:
        status = process.wait(patience)
    except subprocess.TimeoutExpired:
        raise NotSurvived(f"does not end within {patience} s") from None
    name = signal.Signals(-status).name if status < 0 else f"exit status {status}"
    check(status in allowed, f"ended with {name}, saying {without_paths(process.complaint())!r}")
    return status


class Stage:
    """One fault's surroundings: a folder, a random number generator, and the processes that it started."""

    def __init__(self, program, simulator, folder, seed):
        self.program, self.simulator, self.folder, self.seed = program, simulator, folder, seed
        self.random = random.Random(seed)
        self.processes = []
        self.closing = contextlib.ExitStack()
        self.files = 0
        self.lock = threading.Lock()

    def close(self):
        for process in self.processes:
            if process.poll() is None:
                process.kill()
        for process in self.processes:
            process.wait()
            for stream in (process.stdin, process.stdout, process.stderr):
                with contextlib.suppress(OSError):
                    if stream:
                        stream.close()
        self.closing.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def new(self, name):
        """A path in a new folder of its own."""
        with self.lock:
            self.files += 1
            folder = self.folder / str(self.files)
        folder.mkdir()
        folder.chmod(0o777)
        return folder / name

    def start(self, *command, **options):
        """Starts a child in an environment in which no setting of this user can be found."""
        errors = self.new("stderr")
        home = str(self.folder)
        environment = {"PATH": os.environ["PATH"], "HOME": home, "XDG_CONFIG_HOME": home, "XDG_RUNTIME_DIR": home}
        environment |= {"LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
        options = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": open(errors, "wb"), "env": environment} | options
        process = subprocess.Popen([str(word) for word in command], **options)
        process.complaint = lambda: errors.read_text(errors="replace").strip()
        with self.lock:
            self.processes.append(process)
        return process

    def run(self, *command, script="", allowed=(0,), patience=PATIENCE, **options):
        """Runs a child on a whole script, and gives it with its `output`."""
        output = self.new("stdout")
        given = self.new("stdin")
        given.write_bytes(script if isinstance(script, bytes) else script.encode())
        with open(given, "rb") as stdin, open(output, "wb") as stdout:
            process = self.start(*command, **{"stdin": stdin, "stdout": stdout} | options)
        ended(process, allowed, patience)
        process.output = output.read_text(errors="replace")
        return process

    def console(self, *options, to=None, settings=None):
        """The command line of a console remote that can reach nothing but `to`, by default a port that refuses."""
        where = [] if "--demo" in options else ["--connect-to", f"127.0.0.1:{(to or Unit(self, listening=False)).port}"]
        kept = ["--settings", settings] if settings else [] if "--demo" in options else ["--settings", self.new("settings.json")]
        return [self.program, "--console", *options, *where, *kept]

    def window(self, *options, to, prefix=(), settings=None, **more):
        settings = settings or self.new("settings.json")
        where = ("--connect-to", f"127.0.0.1:{to.port}", "--settings", settings)
        return self.start(*prefix, self.program, *where, *options, **more)

    def at_once(self, function, times, width=2):
        """Calls function(index) for each index below `times`, two of them at a time; gives the results."""
        with concurrent.futures.ThreadPoolExecutor(width) as pool:
            running = [pool.submit(function, index) for index in range(times)]
            try:
                return [future.result() for future in running]
            finally:
                pool.shutdown(cancel_futures=True)

    def namespace(self, flags, setup):
        """New namespaces that live as long as their holder, after `setup` has run there: the holder's process id."""
        if os.geteuid() != 0:
            raise Skipped("needs root for a namespace")
        holder = self.start("unshare", *flags.split(), "sh", "-ec", f"{setup}\necho ready\nexec sleep 900")
        if not select.select([holder.stdout], [], [], PATIENCE)[0] or holder.stdout.readline() != b"ready\n":
            raise Skipped("no namespace: " + holder.complaint()[:80])
        return holder.pid

    def inside(self, holder, *command):
        entered = subprocess.run(["nsenter", "-t", str(holder), "-n", "-m", *command], capture_output=True, timeout=PATIENCE, check=False)
        if entered.returncode != 0:
            raise Skipped(entered.stderr.decode().strip()[:80])

    def as_nobody(self):
        """The words before a command that make it run as a user with no processes."""
        if os.geteuid() != 0:
            raise Skipped("needs root to become another user")
        self.folder.chmod(0o777)
        words = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        if subprocess.run([*words, self.program, "--version"], capture_output=True, check=False).returncode != 0:
            raise Skipped("another user can't read the program")
        return words


class Remote:
    """A console remote with --json that is driven line by line."""

    def __init__(self, stage, *options, to=None, settings=None, prefix=(), command=None):
        self.process = stage.start(*prefix, *(command or stage.console("--json", *options, to=to, settings=settings)))
        self.settings = settings
        self.unread = b""
        self.events = []  # what came since take() was last called
        self.slowly = False

    def lines(self, patience):
        """The next lines of standard output, as they are read."""
        until = time.monotonic() + patience
        while b"\n" not in self.unread:
            left = until - time.monotonic()
            if left <= 0 or not select.select([self.process.stdout], [], [], left)[0]:
                raise NotSurvived(f"no answer for {patience:.2g} s")
            if self.slowly:
                time.sleep(0.005)
            piece = os.read(self.process.stdout.fileno(), 4096 if self.slowly else 1 << 18)
            if not piece:
                ended(self.process, (), 5)
            self.unread += piece
        whole, _, self.unread = self.unread.rpartition(b"\n")
        return whole.split(b"\n")

    def read(self, is_last, patience=PATIENCE):
        """Reads until `is_last(object)`, and gives that object."""
        until = time.monotonic() + patience
        while True:
            left = until - time.monotonic()
            check(left > 0, f"no answer for {patience} s")
            lines = self.lines(left)
            for index, line in enumerate(lines):
                entry = parsed(line)
                if "event" in entry:
                    if len(self.events) < 20000:
                        self.events.append(entry)
                if is_last(entry):
                    self.unread = b"\n".join(lines[index + 1 :] + [self.unread])
                    return entry

    def write(self, *commands):
        with contextlib.suppress(BrokenPipeError):  # its end is told by what it does not answer
            self.process.stdin.write("".join(command + "\n" for command in commands).encode())
            self.process.stdin.flush()

    def ask(self, *commands, patience=PATIENCE):
        """Gives the commands all at once; the reply to the last one."""
        self.write(*commands)
        for command in commands:
            reply = self.read(lambda entry: "reply" in entry, patience)
            check(reply["reply"] == command.split()[0], f"{command!r} was answered with {reply}")
        return reply

    def take(self, kind):
        """What was told by the events of a kind since the last call."""
        told = [event for event in self.events if event["event"] == kind]
        self.events = []
        return told

    def until_link(self, *states, patience=PATIENCE):
        """Waits for the events that tell these states of the link one after another."""
        for state in states:
            self.read(lambda entry, state=state: entry.get("event") == "link" and entry["link"] == state, patience)

    def time_of(self, command, patience=PATIENCE):
        began = time.monotonic()
        self.ask(command, patience=patience)
        return time.monotonic() - began

    def resources(self):
        return resources(self.process)

    def reconnect(self):
        self.ask("app away", "app back")

    def check_usable(self):
        """The unit answers, a command is answered, and `quit` ends it in good order."""
        reply = self.ask("app away", "app back", "wait open", "wait answer")
        check(reply["ok"], f"not usable afterwards: {reply}")
        self.quit()

    def quit(self, allowed=(0, 1)):
        self.write("quit")
        self.process.stdout.close()
        return ended(self.process, allowed)


def parsed(line):
    """One line of --json, which must be UTF-8 and hold no control character as it stands."""
    text = line.decode()
    check(not any(ord(c) < 32 or 127 <= ord(c) < 160 for c in text), f"raw control character in {line[:100]}")
    return json.loads(text)


class Unit:
    """A unit of our own on the loopback. `play(link, unit)` is what it does with each client, in a thread."""

    def __init__(self, stage, play=None, listening=True):
        self.listener = stage.closing.enter_context(socket.socket())
        stage.closing.callback(self.stop)
        self.listener.bind(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.play = play or answer_queries
        self.links = []
        self.received = []
        self.stopping = threading.Event()
        self.zone = Zone(stage.random)
        if listening:  # else connects are refused
            self.listen()

    def listen(self):
        self.listener.listen(64)
        threading.Thread(target=self.accept, daemon=True).start()

    def accept(self):
        with contextlib.suppress(OSError):
            while not self.stopping.is_set():
                link = self.listener.accept()[0]
                link.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
                self.links.append(link)
                threading.Thread(target=self.serve, args=(link,), daemon=True).start()

    def serve(self, link):
        with contextlib.suppress(OSError):
            self.play(link, self)
        link.close()

    def stop(self):
        self.stopping.set()
        for end in (self.listener, *self.links):
            with contextlib.suppress(OSError):
                end.shutdown(socket.SHUT_RDWR)

    def commands(self, link):
        """The bodies of the commands, without the unit's number, as they arrive."""
        unread = b""
        while piece := link.recv(1 << 16):
            *whole, unread = (unread + piece).split(b"]")
            for command in whole:
                body = command.removeprefix(b"[U1").decode()
                self.received.append(body)
                yield body

    def wait_for(self, body, patience=PATIENCE):
        until = time.monotonic() + patience
        while body not in self.received:
            check(time.monotonic() < until, f"no {body} for {patience} s")
            time.sleep(0.005)


def answer_queries(link, unit):
    for body in unit.commands(link):
        if body.startswith("APPQ"):
            link.sendall(b"".join(unit.zone.answer()) if body == "APPQ0" else f"(U1{body})".encode())


def reset(link):
    link.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))


class Zone:
    """Zone 1 as the zone screen must show it: each report of an answer is kept with what it changes."""

    def __init__(self, choice):
        self.choice = choice
        self.shown = {}
        self.names = {n: f"Zone {n}" for n in range(1, 17)}
        self.sources = {}

    def answer(self):
        """A whole answer with new values everywhere. A volume applied twice would undo the mute behind it."""
        pick = self.choice.randint
        reports = []
        self.changes = {}

        def add(body, place=None, values=()):
            reports.append(f"(U1{body})".encode())
            self.changes[reports[-1]] = {} if place is None else place, values

        for n in range(1, 21):
            name = f"In {n} {pick(0, 999)}"
            add(f'I{n}N"{name}"', self.sources, {n: name})
        for n in range(1, 17):
            name, volume, bass, treble = f"Room {n} {pick(0, 999)}", pick(-80, 0), pick(-15, 15), pick(-15, 15)
            mute, loudness = pick(0, 1), pick(0, 1)
            shown = self.shown if n == 1 else None
            add(f"O{n}Z{n}")
            add(f'Z{n}N"{name}"', self.names, {n: name})
            add(f"Z{n}V{volume}", shown, {"volumeSlider": volume, "muteSwitch": False})
            add(f"Z{n}M{mute}", shown, {"muteSwitch": mute == 1})
            add(f"Z{n}BASS{bass}", shown, {"bassSlider": bass})
            add(f"Z{n}TREB{treble}", shown, {"trebleSlider": treble})
            add(f"Z{n}LD{loudness}", shown, {"loudnessSwitch": loudness == 1})
        add("APPQ0")
        return reports

    def apply(self, sent):
        """Takes bytes of the last answer that were sent; what stands behind the last `)` was no report."""
        for report in sent.split(b")")[:-1]:
            place, values = self.changes[report + b")"]
            place.update(values)

    def check(self, remote):
        controls = remote.ask("state")["controls"]
        for name, wanted in self.shown.items():
            value = controls[name]["on" if name.endswith("Switch") else "value"]
            check(value == wanted, f"{name} shows {value}, and {wanted} was reported")
        check(controls["zonePicker"]["rows"] == list(self.names.values()), f"the zones are {controls['zonePicker']['rows']}")
        rows = controls["sourcePicker"]["rows"]
        check(all(rows[n - 1] == name for n, name in self.sources.items()), f"the inputs are {rows}")


def hold_lock(folder):
    """Locks a folder as another remote does while it writes."""
    descriptor = os.open(folder, os.O_RDONLY | os.O_DIRECTORY)
    fcntl.flock(descriptor, fcntl.LOCK_EX)
    return descriptor
