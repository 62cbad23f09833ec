# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Every fault, for the scanner and for the windows."""

import dataclasses
import typing

from . import common, recordings, scannerfaults, window, windowfaults


@dataclasses.dataclass
class Case:
    name: str
    owner: object
    call: typing.Callable

    def run(self):
        """What is wrong, empty if nothing is, and the figures."""
        self.owner.figures = {}
        try:
            return self.call(), self.owner.figures
        except window.WindowError as error:
            return str(error), self.owner.figures
        finally:
            self.owner.clean_up()


def every(preset, folder, clips):
    """All cases, each with so many clips."""
    long = recordings.make_long(common.program_folder(preset), folder / "whole", clips)
    once = long.with_name("once.mp4")
    chatter = 1_000_000 if clips >= 100 else 100_000
    windows = windowfaults.WindowFaults(preset, folder, once, clips, chatter)
    scanner = scannerfaults.ScannerFaults(preset, folder, once, long, chatter)
    return [Case(f"{who}: {name}", owner, call)
            for who, owner in (("window", windows), ("scanner", scanner))
            for name, call in owner.cases()]
