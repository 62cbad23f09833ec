# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""What becomes of many queued clips when something is wrong with the encoder, the disk, the program."""

import os
import shutil
import signal

from . import common, injection, window

FREEZE_SECONDS = 2
QUIT_SECONDS = 5

# Exported clips share the folder with these, so a limit far above what the windows need is enough.
CHATTER_LIMIT = 450  # MiB, with the sanitizers


class WindowFaults:
    def __init__(self, preset, folder, recording, count, chatter):
        self.preset = preset
        self.folder = folder
        self.recording = recording
        self.count = count  # clips that are queued
        self.chatter = chatter  # bytes that one encoder prints
        self.injection = injection.Injection(preset)
        self.windows = None  # of the case that runs
        self.figures = {}

    def cases(self):
        """(name, call) of every case; a call answers what is wrong."""
        plain = ["good", "missing", "failing", "crashing", "writes nothing", "writes an empty file",
                 "removing its folder"]
        found = [(f"encoder {kind}", lambda kind=kind: self.export(kind)) for kind in plain]
        return [*found,
                ("encoder crashing, automatic export", lambda: self.export("crashing", True)),
                ("encoder crashing, clips opened",
                 lambda: self.export("crashing", action="actionOpen_selected")),
                ("encoder chattering", lambda: self.export("chattering")),
                ("encoder printing without end", self.endless_chatter),
                ("clip folder gone", lambda: self.export("good", prepare=remove_clips)),
                ("disk full, careless encoder", lambda: self.full_disk("not noticing a full disk")),
                ("disk full, real encoder", lambda: self.full_disk("real")),
                ("encoder hanging, all removed", self.removed),
                ("encoder hanging, some removed", self.half_removed),
                ("encoder hanging, quit", self.quit_while_hanging),
                ("no threads", self.no_threads),
                ("disk broken half way", self.broken_disk),
                ("a pipe among the files", self.pipe),
                *[(f"ended by {sent[0].name}" + " twice" * (len(sent) - 1),
                   lambda sent=sent: self.ended(sent))
                  for sent in ([signal.SIGINT], [signal.SIGTERM], [signal.SIGTERM] * 2)]]

    def open(self, encoder="good", automatic=False, env=None):
        folder = self.folder / "window"
        self.windows = window.Window(self.preset, folder, encoder, automatic, env)
        return self.windows

    def clean_up(self):
        """Ends what a case that went wrong has left running."""
        if self.windows and self.windows.process.returncode is None:
            self.windows.kill()
        if self.windows:
            common.end_all(self.windows.left_behind())

    def detect(self, windows):
        """Searches the recording, which gives the first clip."""
        windows.set_up(self.recording)
        windows.do("press", "pushButtonAdd")
        return windows.wait()

    def export(self, encoder, automatic=False, prepare=None, env=None, count=None,
               action="actionExport_selected"):
        """All clips are exported, with whatever result; then the program is quit."""
        count = count or self.count
        windows = self.open(encoder, automatic, {"CHATTER": str(self.chatter), **(env or {})})
        found = self.detect(windows)
        if not found["clips"]:
            return "no clip was found"
        if prepare:
            prepare(windows)
        listed = windows.do("clips", count - 1)
        if not automatic:
            windows.do("select", count)
            listed = windows.do("trigger", action)
        ended = windows.wait(60 + count)
        problem = self.judge(windows, ended, 2 * count)
        if not ended["done"]:
            problem = problem or f"{ended['waiting']} clips still wait"
        if encoder == "good" and not prepare and ended["failed"]:
            problem = problem or f"{ended['failed']} clips failed"
        self.figures["freeze"] = max(self.figures["freeze"], listed["freeze"] / 1000)
        return problem or self.finish(windows)

    def judge(self, windows, seen, most_starts):
        starts = len(windows.encoder.calls())
        self.figures = {"clips": seen["clips"], "starts": starts, "freeze": seen["freeze"] / 1000,
                        "MiB": seen["peak"] // 1024}
        if starts > most_starts:
            return f"{starts} encoders for {seen['clips']} clips"
        if seen["lies"]:
            return f"{seen['lies']} missing or empty files are said to be exported"
        if seen["freeze"] > FREEZE_SECONDS * 1000:
            return f"frozen for {seen['freeze']} ms"
        return ""

    def finish(self, windows, most_left=0):
        """Quits; what is wrong with that, or with what is left behind."""
        ended = windows.close()
        left = windows.left_behind()
        common.end_all(left)
        self.figures["end"] = round(ended.seconds, 1)
        if ended.problem:
            return ended.problem
        if ended.status != 0:
            return f"status {ended.status}\n{ended.errors}"
        if ended.seconds > QUIT_SECONDS:
            return f"it took {ended.seconds:.1f} s to quit"
        return f"{len(left)} programs are left behind" if len(left) > most_left else ""

    def endless_chatter(self):
        problem = self.export("chattering", count=1, env={"CHATTER": str(400 * self.chatter)})
        if self.figures.get("MiB", 0) > CHATTER_LIMIT:
            return problem or f"{self.figures['MiB']} MiB: what the encoder printed is kept"
        return problem

    def full_disk(self, encoder):
        """On a small disk where one can be mounted, else as writing would fail on one."""
        with injection.small_disk(self.folder / "disk") as is_mounted:
            if is_mounted:
                return self.export(encoder, prepare=lambda windows: on_disk(
                    windows, self.folder / "disk"))
            return self.export(encoder, env=self.injection.full_disk(self.folder / "window/clips"))

    def queue_behind_hanging(self):
        windows = self.open("hanging")
        self.detect(windows)
        windows.do("clips", self.count - 1)
        windows.do("select", self.count)
        return windows, windows.do("trigger", "actionExport_selected")

    def removed(self):
        windows, _ = self.queue_behind_hanging()
        seen = windows.do("trigger", "actionRemoveAll")
        return self.judge(windows, seen, 1) or self.finish(windows, 1)

    def half_removed(self):
        """The clip that is exported goes, and its encoder stays; one clip follows, no more."""
        windows, _ = self.queue_behind_hanging()
        windows.do("select", self.count // 2)
        seen = windows.do("trigger", "actionRemoveSelected")
        return self.judge(windows, seen, 2) or self.finish(windows, 2)

    def quit_while_hanging(self):
        windows, seen = self.queue_behind_hanging()
        problem = self.judge(windows, seen, 1) or self.finish(windows, 1)
        starts = len(windows.encoder.calls())
        return problem or (f"{starts} encoders were started" if starts > 1 else "")

    def no_threads(self):
        """The worker is there, and the toolkit's thread; those that would help it are not."""
        windows = self.open(env=self.injection.few_threads(2))
        found = self.detect(windows)
        problem = self.judge(windows, found, 0)
        if not found["done"] or not found["clips"]:
            problem = problem or "no clip was found"
        return problem or self.finish(windows)

    def broken_disk(self):
        half = self.recording.stat().st_size // 2
        windows = self.open(env=self.injection.broken_disk(self.recording, half))
        found = self.detect(windows)
        problem = self.judge(windows, found, 0)
        return problem or ("" if found["done"] else "never ends") or self.finish(windows)

    def pipe(self):
        """Added with everything else, it must not hold up what follows."""
        windows = self.open()
        named_pipe = self.folder / "window/pipe.mp4"
        os.mkfifo(named_pipe)
        windows.set_up(self.recording, named_pipe, self.recording)
        windows.do("press", "pushButtonAddAll")
        found = windows.wait()
        problem = self.judge(windows, found, 0)
        if not found["done"] or found["clips"] != 2:
            problem = problem or f"{found['clips']} clips of two recordings"
        return problem or self.finish(windows)

    def ended(self, signals):
        """What comes from outside ends it at once; only the encoder that runs may go on."""
        windows, _ = self.queue_behind_hanging()
        for number in signals:
            os.kill(windows.process.pid, number)
        status, _, seconds = common.wait(windows.process, QUIT_SECONDS)
        left = windows.left_behind()
        common.end_all(left)
        self.figures = {"clips": self.count, "starts": len(windows.encoder.calls()),
                        "end": round(seconds, 1)}
        if status is None:
            return "still running"
        if status not in (0, -signals[0]):
            return f"status {status}"
        return f"{len(left)} programs are left behind" if len(left) > 1 else ""


def remove_clips(windows):
    shutil.rmtree(windows.clips)


def on_disk(windows, disk):
    """Moves the clips' folder to the full disk."""
    for folder in list(windows.clips.iterdir()):
        shutil.rmtree(disk / folder.name, ignore_errors=True)
        shutil.move(folder, disk)
        folder.symlink_to(disk / folder.name)
    injection.filled(disk)
