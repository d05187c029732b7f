"""Faults played against lumbra-unit-sim: its clients are no more to be trusted than a unit is."""

import contextlib
import json
import signal
import socket
import time

from stage import NotSurvived, check, ended, fault, resources


def serve(stage, *options, prefix=(), **more):
    unit = stage.start(*prefix, stage.simulator, *options, **more)
    unit.port = int(unit.stdout.readline().rsplit(b":", 1)[1])
    return unit


def client(stage, unit, query=b"[U1APPQ3]"):
    link = stage.closing.enter_context(socket.create_connection(("127.0.0.1", unit.port), timeout=5))
    link.sendall(query)
    return link


def answered(link, end=b"(U1APPQ3)"):
    read = b""
    try:
        while end not in read:
            piece = link.recv(1 << 16)
            if not piece:
                return False
            read += piece
    except OSError:
        return False
    return True


def check_serves(stage, unit):
    check(answered(client(stage, unit)), "no answer afterwards")
    unit.terminate()
    ended(unit, patience=5)


def trace_of(stage, links, *entries):
    """A trace in which each link holds the same entries."""
    trace = stage.new("trace.jsonl")
    begin = {"event": "attempt", "host": "unit", "port": 23}, {"event": "opened"}
    lines = [{"time": 0, "link": link} | entry for link in range(1, links + 1) for entry in (*begin, *entries)]
    trace.write_text("".join(json.dumps(line) + "\n" for line in ({"trace": 1}, *lines)))
    return trace


@fault("simulator out of descriptors", 40)
@fault("replay out of descriptors", 40, {"sent": "[U1APPQ3]"}, {"received": "(U1APPQ3)"})
def no_descriptors(stage, times, *entries):
    replay = ("--replay", trace_of(stage, 100, *entries)) if entries else ()
    unit = serve(stage, *replay, prefix=("prlimit", "--nofile=12" if replay else "--nofile=20", "--"))
    for link in [client(stage, unit) for _ in range(max(times, 30))]:
        link.close()
    time.sleep(0.5)
    check_serves(stage, unit)


@fault("replay of what strangers wrote", 1)
def strange_traces(stage, _times):
    nasty = "\x1b[2J\a\x9b\n" + "x" * 1_000_000
    trace = trace_of(stage, 1, {"event": "\u202e" + nasty})
    strange_name = trace.rename(trace.with_name("\x1b\u202e.jsonl"))
    said = stage.run(stage.simulator, "--replay", strange_name, allowed=(1,)).complaint()
    check(said.isprintable() and len(said) < 2000, f"says {said[:200]!r}, {len(said)} characters")
    unit = serve(stage, "--verbose", "--replay", trace_of(stage, 1, {"received": nasty}, {"sent": nasty}))
    client(stage, unit, b"[\x1b]").close()
    said = [unit.stdout.readline().decode() for _ in range(3)]
    check(all(line[:-1].isprintable() and len(line) < 2000 for line in said), f"prints {said}")
    unit.terminate()
    ended(unit, patience=5)


@fault("simulator --verbose, and nobody reads", 200)
def full_pipe(stage, times):
    unit = serve(stage, "--verbose")
    for _ in range(times):
        with client(stage, unit, b"[U1APPQ1]") as link:
            check(answered(link, b"(U1APPQ1)"), "no answer with the pipe full")
    check_serves(stage, unit)


@fault("simulator --end-after, and clients that stay", 70)
def staying_clients(stage, times):
    unit = serve(stage, "--end-after", "20")
    for index in range(max(times, 70)):
        link = client(stage, unit)
        try:
            check(link.recv(20, socket.MSG_WAITALL) != b"", f"client {index + 1} is turned away")
        except ConnectionResetError:
            raise NotSurvived(f"client {index + 1} is turned away") from None
    unit.terminate()
    ended(unit, patience=5)


@fault("simulator --flood, stopped and continued", 10)
def stopped_flood(stage, seconds):
    unit = serve(stage, "--flood", "1000000")
    link = client(stage, unit)
    unit.send_signal(signal.SIGSTOP)
    time.sleep(max(seconds, 5))
    unit.send_signal(signal.SIGCONT)
    most = 0
    until = time.monotonic() + 3
    while time.monotonic() < until:
        most = max(most, resources(unit)["memory"])
        with contextlib.suppress(ConnectionResetError):  # one that is too far behind may be dropped
            link.recv(1 << 20)
    check(most < 64 * 1024, f"{most // 1024} MB")
    link.close()
    check_serves(stage, unit)
    return f"{most // 1024} MB"


@fault("simulator under random bytes", 200)
def random_bytes(stage, times):
    unit = serve(stage)
    before = resources(unit)["memory"]
    links = []
    for index in range(times):
        links.append(client(stage, unit, stage.random.randbytes(stage.random.randint(0, 20000)) + b"[U1" * (index % 7 * 1000)))
        if len(links) > 30:
            links.pop(stage.random.randrange(30)).close()
    for link in links:
        link.close()
    time.sleep(0.3)
    grown = resources(unit)["memory"] - before
    check(grown < 16384, f"memory: {grown} kB more")
    check_serves(stage, unit)
    return f"{max(grown, 0)} kB more"
