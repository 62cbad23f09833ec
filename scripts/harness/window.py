# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""The program's windows, driven by windowdriver in a folder of their own."""

import json
import os
import select
import signal
import subprocess
import tempfile
import time
import urllib.parse

from . import common, encoders


class WindowError(Exception):
    """The windows do not answer any more."""


class Window:
    """A run of windowdriver with settings, an export folder and an encoder of its own.

    With `session` it keeps what is listed, and goes by what earlier ones have left in the folder.
    """

    def __init__(self, preset, folder, encoder="good", automatic=False, env=None, session=False):
        self.folder = folder if session and folder.exists() else common.fresh_folder(folder)
        self.clips = self.folder / "clips"
        self.encoder = None
        if not self.clips.exists():
            self.furnish(preset, encoder, automatic)
        self.errors = tempfile.TemporaryFile()
        self.begin = time.monotonic()
        self.process = common.start(
            [self.folder / "windowdriver", *(["session"] if session else [])],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self.errors,
            env=common.environment(XDG_CACHE_HOME=str(self.folder / "cache"),
                                   XDG_CONFIG_HOME=str(self.folder / "config"),
                                   XDG_DATA_HOME=str(self.folder / "data"),
                                   XDG_RUNTIME_DIR=str(self.folder), **(env or {})))
        self.received = b""

    def furnish(self, preset, encoder, automatic):
        self.clips.mkdir()
        programs = common.program_folder(preset)
        driver = common.ROOT / f"build/{preset}/tests/beside_encoder/windowdriver/windowdriver"
        (self.folder / "windowdriver").hardlink_to(driver)  # its encoder lies beside it
        self.encoder = encoders.Encoder(self.folder, encoder, programs / "ffmpeg")
        settings = self.folder / "config/kestrova"
        settings.mkdir(parents=True)
        (settings / "kestrova-windowdriver.conf").write_text(
            f"[General]\nexport_dir={self.clips}\nexport_minimum=1\n"
            f"do_export={str(automatic).lower()}\n")

    def send(self, *words):
        try:
            self.process.stdin.write(" ".join(map(str, words)).encode() + b"\n")
            self.process.stdin.flush()
        except BrokenPipeError as error:
            raise WindowError("the windows are gone") from error

    def answer(self, seconds=common.HANG_SECONDS):
        """The next line of what is to be seen."""
        end = time.monotonic() + seconds
        while b"\n" not in self.received:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, end - time.monotonic()))
            if not ready:
                raise WindowError(f"no answer for {seconds:g} s")
            part = self.process.stdout.read1(65536)
            if not part:
                raise WindowError("the windows are gone")
            self.received += part
        line, _, self.received = self.received.partition(b"\n")
        return json.loads(line)

    def do(self, *words):
        self.send(*words)
        return self.answer()

    def set_up(self, *paths):
        """What is seen once the files were handed to job setup."""
        return self.do("setup", *(urllib.parse.quote_from_bytes(bytes(path)) for path in paths))

    def wait(self, seconds=common.HANG_SECONDS):
        self.send("wait", seconds)
        return self.answer(seconds + common.HANG_SECONDS)

    def close(self, seconds=common.HANG_SECONDS):
        """Ends the input, which quits; how the program has ended."""
        if not self.process.stdin.closed:
            try:
                self.process.stdin.close()
            except BrokenPipeError:
                pass
        status, peak, waited = common.wait(self.process, seconds)
        self.process.stdout.close()
        self.errors.seek(0)
        errors = self.errors.read(1 << 20).decode(errors="replace")
        self.errors.close()
        return common.Ended(status, b"", errors, peak, waited)

    def kill(self):
        """For a window that does not answer; what it said."""
        os.kill(self.process.pid, signal.SIGKILL)
        return self.close()

    def left_behind(self):
        return common.left_behind(self.process.pid)
