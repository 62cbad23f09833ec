# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""The windows quit, and they and the scanner are ended by signals, at random moments."""

import os
import random
import signal
import time

from . import common, recordings, scannerfaults, window, windowfaults

# What is sent before the end comes; nobody waits for the answers.
SCRIPTS = [
    [["setup", "ONCE"]],
    [["setup", "LONG", "ONCE"], ["press", "pushButtonAddAll"]],
    [["setup", "LONG", "ONCE"], ["press", "pushButtonAdd"], ["press", "pushButtonAdd"]],
    [["setup", "LONG"], ["press", "pushButtonAdd"], ["trigger", "actionCancel"]],
    [["setup", "ONCE"], ["press", "pushButtonAdd"], ["wait", "10"], ["clips", "30"], ["select", "20"],
     ["trigger", "actionExport_selected"]],
    [["setup", "ONCE"], ["press", "pushButtonAdd"], ["wait", "10"], ["clips", "30"], ["select", "20"],
     ["trigger", "actionExport_selected"], ["trigger", "actionRemoveSelected"],
     ["setup", "LONG"], ["press", "pushButtonAdd"]],
]
ENCODERS = ["good", "failing", "crashing", "hanging", "missing", "writes nothing", "chattering"]


class Moments:
    def __init__(self, preset, folder):
        self.preset = preset
        self.folder = folder
        programs = common.program_folder(preset)
        self.long = recordings.make_long(programs, folder / "whole", 300)
        self.once = self.long.with_name("once.mp4")

    def open(self, name, chance):
        """Windows that are busy with something for less than a second."""
        windows = window.Window(self.preset, self.folder / name, chance.choice(ENCODERS),
                                chance.random() < 0.5)
        names = {"ONCE": self.once, "LONG": self.long}
        for words in chance.choice(SCRIPTS):
            windows.send(*(names.get(word, word) for word in words))
            if words[0] == "wait": # what follows needs the clip that is found
                windows.answer(60)
        time.sleep(chance.uniform(0, 0.7))
        return windows

    def quit(self, name, number, seed):
        """What is wrong with the way in which the windows end."""
        try:
            windows = self.open(name, random.Random(f"quit {seed} {number}"))
        except window.WindowError as error:
            return f"quit {number}: {error}", 0
        ended = windows.close()
        left = windows.left_behind()
        common.end_all(left)
        problem = ended.problem or ("" if ended.status == 0 else f"status {ended.status}")
        if not problem and ended.seconds > windowfaults.QUIT_SECONDS:
            problem = f"it took {ended.seconds:.1f} s to quit"
        if not problem and len(left) > 2: # a removed clip's encoder goes on beside the next one's
            problem = f"{len(left)} programs are left behind"
        return problem and f"quit {number}: {problem}\n{ended.errors[:2000]}", ended.seconds

    def end_windows(self, name, number, seed):
        chance = random.Random(f"signal {seed} {number}")
        sent = chance.choice([[signal.SIGINT], [signal.SIGTERM], [signal.SIGTERM] * 2])
        windows = self.open(name, chance)
        for one in sent:
            os.kill(windows.process.pid, one)
        status, _, seconds = common.wait(windows.process, windowfaults.QUIT_SECONDS)
        left = windows.left_behind()
        common.end_all(left)
        if status not in (0, -sent[0]):
            return f"status {status}", seconds
        return f"{len(left)} programs are left behind" if len(left) > 2 else "", seconds

    def signal(self, name, number, seed):
        """Every fifth signal ends windows, the others the scanner."""
        if number % 5 == 0:
            problem, seconds = self.end_windows(name, number, seed)
        else:
            faults = scannerfaults.ScannerFaults(self.preset, self.folder / name, self.once,
                                                 self.long, 1000)
            problem = faults.signalled(random.Random(f"signal {seed} {number}"))
            seconds = faults.figures["end"]
        return problem and f"signal {number}: {problem}", seconds
