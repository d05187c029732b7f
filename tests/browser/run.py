#!/usr/bin/env python3
"""The page in a real browser, with the bytes read at the unit: run.py REMOTE SIMULATOR [PICTURES]

Pairs, moves controls by touch and keys, takes the unit away and brings it back, hides the page and reloads it. With a
folder it leaves pictures there. Ends with 77 where there is no Chromium to drive."""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time

from webdriver import Browser

CURRENT = "document.body.dataset.mood === 'current'"
LEVEL = "document.querySelector('.level')?.textContent"


class Program:
    """A program whose lines are kept as they come."""

    def __init__(self, *arguments):
        self.process = subprocess.Popen(arguments, stdout=subprocess.PIPE, text=True)
        self.lines, self.read = [], 0
        threading.Thread(target=lambda: self.lines.extend(self.process.stdout), daemon=True).start()

    def wait(self, pattern, seconds=5):
        """The next line with the pattern, behind those that were waited for before."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            while self.read < len(self.lines):
                self.read += 1
                if found := re.search(pattern, self.lines[self.read - 1]):
                    return found
            time.sleep(0.01)
        raise AssertionError(f"no line with {pattern} within {seconds} s, but {self.lines[-5:]}")

    def silent(self, pattern, seconds):
        time.sleep(seconds)
        assert not any(re.search(pattern, line) for line in self.lines[self.read:]), self.lines[self.read:]

    def end(self):
        self.process.terminate()
        self.process.wait()


def road(browser, remote, unit, restart):
    """From the first open to the last reload."""
    event = json.loads(remote.wait('"event":"web"')[0] and remote.lines[remote.read - 1])
    url, code = event["urls"][0], event["code"].replace(" ", "")
    browser.open(url)
    browser.wait("!document.querySelector('.pairing').hidden")
    browser.keys(".pairing input", "00000000\ue007")
    browser.wait("document.querySelector('.wrong').textContent")
    browser.run("document.querySelector('.pairing input').value = ''")
    browser.keys(".pairing input", f"{code}\ue007")
    browser.wait(CURRENT)
    assert browser.run("return document.querySelectorAll('.row').length") == 12

    browser.gesture(".row:nth-child(2) .open")
    browser.wait("document.querySelector('h2').textContent === 'Kitchen'")
    unit.read = len(unit.lines)
    browser.gesture(".volume .slider")  # a press moves nothing
    unit.silent(r"Z02?V", 1.2)
    browser.gesture(".volume .slider", (10, 0), (-15, 0), (-10, 0))
    unit.wait(r"\[U1Z0?2V-\d+\]")
    browser.wait(f"{LEVEL} !== '52%'")
    level = browser.run(f"return {LEVEL}")
    browser.gesture(".step:last-child")
    unit.wait(r"\[U1Z0?2V-\d+\]")
    browser.wait(f"{LEVEL} !== '{level}'")
    browser.keys(".volume .slider", "\ue012")  # arrow left
    unit.wait(r"\[U1Z0?2V-\d+\]")
    browser.gesture(".main [data-kind=mute]")
    unit.wait(r"\[U1Z0?2M1\]")
    browser.wait("document.querySelector('.main .hush').textContent === 'Muted'")
    browser.gesture(".main [data-kind=mute]")
    unit.wait(r"\[U1Z0?2M0\]")

    unit.end()
    browser.wait("document.body.dataset.mood === 'offline'")
    assert browser.run("return document.querySelector('.volume .slider').getAttribute('aria-disabled')") == "true"
    unit = restart()
    browser.wait(CURRENT, 15)

    browser.run("history.back()")
    browser.run("Object.defineProperty(document, 'hidden', { value: true, configurable: true });"
                "document.dispatchEvent(new Event('visibilitychange'))")
    browser.wait("document.body.dataset.mood === 'offline'")
    browser.run("delete document.hidden; document.dispatchEvent(new Event('visibilitychange'))")
    browser.wait(CURRENT)
    browser.call("POST", browser.path + "/refresh", {})
    browser.wait(CURRENT)  # still paired

    for tab, control, bytes_ in ((3, ".tiles .switch:nth-child(4)", r"\[U1.*4"), (4, ".scenes .prominent", r"\[U1")):
        browser.gesture(f"nav button:nth-child({tab})")
        browser.wait(f"document.querySelector('{control}') && {CURRENT}")
        unit.read = len(unit.lines)
        browser.gesture(control)
        unit.wait(bytes_)
    assert not browser.run("return window.failures"), "a script has failed"
    return unit


def pictures(url, folder):
    for size, (width, height) in {"phone": (360, 640), "tablet": (1280, 800)}.items():
        with Browser(width, height, dark=True) as browser:
            browser.open(url)
            browser.wait(CURRENT)
            browser.picture(folder / f"web-{size}.png")
            if size == "phone":
                browser.gesture(".row:nth-child(2) .open")
                browser.wait("document.querySelector('h2').textContent === 'Kitchen'")
                time.sleep(0.3)
                browser.picture(folder / "web-phone-card.png")


def main():
    if not shutil.which("chromedriver") or not shutil.which("chromium"):
        sys.exit(77)
    remote_program, simulator, *folder = sys.argv[1:]
    started = []

    def start(*arguments):
        started.append(Program(*arguments))
        return started[-1]

    try:
        unit = start(simulator, "--verbose")
        port = unit.wait(r"127\.0\.0\.1:(\d+)|port (\d+)")
        port = port[1] or port[2]
        with tempfile.TemporaryDirectory() as home, Browser(360, 640) as browser:
            to_unit = ["--connect-to", f"127.0.0.1:{port}", "--settings", f"{home}/settings.ini"]
            pathlib.Path(home, "settings.ini").write_text('{"ip_address_preference": "127.0.0.1"}')
            remote = start(remote_program, "--web", "0", "--web-name", "remote.test", "--json", *to_unit)
            road(browser, remote, unit, lambda: start(simulator, "--verbose", "--port", port))
            if folder:
                open_to_all = start(remote_program, "--web", "0", "--json", "--demo")
                open_to_all.wait('"event":"web"')
                pictures(json.loads(open_to_all.lines[0])["urls"][0], pathlib.Path(folder[0]))
    finally:
        for program in started:
            program.end()


if __name__ == "__main__":
    main()
