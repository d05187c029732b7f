"""A browser that is driven by WebDriver, with Python's standard library only."""

import base64
import http.client
import json
import subprocess
import time

ELEMENT = "element-6066-11e4-a52e-4f735466cecf"


class Browser:
    """A headless Chromium; `with Browser(...) as browser`."""

    def __init__(self, width, height, language="en", touch=True, dark=False):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        for line in self.driver.stdout:
            if "successfully on port" in line:
                self.port = int(line.split("on port ")[1].rstrip(".\n"))
                break
        self.kind = "touch" if touch else "mouse"
        arguments = ["--headless=new", "--no-sandbox", f"--lang={language}", f"--accept-lang={language}", "--force-device-scale-factor=1",
                     "--hide-scrollbars"]
        options = {"args": arguments, "mobileEmulation": {"deviceMetrics": {"width": width, "height": height, "pixelRatio": 1, "touch": touch}}}
        session = self.call("POST", "/session", {"capabilities": {"alwaysMatch": {"browserName": "chrome", "goog:chromeOptions": options}}})
        self.path = "/session/" + session["sessionId"]
        if dark:
            self.devtools("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": "dark"}])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self.call("DELETE", self.path)
        finally:
            self.driver.terminate()
            self.driver.wait()

    def call(self, method, path, body=None):
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=60)
        connection.request(method, path, None if body is None else json.dumps(body))
        value = json.loads(connection.getresponse().read())["value"]
        if isinstance(value, dict) and "error" in value:
            raise RuntimeError(value["message"].splitlines()[0])
        return value

    def open(self, url):
        self.call("POST", self.path + "/url", {"url": url})

    def run(self, script, *arguments):
        return self.call("POST", self.path + "/execute/sync", {"script": script, "args": list(arguments)})

    def devtools(self, command, **parameters):
        return self.call("POST", self.path + "/goog/cdp/execute", {"cmd": command, "params": parameters})

    def find(self, selector):
        return self.call("POST", self.path + "/element", {"using": "css selector", "value": selector})[ELEMENT]

    def keys(self, selector, text):
        self.call("POST", f"{self.path}/element/{self.find(selector)}/value", {"text": text})

    def gesture(self, selector, *moves, lift=True):
        """A finger on the middle of an element, moved by each (x, y) in turn, and lifted."""
        origin = {ELEMENT: self.find(selector)}
        actions = [{"type": "pointerMove", "duration": 0, "origin": origin, "x": 0, "y": 0}, {"type": "pointerDown", "button": 0}]
        actions += [{"type": "pointerMove", "duration": 60, "origin": "pointer", "x": x, "y": y} for x, y in moves]
        actions += [{"type": "pointerUp", "button": 0}] if lift else []
        self.call("POST", self.path + "/actions", {"actions": [
            {"type": "pointer", "id": "finger", "parameters": {"pointerType": self.kind}, "actions": actions}]})

    def lift(self):
        self.call("DELETE", self.path + "/actions")

    def wait(self, script, seconds=5):
        """Until the expression is true."""
        end = time.monotonic() + seconds
        while not (value := self.run(f"return {script}")):
            if time.monotonic() > end:
                raise AssertionError(f"not true within {seconds} s: {script}")
            time.sleep(0.02)
        return value

    def picture(self, file):
        with open(file, "wb") as stream:
            stream.write(base64.b64decode(self.call("GET", self.path + "/screenshot")))
