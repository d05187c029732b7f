"""Faults of browsers, kind and hostile, against the web front end. A visitor that is in must not notice."""

import contextlib
import json
import signal
import socket
import time

import browser
from stage import ANSWER_TIME, NotSurvived, Unit, check, check_flat, check_time, ended, fault, reset, resources

FRAMES = {  # what no browser sends, and the close code
    "binary": (browser.frame(b"x", browser.BINARY), 1003),
    "too long": (browser.frame("x" * 4097), 1009),
    "endless": (browser.frame("x" * 4000, last=False) + browser.frame("x" * 4000, 0, last=False), 1009),
    "huge by its head": (b"\x81\xff" + b"\x7f" + b"\xff" * 7 + b"mask", 1009),
    "no UTF-8": (browser.frame(b"\xc3\x28"), 1007),
    "unknown": (browser.frame("x", 3), 1002),
    "reserved bit": (b"\xc1\x80mask", 1002),
    "continued from nothing": (browser.frame("x", 0), 1002),
    "ping in fragments": (browser.frame("x", browser.PING, last=False), 1002),
    "ping that is too long": (browser.frame("x" * 126, browser.PING), 1002),
}
HEADS = {  # a request, and its status
    "two lengths": (b"GET / HTTP/1.1\r\nHost: localhost\r\nContent-Length: 0\r\nContent-Length: 5\r\n\r\nabcde", 400),
    "chunked": (b"GET / HTTP/1.1\r\nHost: localhost\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", 400),
    "two hosts": (b"GET / HTTP/1.1\r\nHost: localhost\r\nHost: evil.example\r\n\r\n", 400),
    "another host": (b"GET / HTTP/1.1\r\nHost: evil.example\r\n\r\n", 421),
    "NUL": (b"GET / HTTP/1.1\r\nHost: localhost\r\nX: \x00\r\n\r\n", 400),
    "line feeds alone": (b"GET / HTTP/1.1\nHost: localhost\n\n\r\n\r\n", 400),
    "TLS": (b"\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03", 400),
    "body of a megabyte": (b"POST / HTTP/1.1\r\nHost: localhost\r\nContent-Length: 1000000\r\n\r\n" + b"x" * 60000, 405),
    "too large": (b"GET / HTTP/1.1\r\nHost: localhost\r\nX: " + b"x" * 9000 + b"\r\n\r\n", 431),
    "two requests": (b"GET / HTTP/1.1\r\nHost: localhost\r\n\r\n" * 2, 200),
    "foreign page": (browser.upgrade_head("localhost", "http://evil.example"), 403),
}


class Served:
    """The web front end on a unit, and a visitor that is in."""

    def __init__(self, stage, *options, unit=None):
        self.unit = unit or Unit(stage)
        where = ("--connect-to", f"127.0.0.1:{self.unit.port}", "--settings", stage.new("settings.json"))
        self.process = stage.start(stage.program, "--web", "0", "--json", *where, *options)
        line = self.process.stdout.readline()
        check(line, f"does not start: {self.process.complaint()}")
        self.port = int(json.loads(line)["urls"][0].rsplit(":", 1)[1].strip("/"))
        self.stage = stage
        self.good = self.visit()

    def visit(self, current=True, **options):
        visitor = browser.WebSocket(self.port, **options)
        self.stage.closing.callback(visitor.close)
        check(visitor.status == 101, f"no WebSocket: {visitor.status}")
        check(visitor.hello()["ok"], "hello is refused")
        if current:
            visitor.until(lambda line: line.get("status") == "current")
        return visitor

    def request(self, data, patience=20):
        with browser.connect(self.port) as link:
            link.settimeout(patience)
            with contextlib.suppress(BrokenPipeError, ConnectionResetError):
                link.sendall(data)
            return browser.read_answer(link)[0]

    def check_good(self):
        began = time.monotonic()
        try:
            check(self.good.ask("get")["ok"], "the good visitor is refused")
        except (browser.Closed, OSError) as end:
            raise NotSurvived(f"the good visitor: {end}") from None
        check_time(time.monotonic() - began, 10 * ANSWER_TIME, "the good visitor's answer")

    def resources(self):
        time.sleep(0.3)  # those who have gone are noticed
        return resources(self.process)

    def quit(self):
        self.check_good()
        self.process.send_signal(signal.SIGTERM)
        ended(self.process)


@fault("requests that no browser sends", 20)
def heads(stage, times):
    served = Served(stage)
    before = None
    for _ in range(times):
        for name, (data, status) in HEADS.items():
            found = served.request(data)
            check(found == status, f"{name}: {found}, not {status}")
        before = before or served.resources()
        served.check_good()
    grown = check_flat(before, served.resources(), 1024)
    served.quit()
    return grown + " more"


@fault("endless and slow heads", 40)
def slow_heads(stage, times):
    served = Served(stage)
    links = [browser.connect(served.port) for _ in range(times)]
    began = time.monotonic()
    statuses = []
    while len(statuses) < times:
        check(time.monotonic() - began < 12, f"{times - len(statuses)} of {times} are still there")
        time.sleep(0.5)
        for link in list(links):
            with contextlib.suppress(OSError):
                link.sendall(b"GET / HTTP/1.1\r\nHost: " if time.monotonic() - began < 1 else b"x")
            link.settimeout(0.001)
            with contextlib.suppress(TimeoutError):
                answer = link.recv(64)
                statuses.append(answer.split()[1] if answer else b"none")
                links.remove(link)
        served.check_good()
    check(set(statuses) <= {b"400", b"408"}, f"answered with {set(statuses)}")
    served.quit()


@fault("2,000 connections", 2000)
def connections(stage, times):
    served = Served(stage)
    before = served.resources()
    links = []
    for index in range(times):
        links.append(browser.connect(served.port))
        if index % 200 == 0:
            served.check_good()
        if len(links) > 500:
            links.pop(0).close()
    for link in links:
        reset(link)
        link.close()
    grown = check_flat(before, served.resources(), 2048)
    check(served.request(b"GET / HTTP/1.1\r\nHost: localhost\r\n\r\n") == 200, "nobody is let in afterwards")
    served.quit()
    return grown + " more"


@fault("visits", 600)
def visits(stage, times):
    served = Served(stage)
    before = None
    for index in range(times):
        visitor = browser.WebSocket(served.port)
        check(visitor.status == 101, f"visit {index}: {visitor.status}")
        if index % 2:
            check(visitor.hello()["ok"], "hello is refused")
        if index % 3:
            reset(visitor.link)
        visitor.close()
        if index == times // 2:
            before = served.resources()
    grown = check_flat(before, served.resources())
    check(len(served.unit.links) == 1, "more than one link")
    served.quit()
    return grown + " more"


@fault("frames that no browser sends", 10)
def frames(stage, times):
    served = Served(stage)
    for _ in range(times):
        for name, (data, code) in FRAMES.items():
            visitor = served.visit(current=False)
            visitor.send_raw(data)
            found = visitor.closed(5)
            check(found == code, f"{name}: closed with {found}, not {code}")
        visitor = served.visit(current=False)  # nobody stands between here: the mask is no matter
        visitor.send_raw(browser.frame("get", masked=False))
        visitor.close()
        served.check_good()
    served.quit()


@fault("floods of pings, commands and nonsense", 3)
def floods(stage, times):
    served = Served(stage)
    before = served.resources()
    for _ in range(times):
        for piece in (browser.frame(b"x" * 125, browser.PING) * 200, browser.frame("state") * 200, browser.frame("a" * 4000) * 20):
            visitor = served.visit(current=False)
            visitor.link.setblocking(False)
            until = time.monotonic() + 1.5
            while time.monotonic() < until:
                with contextlib.suppress(BlockingIOError):
                    if not visitor.link.send(piece):
                        break
                served.check_good()
            visitor.close()
    grown = check_flat(before, served.resources(), 2048)
    served.quit()
    return grown + " more"


@fault("visitors that never read", 16)
def never_read(stage, times):
    served = Served(stage)
    for _ in range(times):
        served.visit(receive_buffer=2048).send("watch on")
    before = served.resources()
    link = served.unit.links[-1]
    until = time.monotonic() + 34
    level = 0
    while time.monotonic() < until:
        level = (level + 1) % 70
        link.sendall(b"".join(f"(U1Z{zone}V-{level})(U1Z{zone}M{level % 2})".encode() for zone in range(1, 17)))
        served.check_good()
        time.sleep(0.005)
    after = served.resources()
    check(after["descriptors"] <= before["descriptors"] - times + 1, "they are still there")
    grown = max(after["memory"] - before["memory"], 0)
    check(grown < 350 * times, f"{grown} kB more")
    served.quit()
    return f"{grown} kB more"


@fault("visitors that vanish in the middle of a command", 30)
def vanishing(stage, times):
    served = Served(stage)
    for index in range(times):
        visitor = served.visit()
        value = int(visitor.ask("state")["controls"]["volumeSlider"]["value"])
        level = value - 3 if value > -70 else value + 3
        served.unit.received.clear()
        visitor.send("hold volumeSlider")
        check(visitor.ask(f"slide volumeSlider {level}")["ok"], "slide is refused")
        if index % 3 == 0:
            reset(visitor.link)
        elif index % 3 == 1:
            visitor.link.shutdown(socket.SHUT_WR)
        visitor.close()
        served.unit.wait_for(f"Z1V{level}", 5)
        served.check_good()
    check(len(served.unit.links) == 1, "more than one link")
    served.quit()


@fault("guessing of codes", 30)
def guessing(stage, times):
    unit = Unit(stage)
    process = stage.start(stage.program, "--web", "0", "--json", "--web-name", "remote.example", "--connect-to", f"127.0.0.1:{unit.port}", "--settings", stage.new("s"))
    start = json.loads(process.stdout.readline())
    port = int(start["urls"][0].rsplit(":", 1)[1].strip("/"))
    answered = 0
    for index in range(times):
        visitor = browser.WebSocket(port)
        check(visitor.hello().get("pair"), "let in without a code")
        reply = visitor.ask(f"pair {index:08}")
        check(not reply["ok"], "a wrong code pairs")
        answered += "too many" not in reply["error"]
        visitor.close()
    check(answered == 5, f"{answered} guesses were answered within a minute")
    check(not unit.links, "a link for nobody")
    process.send_signal(signal.SIGTERM)
    ended(process)


@fault("a unit that is silent, slow, gone and back under visitors", 5)
def unit_lost(stage, times):
    served = Served(stage)
    others = [served.visit() for _ in range(8)]
    for _ in range(times):
        time.sleep(2)
        served.unit.links[-1].shutdown(socket.SHUT_RDWR)
        for visitor in (served.good, *others):
            visitor.until(lambda line: line.get("link") == "closed")
        for visitor in (served.good, *others):
            visitor.until(lambda line: line.get("status") == "current", 15)
    check(len(served.unit.links) == times + 1, f"{len(served.unit.links)} connects for {times} losses")
    served.quit()
