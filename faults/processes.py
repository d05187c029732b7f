"""Faults of the process: signals, limits, closed streams, and scripts that no person would type."""

import collections
import contextlib
import fcntl
import itertools
import json
import os
import pty
import select
import signal
import struct
import subprocess
import termios
import time

from files import GOOD, check_kept, good_settings
from stage import PATIENCE, NotSurvived, Remote, Unit, check, check_flat, check_time, ended, fault, parsed, resources

LOADER_FAILED = 127  # the system's loader has said why


@fault("away while the link opens", 50)
def away_while_opening(stage, times):
    def play(index):
        stage.run(*stage.console("--demo"), script="wait open\napp away\nquit\n" if index % 2 else "app away\nquit\n")

    stage.at_once(play, times)


@fault("immediate quits", 600)
def immediate_quits(stage, times):
    crashed = []

    def play(index):
        unit = ("--demo",) if index % 2 else ()
        try:
            stage.run(*stage.console(*unit), script="quit\n" if index % 3 else "")
        except NotSurvived as reason:
            crashed.append(str(reason))

    stage.at_once(play, times, 4)
    check(not crashed, f"{len(crashed)} of {times}: {crashed[:1]}")


def random_script(choice):
    """Commands as a program might pipe them in, good and bad."""
    controls = ["zonePicker", "sourcePicker", "volumeSlider", "bassSlider", "muteSwitch", "loudnessSwitch", "ovrSwitch3", "scenePicker", "saveSceneButton", "filterType2", "filterGain7", "spinner", "nothing"]
    keys = [*GOOD, "no_preference"]
    numbers = ["0", "1", "2", "7", "-1", "-35.5", "1e9", "nan", "-0", "99999999999999999999", "x", '""']
    forms = [
        lambda: choice.choice(["help", "state", "dismiss", "get", "bogus", "help me", "wait", "slide", "state \u00e9", "\u2028 x"]),
        lambda: f"tab {choice.choice(['zone', 'output', 'group', 'override', 'scene', '0', '3', '4', '-1', 'x'])}",
        lambda: f"pick {choice.choice(controls)} {choice.choice(numbers)}",
        lambda: f"slide {choice.choice(controls)} {choice.choice(numbers)}",
        lambda: f"switch {choice.choice(controls)} {choice.choice(['on', 'off', 'toggle', 'x'])}",
        lambda: f"segment {choice.choice(controls)} {choice.choice(numbers)}",
        lambda: f"press {choice.choice(controls)}",
        lambda: f"get {choice.choice(keys)}",
        lambda: f"set {choice.choice(keys)} {choice.choice(['true', 'false', '1', '4', '5', 'x', chr(34) * 2])}",
        lambda: f"unset {choice.choice(keys)}",
        lambda: f"app {choice.choice(['away', 'back', 'resign-active', 'enter-background', 'enter-foreground', 'become-active', 'x'])}",
        lambda: f"wait {choice.choice(['0', '0.01', 'answer 0.1', 'open 0.1', 'closed 0.02', 'nan', '-1', 'answer x'])}",
    ]
    script = [choice.choice(forms)() for _ in range(choice.randint(0, 40))]
    if choice.random() < 0.5:
        script.insert(choice.randint(0, len(script)), "quit")
    return script


@fault("random scripts, piped in at once", 2000)
def scripts(stage, times):
    given = [random_script(stage.random) for _ in range(times)]
    unit = Unit(stage)

    def play(index):
        script = given[index]
        to = {"to": unit} if index % 3 == 0 else {}
        demo = ("--demo",) if index % 3 == 1 else ()
        try:
            run = stage.run(*stage.console("--json", *demo, **to), script="".join(line + "\n" for line in script), allowed=(0, 1))
            replies = [entry for entry in map(json.loads, run.output.split("\n")[:-1]) if "reply" in entry]
            wanted = [line.split(" ")[0] for line in script]
            wanted = wanted[: wanted.index("quit") + 1] if "quit" in wanted else wanted
            check([reply["reply"] for reply in replies] == wanted, f"replies {[reply['reply'] for reply in replies]}")
            check(run.returncode == (not all(reply["ok"] for reply in replies)), f"exit status {run.returncode}")
        except NotSurvived as reason:
            raise NotSurvived(f"script {index} {script}: {reason}") from None

    stage.at_once(play, times)
    return f"{sum(map(len, given))} commands"


@fault("input that is no command", 1)
def odd_input(stage, _times):
    remote = Remote(stage, to=Unit(stage))
    remote.ask("wait open", "wait answer")
    before = remote.resources()
    for text in (b"x" * 10_000_000, b"\0" * 1000, bytes(range(128, 256)), b'"' * 60000, b"\xed\xa0\x80", b"get " * 20000, b"\x1b[A\r"):
        remote.process.stdin.write(text + b"\n")
        remote.process.stdin.flush()
        reply = remote.read(lambda entry: "reply" in entry)
        check(not reply["ok"], f"{text[:10]}: accepted")
    grown = check_flat(before, remote.resources())
    remote.check_usable()
    return grown + " more"


@fault("reader gone, or one that never reads", 50)
def readers(stage, times):
    unit = Unit(stage)
    for index in range(times):
        kept = index % 2
        unit.received.clear()
        remote = stage.start(*stage.console("--json", to=unit))
        if not kept:
            remote.stdout.close()
        remote.stdin.write(b"wait open\nwait answer\n" + b"state\n" * (2000 if kept else 20) + b"" if kept else b"wait open\npick sourcePicker 3\n")
        remote.stdin.flush()
        unit.wait_for("APPQ0")
        if kept:
            time.sleep(stage.random.uniform(0, 0.2))
            remote.terminate()
            began = time.monotonic()
            ended(remote, patience=5)
            check_time(time.monotonic() - began, 1, "the end")
        else:
            unit.wait_for("Z1I4")
            remote.stdin.close()
            ended(remote)


@fault("output that takes little or nothing", 10)
def odd_outputs(stage, times):
    unit = Unit(stage)
    script = "wait open\n" + "state\n" * 500 + "pick sourcePicker 3\nwait 0.1\nquit\n"
    for _ in range(times):
        for path in ("/dev/full", "/dev/null"):
            unit.received.clear()
            with open(path, "wb") as stdout:
                stage.run(*stage.console("--json", to=unit), script=script, stdout=stdout)
                for program, option in itertools.product((stage.program, stage.simulator), ("--help", "--version")):
                    run = stage.run(program, option, stdout=stdout, allowed=(int(path == "/dev/full"),))
                    check(run.complaint().count("\n") == 0, f"says {run.complaint()!r}")
            unit.wait_for("Z1I4", 2)
        remote = stage.start(*stage.console("--json", to=unit), bufsize=0)
        fcntl.fcntl(remote.stdout, fcntl.F_SETPIPE_SZ, 4096)
        for stream in (remote.stdin, remote.stdout):  # the program's ends as well: a pipe's flags are each end's own
            flags = f"/proc/{remote.pid}/fd/{0 if stream is remote.stdin else 1}"
            other = os.open(flags, os.O_NONBLOCK | (os.O_RDONLY if stream is remote.stdin else os.O_WRONLY))
            stage.closing.callback(os.close, other)
        remote.stdin.write(script.encode())
        replies = 0
        while replies < 504:
            line = remote.stdout.readline()
            check(line.endswith(b"\n"), "output ends early")
            replies += parsed(line.rstrip()).get("reply") is not None
        ended(remote)


@fault("input without end", 3)
def endless_input(stage, times):
    for path in ("/dev/zero", "/dev/urandom", "yes state", "yes switch muteSwitch toggle")[: times + 1]:
        source = stage.start(*path.split()) if path.startswith("yes") else stage.start("cat", path)
        remote = stage.start(*stage.console("--json", "--demo"), stdin=source.stdout, stdout=subprocess.DEVNULL)
        source.stdout.close()
        time.sleep(1)
        before = resources(remote)
        time.sleep(2)
        check_flat(before, resources(remote))
        remote.terminate()
        began = time.monotonic()
        ended(remote, (0, 1))
        check_time(time.monotonic() - began, 1, path)


KEYS = [b"\x1b[A", b"\x1b[B", b"\x1b[C", b"\x1b[D", b"\t", b"\x7f", b"\x15", b"\x17", b"\x0b", b"\x12", b"\r", b"state\r", b"tab ", b"pick zone", b"\xc3\xa9", b"\xff", b"\x1b", b"\x1bOP", b"\x16\0", b'"', b"help\r", b"\x18\x05", b"\x1a", b"\x0c"]


@fault("random keys, and the terminal vanishes without SIGHUP", 20, ())
@fault("random keys, and the terminal vanishes", 300, ("setsid", "--ctty"))
def terminal(stage, times, session):
    typed = [b"".join(stage.random.choices(KEYS, k=stage.random.randint(0, 60))) for _ in range(times)]

    def play(index):
        keys, screen = pty.openpty()
        environment = os.environ | {"TERM": "xterm", "HOME": str(stage.folder), "LC_ALL": "C.UTF-8"}
        remote = stage.start(*session, *stage.console("--demo"), stdin=screen, stdout=screen, env=environment)
        os.close(screen)
        select.select([keys], [], [], PATIENCE)  # it has begun
        until = time.monotonic() + 0.15
        for start in range(0, len(typed[index]) + 1, 7):
            os.write(keys, typed[index][start : start + 7])
            if index % 5 == 0:
                fcntl.ioctl(keys, termios.TIOCSWINSZ, struct.pack("HHHH", index % 50, start % 200, 0, 0))
            while select.select([keys], [], [], 0.002)[0]:
                with contextlib.suppress(OSError):
                    os.read(keys, 1 << 16)
                if time.monotonic() > until:
                    break
        os.close(keys)
        try:
            ended(remote, (0, 1), 5)
        except NotSurvived as reason:
            raise NotSurvived(f"keys {typed[index]}: {reason}") from None

    stage.at_once(play, times, 4)


def streams():
    return [closed for count in range(4) for closed in itertools.combinations((0, 1, 2), count)]


@fault("closed standard streams", 8)
def closed_streams(stage, times):
    unit = Unit(stage)
    for closed in streams()[:times]:
        words = " ".join(f"{number}>&-" for number in closed)
        shell = ("sh", "-c", f'exec "$@" {words}', "sh")
        remote = stage.start(*shell, *stage.console(to=unit))
        unit.received.clear()
        if 0 not in closed:
            remote.stdin.write(b"wait open\npick sourcePicker 3\nwait 0.1\nquit\n")
            remote.stdin.close()
        ended(remote)
        check(0 in closed or "Z1I4" in unit.received, f"without {closed}: the command did not leave")
        unit.received.clear()
        window = stage.window(to=unit, prefix=shell)
        unit.wait_for("APPQ0")
        window.terminate()
        ended(window)


@fault("standard error without a reader", 10)
def no_error_reader(stage, times):
    unit = Unit(stage)
    for index in range(times):
        settings = stage.new("settings.json")
        settings.write_text("not json")
        reading, writing = os.pipe()
        os.close(reading)
        try:
            command = stage.console(to=unit, settings=settings)
            if index % 2:
                stage.run(*command, script="wait open\nquit\n", stderr=writing)
            else:
                window = stage.window(to=unit, settings=settings, stderr=writing)
                time.sleep(0.5)
                window.terminate()
                ended(window)
        finally:
            os.close(writing)


def check_none(failed, limits):
    """Nothing may have failed; else the reasons, with how often and under which of the limits first."""
    reasons = collections.Counter(reason for _, reason in failed)
    first = {reason: limit for limit, reason in reversed(failed)}
    check(not failed, "; ".join(f"{count} of {len(limits)}, as with {first[reason]}: {reason}" for reason, count in reasons.most_common(3)))


def check_limited(process, settings):
    """A program under a limit works, or says in one sentence why it does not; and it loses no settings."""
    complaint = process.complaint()
    if process.returncode == LOADER_FAILED:
        check("error while loading shared libraries" in complaint, f"exit status 127 and {complaint[:80]!r}")
    elif process.returncode != 0 and "ok" not in getattr(process, "output", ""):
        check(len(complaint.splitlines()) == 1, f"exit status 1 and {complaint[:80]!r}")
    check_kept(settings)


def limited(stage, limits, words, demo):
    """Runs the console under each of the limits; the first of them with which a script succeeds."""
    unit = Unit(stage)
    failed, works = [], []

    def play(index):
        settings = good_settings(stage)
        for path in (settings.parent, settings):
            os.chown(path, *(os.stat(stage.folder).st_uid,) * 2)
            path.chmod(0o777)
        to = {} if demo else {"to": unit}
        command = stage.console(*(("--demo",) if demo else ()), **to, settings=settings)
        try:
            run = stage.run(*words(limits[index]), *command, script="wait open 1\nget\nquit\n", allowed=(0, 1, LOADER_FAILED), patience=10)
            check_limited(run, settings)
            if run.returncode == 0:
                works.append(limits[index])
        except NotSurvived as reason:
            failed.append((limits[index], str(reason)))

    stage.at_once(play, len(limits))
    check_none(failed, limits)
    return f"works from {min(works, default='no limit')} on"


@fault("descriptor limits from 3 on, --demo", 40, True)
@fault("descriptor limits from 3 on", 40, False)
def few_descriptors(stage, times, demo):
    return limited(stage, range(3, 3 + max(times, 20)), lambda limit: ("prlimit", f"--nofile={limit}", "--"), demo)


@fault("memory limits", 100)
def little_memory(stage, times):
    limits = [12_000_000 + index * 200_000_000 // times for index in range(times)]
    return limited(stage, limits, lambda limit: ("prlimit", f"--as={limit}", "--"), True)


@fault("thread limits from 1 on", 8)
def few_threads(stage, times):
    nobody = stage.as_nobody()
    number = ""
    for limit in range(1, 1 + times):
        number = limited(stage, [limit], lambda limit: ("prlimit", f"--nproc={limit}", "--", *nobody), limit % 2 == 0)
    return number


def end_by_signals(window):
    """One signal ends it in order; a second one ends it however it stands."""
    for _ in range(2):
        if window.poll() is None:
            window.terminate()
        try:
            return ended(window, (0, 1, LOADER_FAILED, -signal.SIGTERM), 3)
        except NotSurvived as reason:
            if "GLib-ERROR" in str(reason):  # the toolkit gave up, and said why
                return None
            if "does not end" not in str(reason):
                raise
    raise NotSurvived("hangs, and two signals do not end it")


@fault("window with little memory", 30, lambda limit: f"--as={20_000_000 + limit * 15_000_000}")
@fault("window with few descriptors", 40, lambda limit: f"--nofile={limit + 2}")
@fault("window with few threads", 8, lambda limit: f"--nproc={limit}")
def limited_window(stage, times, option):
    words = stage.as_nobody() if "nproc" in option(1) else ()
    unit = Unit(stage)
    limits = range(1, 1 + times)
    failed, works = [], []

    def play(index):
        limit = option(limits[index])
        settings = good_settings(stage)
        for path in (settings.parent, settings):
            path.chmod(0o777)
        window = stage.window(to=unit, settings=settings, prefix=("prlimit", limit, "--", *words))
        try:
            until = time.monotonic() + 2
            while window.poll() is None and time.monotonic() < until:
                time.sleep(0.02)
            if window.poll() is None:
                works.append(limit)
            end_by_signals(window)
            check_kept(settings)
        except NotSurvived as reason:
            failed.append((limit, str(reason)))

    stage.at_once(play, times, 1 if words else 4)
    check_none(failed, limits)
    return f"runs with {works[0]}" if works else ""


END_SIGNALS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)


@fault("signals at random moments", 500)
def signals(stage, times):
    unit = Unit(stage)
    moments = [(stage.random.uniform(0, 0.05), [stage.random.choice([*END_SIGNALS, *END_SIGNALS, signal.SIGWINCH, signal.SIGCONT, signal.SIGPIPE]) for _ in range(stage.random.randint(1, 3))]) for _ in range(times)]

    def play(index):
        pause, sent = moments[index]
        settings = good_settings(stage)
        demo = {} if index % 2 else {"to": unit}
        remote = stage.start(*stage.console(*(() if demo else ("--demo",)), **demo, settings=settings))
        time.sleep(pause)
        for number in sent:
            if remote.poll() is None:
                remote.send_signal(number)
                time.sleep(0.001 * (index % 3))
        if not set(sent) & set(END_SIGNALS):
            remote.stdin.close()
        # Before the program can take a signal, or with a second one, the system's default holds.
        ended(remote, (0, *(-number for number in sent)))
        check_kept(settings)

    stage.at_once(play, times, 4)


@fault("signals to the window at random moments", 60)
def window_signals(stage, times):
    unit = Unit(stage)
    moments = [(stage.random.uniform(0, 0.4), stage.random.choice(END_SIGNALS)) for _ in range(times)]

    def play(index):
        pause, number = moments[index]
        settings = good_settings(stage)
        window = stage.window(to=unit, settings=settings)
        time.sleep(pause)
        window.send_signal(number)
        ended(window, (0, -number))
        check_kept(settings)

    stage.at_once(play, times)
