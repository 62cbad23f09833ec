# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""One line on a terminal that says how far the measuring is."""

import sys
import time


def span(seconds):
    """Roughly, as a person would say it."""
    minutes = round(seconds / 60)
    if minutes >= 48 * 60:
        return f"{round(minutes / 60 / 24)} days"
    if minutes >= 60:
        return f"{minutes // 60} h {minutes % 60} min"
    return f"{minutes} min" if minutes else f"{round(seconds)} s"


def line(done, total, seconds):
    """`done` of `total` jobs, after so many seconds."""
    text = f"{done} of {total} measured"
    if not done:
        return text
    rate = done / seconds * 60
    pace = f"{rate:.0f} a minute" if rate >= 2 else f"{rate * 60:.0f} an hour"
    return f"{text}, {pace}, {span((total - done) * seconds / done)} left"


class Progress:
    def __init__(self, total, quiet):
        self.total = total
        self.is_shown = sys.stderr.isatty() and not quiet
        self.begin = time.monotonic()

    def show(self, done):
        if self.is_shown:
            text = line(done, self.total, max(time.monotonic() - self.begin, 1))
            print(f"\rkestrova-archive: {text}\x1b[K", end="", file=sys.stderr, flush=True)

    def clear(self):
        if self.is_shown:
            print("\r\x1b[K", end="", file=sys.stderr, flush=True)
