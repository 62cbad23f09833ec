# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Makes a program's calls fail: disks full or broken, no threads."""

import contextlib
import errno
import os
import subprocess

from . import common


class Injection:
    """Environments in which calls fail, through a library of the tests that is preloaded."""

    def __init__(self, preset):
        self.preloaded = common.ROOT / f"build/{preset}/tests/libkestrova_failing_calls.so"

    def failing(self, call, error, after=0, file=""):
        # The sanitizer asks to be the first library.
        return {"LD_PRELOAD": str(self.preloaded), "FAILING_CALL": call, "FAILING_ERROR": str(error),
                "FAILING_AFTER": str(after), "FAILING_FILE": str(file),
                "ASAN_OPTIONS": common.SANITIZERS["ASAN_OPTIONS"] + ":verify_asan_link_order=0"}

    def full_disk(self, folder):
        """Also for the programs that this one starts."""
        return self.failing("write", errno.ENOSPC, 0, os.path.realpath(folder))

    def broken_disk(self, file, offset):
        return self.failing("read", errno.EIO, offset, os.path.realpath(file))

    def few_threads(self, count):
        return self.failing("pthread_create", errno.EAGAIN, count)


@contextlib.contextmanager
def small_disk(folder, size="48k"):
    """A disk of this size in the folder. Yields whether there is one: not everybody may mount."""
    folder.mkdir(parents=True, exist_ok=True)
    done = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "none", folder],
                          capture_output=True, check=False) if os.geteuid() == 0 else None
    is_mounted = done is not None and done.returncode == 0
    try:
        yield is_mounted
    finally:
        if is_mounted:
            subprocess.run(["umount", "-l", folder], check=True)


def filled(folder):
    """Leaves no room in the folder, but lets empty files be made."""
    with contextlib.suppress(OSError), open(folder / "filler", "wb", buffering=0) as file:
        while True:
            file.write(bytes(4096))
