# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""A headless Chromium, spoken to through a pipe of its own: pages, keys, pointer, pictures."""

import base64
import json
import os
import pathlib
import select
import subprocess
import tempfile
import time

DEADLINE = 60  # seconds that nothing may take longer than

# Nothing that is tested may reach a network, and nothing else shall.
FLAGS = ["--headless=new", "--no-first-run", "--no-default-browser-check", "--disable-gpu",
         "--disable-background-networking", "--disable-component-update", "--disable-sync",
         "--disable-extensions", "--disable-dev-shm-usage", "--mute-audio", "--hide-scrollbars",
         "--host-resolver-rules=MAP * ~NOTFOUND", "--remote-debugging-pipe"]

KEYS = {"ArrowLeft": 37, "ArrowUp": 38, "ArrowRight": 39, "ArrowDown": 40, "Home": 36, "End": 35,
        "PageUp": 33, "PageDown": 34, "Enter": 13, "Escape": 27, "Tab": 9, "k": 75, "s": 83}


class Browser:
    """One browser with one page. What the page says and asks for is kept in `events`."""

    def __init__(self):
        self.home = tempfile.TemporaryDirectory(prefix="kestrova-browser-")
        to_browser, self.writer = os.pipe()
        self.reader, from_browser = os.pipe()
        flags = FLAGS + [f"--user-data-dir={self.home.name}"]
        if os.geteuid() == 0:
            flags.append("--no-sandbox")
        self.process = subprocess.Popen(
            ["sh", "-c", f'exec nice chromium "$@" 3<&{to_browser} 4>&{from_browser}', "sh", *flags],
            pass_fds=(to_browser, from_browser), stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
        os.close(to_browser)
        os.close(from_browser)
        self.number = 0
        self.received = b""
        self.events = []
        self.session = None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Network", "Log", "Performance"):
            self.call(f"{domain}.enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self.session = None
            self.call("Browser.close")
        except (OSError, RuntimeError):
            self.process.kill()
        self.process.wait(DEADLINE)
        os.close(self.writer)
        os.close(self.reader)
        self.home.cleanup()

    def _receive(self, deadline):
        while b"\0" not in self.received:
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([self.reader], [], [], left)[0]:
                raise RuntimeError("the browser says nothing")
            more = os.read(self.reader, 1 << 20)
            if not more:
                raise RuntimeError("the browser has ended")
            self.received += more
        message, self.received = self.received.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if self.session:
            message["sessionId"] = self.session
        os.write(self.writer, json.dumps(message).encode() + b"\0")
        deadline = time.monotonic() + DEADLINE
        while True:
            answer = self._receive(deadline)
            if answer.get("id") != self.number:
                self.events.append(answer)
                continue
            if "error" in answer:
                raise RuntimeError(f"{method}: {answer['error']}")
            return answer["result"]

    def evaluate(self, expression):
        """The value of an expression in the page, awaited."""
        answer = self.call("Runtime.evaluate", expression=expression, awaitPromise=True,
                           returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(f"{expression}: {answer['exceptionDetails']}")
        return answer["result"].get("value")

    def wait_for(self, expression):
        deadline = time.monotonic() + DEADLINE
        while not self.evaluate(expression):
            if time.monotonic() > deadline:
                raise RuntimeError(f"never so: {expression}")
            time.sleep(0.02)

    def size(self, width, height, scheme="light", scale=1):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=scale, mobile=False)
        self.call("Emulation.setEmulatedMedia",
                  features=[{"name": "prefers-color-scheme", "value": scheme}])

    def open(self, path):
        """Opens a page and waits until it is loaded."""
        self.events.clear()
        self.call("Page.navigate", url=pathlib.Path(path).absolute().as_uri())
        self.wait_for("document.readyState === 'complete'")

    def settle(self):
        """Until what was asked for is drawn."""
        self.evaluate("new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))")

    def key(self, name):
        code = KEYS[name]
        text = "\r" if name == "Enter" else ""
        self.call("Input.dispatchKeyEvent", type="keyDown" if text else "rawKeyDown", key=name,
                  code=name, text=text, windowsVirtualKeyCode=code)
        self.call("Input.dispatchKeyEvent", type="keyUp", key=name, code=name,
                  windowsVirtualKeyCode=code)
        self.settle()

    def mouse(self, kind, x, y):
        self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", buttons=1,
                  clickCount=1)
        self.settle()

    def touch(self, kind, *points):
        self.call("Input.dispatchTouchEvent", type=kind, touchPoints=[{"x": x, "y": y} for x, y in points])
        self.settle()

    def save_downloads(self, folder):
        """Where files go that the page gives away."""
        self.call("Page.setDownloadBehavior", behavior="allow", downloadPath=str(folder))

    def choose_file(self, selector, path):
        """Gives a field for files one, as its dialog would."""
        root = self.call("DOM.getDocument")["root"]["nodeId"]
        node = self.call("DOM.querySelector", nodeId=root, selector=selector)["nodeId"]
        self.call("DOM.setFileInputFiles", files=[str(path)], nodeId=node)

    def screenshot(self, path, has_script=True):
        if has_script:
            self.settle()
        shot = self.call("Page.captureScreenshot", format="png")
        pathlib.Path(path).write_bytes(base64.b64decode(shot["data"]))

    def complaints(self):
        """What the page has had to complain of: errors, exceptions, warnings."""
        self.evaluate("0")
        found = []
        for event in self.events:
            details = event.get("params", {})
            if event.get("method") == "Runtime.exceptionThrown":
                found.append(str(details["exceptionDetails"]))
            if event.get("method") == "Runtime.consoleAPICalled":
                found.append(str(details["args"]))
            if event.get("method") == "Log.entryAdded":
                found.append(details["entry"]["text"] + " " + details["entry"].get("url", ""))
        return found

    def requests(self):
        """The addresses that the page has asked for."""
        self.evaluate("0")
        return [event["params"]["request"]["url"] for event in self.events
                if event.get("method") == "Network.requestWillBeSent"]
