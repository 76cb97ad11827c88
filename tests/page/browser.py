"""Debian's chromium without a window, told what to do in the DevTools protocol."""

import json
import os
import subprocess
import tempfile


class Browser:
    def __init__(self):
        self.home = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        to_browser, ours = os.pipe()
        theirs, from_browser = os.pipe()[::-1]
        options = ["--headless", "--no-sandbox", "--disable-dev-shm-usage", "--remote-debugging-pipe", "--disable-gpu", "--no-first-run",
                   "--disable-background-networking", "--user-data-dir=" + self.home.name]
        # The protocol's pipes have the numbers 3 and 4.
        pipes = f"exec {' '.join(['chromium', *options])} 3<&{to_browser} 4>&{theirs}"
        self.process = subprocess.Popen(["bash", "-c", pipes], pass_fds=[to_browser, theirs],
                                        stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(theirs)
        self.sent = os.fdopen(ours, "wb", buffering=0)
        self.received = os.fdopen(from_browser, "rb")
        self.buffer = b""
        self.count = 0
        self.session = None
        self.events = []
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ["Page", "Runtime", "Log", "Network"]:
            self.call(domain + ".enable")

    def close(self):
        self.call("Browser.close")
        self.process.wait()
        self.home.cleanup()

    def message(self):
        while b"\0" not in self.buffer:
            read = self.received.read1(1 << 20)
            if not read:
                raise EOFError("the browser has ended")
            self.buffer += read
        text, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(text)

    def call(self, method, **parameters):
        self.count += 1
        request = {"id": self.count, "method": method, "params": parameters}
        if self.session:
            request["sessionId"] = self.session
        self.sent.write(json.dumps(request).encode() + b"\0")
        while True:
            message = self.message()
            if message.get("id") == self.count:
                if "error" in message:
                    raise RuntimeError(message["error"])
                return message["result"]
            self.events.append(message)

    def open(self, url):
        self.events = []
        self.call("Page.navigate", url=url)
        while not any(event["method"] == "Page.loadEventFired" for event in self.events):
            self.events.append(self.message())

    def resize(self, width, height):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                  mobile=width < 500)

    def run(self, script):
        answer = self.call("Runtime.evaluate", expression=script, returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(answer["exceptionDetails"]["exception"]["description"])
        return answer["result"].get("value")

    def press(self, key, text=""):
        for kind in ["keyDown", "keyUp"]:
            self.call("Input.dispatchKeyEvent", type=kind, key=key, code=key, text=text if kind == "keyDown" else "")
