# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""The last call of the scanner, which decides over all that is measured."""

import os

from . import interrupts
from .commandline import complain

MOST_NAMED = 10


def name_all(left_out, work):
    for name, reason in list(left_out.items())[:MOST_NAMED]:
        complain(f"{ascii(os.fsdecode(name))} is left out: {reason}")
    if len(left_out) > MOST_NAMED:
        complain(f"{len(left_out) - MOST_NAMED} more recordings are left out; log: {work.log}")


def decide(arguments, work, calls, recordings, result, status):
    """`status` is what the listing ended with. Answers that of this program."""
    left, left_out = result.left, result.left_out
    if arguments.finish_here:
        # What only failed gets its last try, and what the scanner says of it, here.
        left_out = {name: reason for name, reason in left_out.items() if "crashes" in reason}
    elif left:
        name_all(left_out, work)
        return complain(f"{len(left)} of {len(recordings)} recordings are not measured: {result.reason}. The same "
                        f"call goes on; --finish-here measures them on this machine. Log: {work.log}")
    name_all(left_out, work)
    if left_out and len(left_out) == len(recordings):
        return 1
    scan = calls.start_deciding([name for name in recordings if name not in left_out])
    interrupts.pass_on_to(scan)
    decided = scan.wait()
    if decided < 0:
        return complain(f"kestrova-scan was ended by signal {-decided}")
    return 1 if (status or left_out) and decided in (0, 3) else decided
