# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""What the scripts share: where things lie, how a program is run and watched, tables."""

import contextlib
import dataclasses
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent

# What a recording may cost at most, in MiB. The sanitizers' shadow and red zones come on top.
MEMORY_BUDGET = 1024
SANITIZER_FACTOR = 1.5

# Nothing may take longer, whatever its input.
HANG_SECONDS = 10

SANITIZERS = {
    "ASAN_OPTIONS": "detect_leaks=1:exitcode=99:strict_string_checks=1:quarantine_size_mb=16",
    "LSAN_OPTIONS": f"exitcode=98:print_suppressions=0:suppressions={ROOT}/cmake/lsan.supp",
    "UBSAN_OPTIONS": "print_stacktrace=1:exitcode=97",
}
REPORTS = ("Sanitizer", "runtime error")


@dataclasses.dataclass
class Ended:
    """How a program has ended."""

    status: int  # as Popen.returncode; None: it had to be killed
    output: bytes
    errors: str
    peak: float  # resident MiB
    seconds: float

    @property
    def problem(self):
        """A hang, a crash or a sanitizer's report; empty if it ended by itself."""
        if self.status is None:
            return f"still running after {self.seconds:.0f} s"
        if self.status < 0:
            return f"ended by {signal.Signals(-self.status).name}\n{self.errors}"
        if self.status >= 97 and self.status <= 99 or any(word in self.errors for word in REPORTS):
            return f"status {self.status}\n{self.report()}"
        return ""

    def report(self):
        """What was said from the sanitizer's first word on; without one, everything."""
        lines = self.errors.splitlines()
        first = [at for at, line in enumerate(lines) if any(word in line for word in REPORTS)]
        return "\n".join(lines[first[0]:] if first else lines)


def environment(**extra):
    return {**os.environ, **SANITIZERS, "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
            **extra}


def listen_to_signals():
    """In the background a shell ignores SIGINT, nohup SIGHUP. What is started here must not inherit that."""
    for number in (signal.SIGINT, signal.SIGHUP):
        if signal.getsignal(number) == signal.SIG_IGN:
            signal.signal(number, lambda *_: None)  # handlers, other than SIG_IGN, are not inherited


def start(command, env=None, **streams):
    """Starts a program in a session of its own, so that what it leaves behind can be found."""
    return subprocess.Popen([os.fspath(word) for word in command], start_new_session=True,
                            env=env or environment(), **streams)


def wait(process, timeout):
    """The status, the peak memory in MiB and the seconds that the end took; kills what hangs."""
    begin = time.monotonic()
    # Not Popen's own calls: they would take the status away and with it the memory used.
    while time.monotonic() - begin < timeout:
        pid, status, usage = os.wait4(process.pid, os.WNOHANG)
        if pid:
            process.returncode = os.waitstatus_to_exitcode(status)
            return process.returncode, usage.ru_maxrss / 1024, time.monotonic() - begin
        time.sleep(0.005)
    os.kill(process.pid, signal.SIGKILL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return None, usage.ru_maxrss / 1024, time.monotonic() - begin


def run(command, timeout, env=None, output=None, meanwhile=None):
    """Runs a program to its end. `meanwhile(process)` is called once it runs."""
    with tempfile.TemporaryFile() as own_output, tempfile.TemporaryFile() as errors:
        process = start(command, env, stdin=subprocess.DEVNULL, stdout=output or own_output,
                        stderr=errors)
        if meanwhile:
            meanwhile(process)
        status, peak, seconds = wait(process, timeout)
        own_output.seek(0)
        errors.seek(0)
        # What chatters is not read whole.
        return Ended(status, own_output.read(), errors.read(1 << 20).decode(errors="replace"),
                     peak, seconds)


def left_behind(session):
    """The processes that still run in a session."""
    found = []
    for entry in pathlib.Path("/proc").iterdir():
        if not entry.name.isdigit():
            continue
        with contextlib.suppress(OSError):
            fields = (entry / "stat").read_text().rpartition(")")[2].split()
            if int(fields[3]) == session and fields[0] != "Z":
                found.append(int(entry.name))
    return found


def end_all(processes):
    for pid in processes:
        with contextlib.suppress(ProcessLookupError):
            os.kill(pid, signal.SIGKILL)


def memory_limit(preset):
    return MEMORY_BUDGET * (SANITIZER_FACTOR if preset == "asan" else 1)


def program_folder(preset):
    folder = ROOT / "build" / preset / "bin"
    if not (folder / "kestrova-scan").exists():
        sys.exit(f"build the preset {preset} first: scripts/test {preset}")
    return folder


def remove(path):
    shutil.rmtree(path, ignore_errors=True)


def fresh_folder(path):
    remove(path)
    path.mkdir(parents=True)
    return path


def print_row(name, *columns):
    print(f"{name:44}" + "".join(f"{column:>10}" for column in columns), flush=True)
