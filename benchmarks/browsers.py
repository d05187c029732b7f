#!/usr/bin/python3
"""Browsers on the web front end, from outside: browsers.py REMOTE SIMULATOR.

The time from the command of one of 32 visitors to the event of the last one, against 32 console programs (the baseline) and
with 20 more that never read; then 32 visitors in a stream of changing reports: processor time, memory, the last state."""

import json
import os
import pathlib
import re
import select
import signal
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "faults"))
sys.dont_write_bytecode = True
import browser  # noqa: E402

MANY, SILENT, COMMANDS = 32, 20, 300
REPORTS, SECONDS = 1000, 5  # a second, for so long
MUTED = b'"control":"muteSwitch","state":{"kind":"switch","on":'
running = []


def start(*command):
    process = subprocess.Popen([str(word) for word in command], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    running.append(process)
    return process


def stop(process):
    process.send_signal(signal.SIGTERM)
    process.stdin.close()
    process.stdout.close()
    process.wait()
    running.remove(process)


def start_web(port, folder, *options):
    process = start(sys.argv[1], "--web", "0", "--json", "--connect-to", f"127.0.0.1:{port}", "--settings", folder + "/web", *options)
    return process, int(re.search(r":(\d+)/", json.loads(process.stdout.readline())["urls"][0])[1])


def visit(port, **options):
    visitor = browser.WebSocket(port, **options)
    visitor.hello()
    visitor.send("wait current")
    visitor.until(lambda line: line.get("reply") == "wait")
    return visitor


def start_unit():
    process = start(sys.argv[2])
    return process, int(process.stdout.readline().decode().rsplit(":", 1)[1])


def times_of(outputs, tell):
    """The median time in ms from a command, by turns of each, to the last event."""
    times = []
    waiting = select.poll()
    for index in range(COMMANDS):
        on = b"true" if index % 2 == 0 else b"false"
        heard = dict.fromkeys(outputs, b"")
        for output in outputs:
            waiting.register(output, select.POLLIN)
        began = time.perf_counter()
        tell(index % len(outputs), "switch muteSwitch " + ("on" if on == b"true" else "off"))
        while heard:
            ready = waiting.poll(20000)
            if not ready:
                sys.exit(f"error: {len(heard)} do not show a change")
            for output, _ in ready:
                heard[output] += os.read(output, 65536)
                if MUTED + on in heard[output]:
                    del heard[output]
                    waiting.unregister(output)
        times.append((time.perf_counter() - began) * 1000)
    return statistics.median(times)


def measure_consoles(folder):
    unit, port = start_unit()
    consoles = [start(sys.argv[1], "--console", "--json", "--connect-to", f"127.0.0.1:{port}", "--settings", f"{folder}/{index}") for index in range(MANY)]
    for console in consoles:
        console.stdin.write(b"wait current\n")
        console.stdin.flush()
    for console in consoles:
        while b'"reply":"wait"' not in console.stdout.readline():
            pass

    def tell(index, command):
        consoles[index].stdin.write(command.encode() + b"\n")
        consoles[index].stdin.flush()

    result = times_of([console.stdout.fileno() for console in consoles], tell)
    for process in (*consoles, unit):
        stop(process)
    return result


def read_for_ever(outputs):
    """A process that does nothing else: its id."""
    process = os.fork()
    if process == 0:
        while ready := select.select(outputs, [], [])[0]:
            for output in ready:
                if not output.recv(65536):
                    os._exit(0)
    return process


def measure_visitors(folder, count, they_read=True):
    """The time to the last of the first `count` visitors; the others read or never do."""
    unit, port = start_unit()
    web, web_port = start_web(port, folder)
    visitors = [visit(web_port) for _ in range(count)]
    others = [visit(web_port, receive_buffer=4096) for _ in range(MANY - count)]
    reader = read_for_ever([other.link for other in others]) if others and they_read else None
    result = times_of([visitor.link.fileno() for visitor in visitors], lambda index, command: visitors[index].send(command))
    if reader:
        os.kill(reader, signal.SIGKILL)
        os.waitpid(reader, 0)
    for visitor in (*visitors, *others):
        visitor.close()
    stop(web)
    stop(unit)
    return result


def memory(process):
    return int(re.search(r"Pss: +(\d+)", pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text())[1])


def processor_time(process):
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def measure_stream(folder, count):
    """A unit of our own that reports without an end: the program's share of a core, and its memory in kB."""
    listener = socket.create_server(("127.0.0.1", 0))
    links = []

    def serve():
        link = listener.accept()[0]
        links.append(link)
        while data := link.recv(4096):
            for query in re.findall(rb"\[U1(APPQ\d)\]", data):
                link.sendall(b"(U1Z1V-30)(U1Z1M0)(U1" + query + b")")

    threading.Thread(target=serve, daemon=True).start()
    web, port = start_web(listener.getsockname()[1], folder)
    visitors = [visit(port) for _ in range(count)]
    for visitor in visitors:
        visitor.ask("watch on")
    waiting = select.poll()
    tails = {}
    for visitor in visitors:
        waiting.register(visitor.link.fileno(), select.POLLIN)
        tails[visitor.link.fileno()] = b""

    def read(until):
        while (left := until - time.perf_counter()) > 0:
            for output, _ in waiting.poll(left * 1000):
                tails[output] = (tails[output] + os.read(output, 65536))[-8192:]

    began, spent = time.perf_counter(), processor_time(web)
    for tick in range(SECONDS * 100):
        number = tick * REPORTS // 100
        links[0].sendall(b"".join(f"(U1Z{1 + (number + index) % 16}V-{10 + (number + index) // 16 % 60})".encode() for index in range(REPORTS // 100)))
        read(began + (tick + 1) / 100)
    share = (processor_time(web) - spent) / (time.perf_counter() - began)
    links[0].sendall(b"(U1Z1V-77)(U1Z16V-78)")
    read(time.perf_counter() + 0.5)
    late = sum(b'"volume":-77' not in tail or b'"volume":-78' not in tail for tail in tails.values())
    if late:
        sys.exit(f"error: {late} of {count} visitors have not seen the last state")
    kilobytes = memory(web)
    for visitor in visitors:
        visitor.close()
    links[0].close()
    stop(web)
    return share, kilobytes


def main():
    with tempfile.TemporaryDirectory() as folder:
        consoles = measure_consoles(folder)
        visitors = measure_visitors(folder, MANY)
        few = measure_visitors(folder, MANY - SILENT)
        beside = measure_visitors(folder, MANY - SILENT, they_read=False)
        one_share, one = measure_stream(folder, 1)
        share, many = measure_stream(folder, MANY)
    print(f"a change, from its command to the last of {MANY} visitors: {visitors:.2f} ms; of {MANY} consoles: {consoles:.2f} ms: {visitors / consoles:.2f} times")
    print(f"to the last of {MANY - SILENT} visitors beside {SILENT} others: {few:.2f} ms; beside {SILENT} that never read: {beside:.2f} ms: {beside / few:.2f} times")
    print(f"{REPORTS} reports a second: {share * 100:.1f} % of a core for {MANY} visitors, {one_share * 100:.1f} % for one: {share / one_share:.1f} times")
    print(f"memory: {many / 1024:.1f} MiB with {MANY} visitors, {one / 1024:.1f} MiB with one: {(many - one) / (MANY - 1):.0f} kB a visitor")


if __name__ == "__main__":
    try:
        main()
    finally:
        for process in running:
            process.kill()
