# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""SIGINT, SIGTERM and SIGHUP: whatever is at work is ended, and then this program."""

import signal

SIGNALS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)


def interrupt(*_):
    raise KeyboardInterrupt


def listen(handler=interrupt):
    """What is ignored from the start, as with nohup, stays so."""
    for number in SIGNALS:
        if signal.getsignal(number) != signal.SIG_IGN:
            signal.signal(number, handler)


def pass_on_to(process):
    """From now on `process` is told, and this program goes on."""
    listen(lambda number, _: process.poll() is None and process.send_signal(number))


def ignore():
    listen(signal.SIG_IGN)
