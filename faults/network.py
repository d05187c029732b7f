"""Faults of the network and of the unit at its other end."""

import contextlib
import fcntl
import json
import random
import signal
import socket
import subprocess
import threading
import time

from stage import ANSWER_TIME, Late, NotSurvived, Remote, Unit, answer_queries, check, check_flat, check_time, ended, fault, reset, resources

# A network of this machine alone, and at 10.99.0.53 nobody, whom the packets leave for.
UP = """ip link set lo up; ip link add near type veth peer name far; ip addr add 10.99.0.1/24 dev near
ip link set near up; ip link set far up; ip neigh add 10.99.0.53 lladdr 02:00:00:00:00:53 dev near"""


def settings_for(stage, address):
    settings = stage.new("settings.json")
    settings.write_text(json.dumps({"ip_address_preference": address, "unit_number_preference": 1, "polling_preference": True}))
    return settings


@fault("connect refused", 200)
def refused(stage, times):
    unit = Unit(stage, listening=False)
    remote = Remote(stage, to=unit)
    remote.read(lambda entry: entry.get("event") == "alert")
    before = remote.resources()
    for _ in range(times):
        remote.ask("dismiss")
        remote.take("alert")
        remote.reconnect()
        remote.read(lambda entry: entry.get("event") == "alert")
        remote.ask("wait 0")
        check(len(remote.take("alert")) == 1, "more than one alert for an attempt")
    grown = check_flat(before, remote.resources())
    unit.listen()
    remote.check_usable()
    return grown + " more"


@fault("connect that hangs", 10)
def hanging(stage, times):
    # A full queue of a listener: further connects are not answered.
    full = Unit(stage, listening=False)
    full.listener.listen(0)
    stage.closing.enter_context(socket.create_connection(("127.0.0.1", full.port)))
    time.sleep(0.05)
    for _ in range(3):
        waiting = stage.closing.enter_context(socket.socket())
        waiting.setblocking(False)
        waiting.connect_ex(("127.0.0.1", full.port))

    def attempt(index):
        remote = Remote(stage, to=full)
        began = time.monotonic()
        slowest = max(remote.time_of("get") for _ in range(20))
        check_time(slowest, 0.5, "a command meanwhile")
        if index % 5 == 4:  # and ending it meanwhile
            began = time.monotonic()
            remote.quit()
            return time.monotonic() - began
        remote.read(lambda entry: entry.get("event") == "alert", 15)
        remote.quit()
        return time.monotonic() - began

    took = max(stage.at_once(attempt, times, width=times))
    check_time(took, 12, "the alert")
    return f"alert after {took:.1f} s"


@fault("no network, then one", 1)
def no_network(stage, _times):
    holder = stage.namespace("-n -m", "true")
    prefix = ("nsenter", "-t", holder, "-n")
    settings = settings_for(stage, "10.99.0.1")
    remote = Remote(stage, prefix=prefix, command=[stage.program, "--console", "--json", "--settings", settings])
    remote.read(lambda entry: entry.get("event") == "alert", 5)
    check(remote.ask("state")["link"] == "closed", "the link is not closed")
    stage.inside(holder, "sh", "-ec", UP)
    unit = stage.start(*prefix, stage.simulator, "--listen", "10.99.0.1", "--port", "23")
    unit.stdout.readline()
    remote.check_usable()


@fault("unit gone without a word", 1)
def vanished(stage, _times):
    there = stage.namespace("-n -m", "ip link set lo up")
    here = stage.namespace("-n -m", f"ip link add here type veth peer name there netns {there}; ip addr add 10.99.1.1/24 dev here; ip link set here up")
    stage.inside(there, "sh", "-ec", "ip addr add 10.99.1.2/24 dev there; ip link set there up")
    unit = stage.start("nsenter", "-t", there, "-n", stage.simulator, "--listen", "10.99.1.2", "--port", "23")
    unit.stdout.readline()
    settings = settings_for(stage, "10.99.1.2")
    remote = Remote(stage, prefix=("nsenter", "-t", here, "-n"), command=[stage.program, "--console", "--json", "--settings", settings])
    check(remote.ask("wait open", "wait answer")["ok"], "no answer to begin with")
    stage.inside(there, "ip", "addr", "flush", "dev", "there")
    began = time.monotonic()
    check_time(remote.time_of("switch muteSwitch toggle"), 0.5, "a command")
    remote.read(lambda entry: entry.get("event") == "alert", 60)
    took = time.monotonic() - began
    check_time(took, 45, "the alert")
    stage.inside(there, "ip", "addr", "add", "10.99.1.2/24", "dev", "there")
    remote.check_usable()
    return f"alert after {took:.0f} s"


@fault("name server that does not answer", 300)
def no_names(stage, times):
    resolv = stage.new("resolv.conf")
    resolv.write_text("nameserver 10.99.0.53\noptions timeout:30\n")
    holder = stage.namespace("-n -m", UP + f"\nmount --bind {resolv} /etc/resolv.conf")
    settings = settings_for(stage, "a-unit.example")
    remote = Remote(stage, prefix=("nsenter", "-t", holder, "-n", "-m"), command=[stage.program, "--console", "--json", "--settings", settings])
    for _ in range(times):
        remote.reconnect()
    threads = remote.resources()["threads"]
    began = time.monotonic()
    remote.quit()
    check_time(time.monotonic() - began, 2, "quit")
    check(threads <= 8, f"{threads} threads")
    return f"{threads} threads"


def end_in_order(_link):
    """Closing a socket with nothing unread sends FIN."""


@fault("end in mid-report, at every byte", 2000, end_in_order, 0)
@fault("reset in mid-report, at every byte", 2000, reset, 1)
def cut(stage, times, how, alerts):
    def play(link, unit):
        for body in unit.commands(link):
            if body == "APPQ0":
                link.sendall(unit.part)
                how(link)
                return

    unit = Unit(stage, play)
    unit.part = b"".join(unit.zone.answer())
    unit.zone.apply(unit.part)
    remote = Remote(stage, to=unit)

    def settle():
        remote.until_link("open", "closed")
        if alerts:
            remote.read(lambda entry: entry.get("event") == "alert")

    settle()
    before = remote.resources()
    places = len(unit.part) + 1
    chosen = range(places) if times >= places else stage.random.sample(range(places), times)
    for place in chosen:
        whole = b"".join(unit.zone.answer())
        unit.part = whole[:place]
        unit.zone.apply(unit.part)
        remote.take("alert")
        remote.reconnect()
        settle()
        unit.zone.check(remote)
        check(len(remote.take("alert")) == alerts, f"not {alerts} alerts for each")
    grown = check_flat(before, remote.resources())
    unit.play = answer_queries
    remote.check_usable()
    return f"{len(chosen)} places, {grown} more"


@fault("connection accepted and reset at once", 1000)
def slammed(stage, times):
    unit = Unit(stage, lambda link, unit: reset(link))
    remote = Remote(stage, to=unit)
    for turn in range(times):
        if turn == 5:
            before = remote.resources()
        remote.reconnect()
        remote.ask("wait closed")
    grown = check_flat(before, remote.resources())
    unit.play = answer_queries
    remote.check_usable()
    return grown + " more"


@fault("one byte at a time", 10)
def drip(stage, times):
    def play(link, unit):
        for body in unit.commands(link):
            for byte in unit.part if body == "APPQ0" else b"":
                link.sendall(bytes([byte]))
                time.sleep(0.0001)

    unit = Unit(stage, play)
    unit.part = b"".join(unit.zone.answer())
    unit.zone.apply(unit.part)
    remote = Remote(stage, to=unit)
    remote.ask("wait open", "wait answer")
    for _ in range(times):
        unit.zone.check(remote)
        unit.part = b"".join(unit.zone.answer())
        unit.zone.apply(unit.part)
        remote.reconnect()
        check(remote.ask("wait open", "wait answer")["ok"], "no end of the answer")
    unit.zone.check(remote)
    remote.quit((0,))


@fault("10 MB without a closing bracket", 10)
def endless(stage, times):
    def play(link, unit):
        for body in unit.commands(link):
            if body == "APPQ0":
                link.sendall(b"(U1Z1V-" + b"4" * 10_000_000)
                link.sendall(b"".join(unit.zone.answer()))

    unit = Unit(stage, play)
    remote = Remote(stage, to=unit)
    check(remote.ask("wait open", "wait answer")["ok"], "no end of the answer")
    before = remote.resources()
    for _ in range(times - 1):
        remote.reconnect()
        check(remote.ask("wait open", "wait answer")["ok"], "no end of the answer")
    grown = check_flat(before, remote.resources(), 1024)
    unit.play = answer_queries
    remote.check_usable()
    return grown + " more"


@fault("unit that never reads", 50000)
def never_reads(stage, times):
    unit = Unit(stage, lambda link, unit: unit.stopping.wait())
    remote = Remote(stage, to=unit)
    remote.ask("wait open")
    before = remote.resources()
    slowest = 0
    for _ in range(0, times, 100):
        remote.ask(*["switch muteSwitch toggle"] * 99)
        slowest = max(slowest, remote.time_of("switch muteSwitch toggle"))
    check_time(slowest, 0.5, "a command")
    grown = check_flat(before, remote.resources())
    unit.play = answer_queries
    remote.check_usable()
    return f"{grown} more, slowest command {slowest * 1000:.0f} ms"


def flood(seconds, choice):
    """What a unit does that sends reports as fast as they are taken, and then values that are known."""
    body = [f"(U1Z{choice.randint(1, 16)}{choice.choice(['V-', 'BASS', 'M', 'LD'])}1)" for _ in range(30000)]
    body += [f'(U1Z{choice.randint(1, 16)}N"Room {choice.randint(0, 9)}")' for _ in range(3000)]
    choice.shuffle(body)
    block = "".join(body).encode()

    def play(link, unit):
        unit.reports = 0
        began = time.monotonic()
        while time.monotonic() < began + seconds:
            link.sendall(block)
            unit.reports += len(body)
        unit.rate = unit.reports / (time.monotonic() - began)
        last = b"".join(unit.zone.answer())
        unit.zone.apply(last)
        link.sendall(last)
        unit.received.append("done")
        unit.stopping.wait()

    return play


@fault("flood of reports and a slow reader", 15, True)
@fault("flood of reports", 30, False)
def flooded(stage, times, slowly):
    seconds = max(times, 3)
    unit = Unit(stage, flood(seconds, stage.random))
    remote = Remote(stage, to=unit)
    remote.slowly = slowly
    if slowly:
        fcntl.fcntl(remote.process.stdout, fcntl.F_SETPIPE_SZ, 4096)
    remote.ask("wait open", "wait 0.5")
    before = remote.resources()
    times = []
    until = time.monotonic() + seconds - 1
    while time.monotonic() < until:
        times.append(remote.time_of("get unit_number_preference"))
        try:  # what is told between two commands is read too
            remote.read(lambda entry: False, 0.02)
        except NotSurvived:
            check(remote.process.poll() is None, "ended in the flood")
    remote.slowly = False
    unit.wait_for("done", seconds + PATIENCE_OF_FLOOD)
    remote.ask("wait answer", "wait 0.3")
    unit.zone.check(remote)
    grown = check_flat(before, remote.resources(), 8192)
    remote.quit()
    times.sort()
    usual, longest = times[len(times) * 99 // 100], times[-1]
    number = f"{unit.rate / 1e6:.1f} million/s, answer in {usual * 1000:.0f} ms (99 %), {longest * 1000:.0f} ms (longest), {grown} more"
    if usual > ANSWER_TIME or longest > 5 * ANSWER_TIME:
        raise Late(number)
    return number


PATIENCE_OF_FLOOD = 10


@fault("quit, and a signal with no reader, in a flood", 20)
def quit_in_flood(stage, times):
    slowest = 0
    for index in range(times):
        unit = Unit(stage, flood(5, stage.random))
        remote = Remote(stage, to=unit)
        remote.ask("wait open")
        time.sleep(stage.random.uniform(0, 0.3))  # where nobody reads, the output fills up meanwhile
        began = time.monotonic()
        if index % 2:
            remote.process.terminate()
            ended(remote.process)
        else:
            remote.quit((0,))
        slowest = max(slowest, time.monotonic() - began)
        unit.stop()
    check_time(slowest, 1, "the end")
    return f"at most {slowest * 1000:.0f} ms"


@fault("window in a flood", 5)
def window_flooded(stage, times):
    seconds = max(times, 3)
    unit = Unit(stage, flood(seconds, stage.random))
    window = stage.window(to=unit)
    time.sleep(1)
    before = resources(window)
    unit.wait_for("done", seconds + PATIENCE_OF_FLOOD)
    grown = check_flat(before, resources(window), 16384)
    window.terminate()
    ended(window, patience=5)
    check(window.complaint() == "", f"complains: {window.complaint()[:100]}")
    return f"{unit.rate / 1e6:.1f} million/s, {grown} more"


def say(*reports):
    """What a unit does that answers each query with these reports."""

    def play(link, unit):
        for body in unit.commands(link):
            if body.startswith("APPQ"):
                link.sendall(b"".join(reports) + b"(U1" + body.encode() + b")")

    return play


def is_name(byte):
    return byte not in b"()\r\n"


@fault("bytes 0 to 255", 1)
def every_byte(stage, _times):
    for byte in range(256):
        one = bytes([byte])
        name = b'(U1Z1N"a' + one + b'z")'
        unit = Unit(stage, say(b"(U1Z1V-20)", b"(U1Z1V-3" + one + b"0)", one, b"(U1O1Z1)", name, b'(U1I1N"' + one + b'")'))
        remote = Remote(stage, to=unit)
        check(remote.ask("wait open", "wait answer")["ok"], f"byte {byte}: no end of the answer")
        rows = remote.ask("state")["controls"]["zonePicker"]["rows"]
        wanted = "a" + one.decode("latin1") + "z" if is_name(byte) else "Zone 1"
        check(rows == [wanted], f"byte {byte}: the zone is called {rows}, not {wanted!r}")
        remote.quit((0,))
        text = stage.run(*stage.console(to=unit), script="wait open\nwait answer\nstate\nquit\n")
        check(not any((ord(c) < 32 and c != "\n") or 127 <= ord(c) < 160 for c in text.output), f"byte {byte} reaches the terminal")
        unit.stop()


NAMES = ["\x1b[2J", "\x1b]0;x\x07", "\x9b31m", "\x7f\x08\x08", "<b>bold</b>", "<img src=x>", "<a href=b>c</a>", "&amp;&lt;", "%s%n%1%2", '"a""b"', "\\n\\x1b\\", '{"a":[1', "\u00adx", "\t\t", "' OR 1", "x" * 16]


@fault("names with escapes and markup", 1)
def odd_names(stage, _times):
    reports = [f'(U1O{n}Z{n})(U1Z{n}N"{name}")(U1I{n}N"{name}")'.encode("latin1") for n, name in enumerate(NAMES, 1)]
    unit = Unit(stage, say(*reports))
    remote = Remote(stage, to=unit)
    remote.ask("wait open", "wait answer")
    controls = remote.ask("state")["controls"]
    check(controls["zonePicker"]["rows"] == NAMES, f"the zones are {controls['zonePicker']['rows']}")
    remote.quit((0,))
    text = stage.run(*stage.console(to=unit), script="wait open\nwait answer\nstate\nquit\n").output
    check(not any((ord(c) < 32 and c != "\n") or 127 <= ord(c) < 160 for c in text), "an escape reaches the terminal")
    unit.received.clear()
    window = stage.window(to=unit)
    unit.wait_for("APPQ0")
    time.sleep(1)
    window.terminate()
    ended(window)
    # Markup that is taken for markup looks for its image and complains that there is none.
    check(window.complaint() == "", f"the window complains: {window.complaint()[:100]}")


@fault("urgent data between reports", 100)
def urgent(stage, times):
    def play(link, unit):
        for body in unit.commands(link):
            if body == "APPQ0":
                for report in unit.reports:
                    link.sendall(report)
                    if unit.choice.random() < 0.3:
                        link.send(b"!", socket.MSG_OOB)

    unit = Unit(stage, play)
    unit.choice = random.Random(stage.seed)
    unit.reports = unit.zone.answer()
    unit.zone.apply(b"".join(unit.reports))
    remote = Remote(stage, to=unit)
    for _ in range(times):
        check(remote.ask("wait open", "wait answer")["ok"], "no end of the answer")
        unit.zone.check(remote)
        unit.reports = unit.zone.answer()
        unit.zone.apply(b"".join(unit.reports))
        remote.reconnect()
    remote.check_usable()


@fault("reconnects", 1000)
def reconnects(stage, times):
    unit = Unit(stage)
    remote = Remote(stage, to=unit)
    remote.ask("wait open", "wait answer")
    for _ in range(20):
        remote.reconnect()
        remote.ask("wait open", "wait answer")
    before = remote.resources()
    began = time.monotonic()
    for _ in range(times):
        remote.reconnect()
        check(remote.ask("wait open", "wait answer")["ok"], "not open again")
    took = time.monotonic() - began
    grown = check_flat(before, remote.resources())
    remote.check_usable()
    return f"{took / times * 1000:.1f} ms each, {grown} more"


@fault("reconnects that do not wait", 2000)
def impatient(stage, times):
    unit = Unit(stage)
    remote = Remote(stage, to=unit)
    remote.ask("wait open", "wait answer")
    before = remote.resources()
    for _ in range(0, times, 20):
        remote.ask(*["app away", "app back"] * 20)
    remote.ask("wait open", "wait answer", "wait 0.2")
    grown = check_flat(before, remote.resources())
    remote.check_usable()
    return grown + " more"


@fault("tab switches", 10000)
def tab_switches(stage, times):
    unit = Unit(stage)
    remote = Remote(stage, to=unit)
    remote.ask("wait open", "wait answer")
    remote.ask(*["tab 1", "tab 2", "tab 3", "tab 0"] * 50)
    before = remote.resources()
    queries = len(unit.received)
    began = time.monotonic()
    for _ in range(0, times, 4):
        remote.ask("tab 1", "tab 2", "tab 3", "tab 0")
    took = time.monotonic() - began
    remote.ask("wait answer")
    check(len(unit.received) - queries == times // 4 * 4, "not one query for each appearance")
    grown = check_flat(before, remote.resources())
    remote.check_usable()
    return f"{took / times * 1e6:.0f} µs each, {grown} more"


@fault("stopped and continued", 50)
def stopped(stage, times):
    unit = Unit(stage)
    remote = Remote(stage, to=unit)
    remote.ask("wait open", "wait answer", "wait 0.1")
    for _ in range(times):
        remote.process.send_signal(signal.SIGSTOP)
        for _ in range(20):
            whole = b"".join(unit.zone.answer())
            unit.zone.apply(whole)
            unit.links[-1].sendall(whole)
        time.sleep(stage.random.uniform(0, 0.1))
        remote.process.send_signal(signal.SIGCONT)
        remote.ask("wait 0.05")
        unit.zone.check(remote)
    check(not remote.take("alert"), "an alert for nothing")
    remote.check_usable()
