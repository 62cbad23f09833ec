# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Archives that are measured on hosts of which some fail, compared with one call on one machine."""

import contextlib
import filecmp
import os
import pathlib
import re
import shutil
import signal
import subprocess
import time

from harness import common
from harness.hosts import NETWORK, USER, Host

LIMIT = 240  # seconds that no case may take
OPTIONS = ["--minimum", "2", "--threshold-value", "30", "--format", "jsonl"]

# In the place of the scanner: counts the calls that measure, and slows them down, so that what happens
# meanwhile happens in their middle.
STAND_IN = """#!/bin/sh
case " $* " in
*" --threads=1 "*) ;;
*) exec {scanner} "$@" ;;
esac
echo start >>{folder}/calls-"$(uname -n)"
case "$*" in
*/crash.mkv) kill -SEGV $$ ;;
*/fails.mkv) echo "kestrova-scan: the disk is tired" >&2; exit 1 ;;
*/unreadable.mp4) echo tried >>{folder}/unreadable ;;
esac
sleep {seconds}
{scanner} "$@"
status=$?
echo end >>{folder}/calls-"$(uname -n)"
exit "$status"
"""


class Run:
    """One call of kestrova-archive, its folder and what came of it."""

    def __init__(self, folder, scanner, seconds=0.3):
        self.folder = common.fresh_folder(folder)
        self.values = self.folder / "kept"
        (self.folder / "kestrova-archive").symlink_to(common.ROOT / "src/archive/kestrova-archive")
        stand_in = self.folder / "kestrova-scan"
        stand_in.write_text(STAND_IN.format(scanner=scanner, folder=self.folder, seconds=seconds))
        stand_in.chmod(0o755)
        self.begin = time.monotonic()
        self.process = None
        self.status = None

    def start(self, recordings, *arguments):
        """In a session of its own, from the folder of the recordings."""
        self.status = None
        command = [self.folder / "kestrova-archive", "--values", self.values, *OPTIONS,
                   "--report", self.folder / "report", *arguments, "."]
        with open(self.folder / "output", "wb") as output, open(self.folder / "errors", "ab") as errors:
            self.process = subprocess.Popen(
                command, cwd=recordings, stdin=subprocess.DEVNULL, stdout=output, stderr=errors,
                start_new_session=True, env={**os.environ, "HOME": str(self.folder)})

    def wait(self):
        self.status = self.process.returncode  # where somebody has asked already
        if self.status is None:
            self.status = common.wait(self.process, LIMIT)[0]
        if self.status is None:
            common.end_all(common.left_behind(self.process.pid))

    def wait_for_failure(self, status, words, seconds):
        """What is wrong with how it fails: with this status and these words, soon enough, nothing printed."""
        begin = time.monotonic()
        self.wait()
        took = time.monotonic() - begin
        output, errors = (self.folder / "output").read_bytes(), self.errors()
        if self.status == status and errors.count(words) == 1 and took < seconds and not output:
            return ""
        return f"status {self.status} after {took:.0f} s with {len(output)} bytes printed: {errors}"

    def measuring(self):
        """The processes that measure for it, on whatever host."""
        scanner = os.fsencode(self.folder / "kestrova-scan")
        found = []
        for path in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
            with contextlib.suppress(OSError):
                line = path.read_bytes()
                found += [path.parent.name] if scanner in line and b"--threads=1" in line else []
        return found

    def kill_controller(self):
        """That alone: its engine goes on."""
        self.process.kill()
        self.process.wait()

    def kill_session(self):
        """The engine and its ssh clients, too."""
        common.end_all(common.left_behind(self.process.pid))
        self.process.wait()

    def calls(self, word, host="*"):
        return sum(path.read_text().split().count(word) for path in self.folder.glob(f"calls-{host}"))

    def wait_for_ends(self, count):
        end = time.monotonic() + LIMIT
        while self.calls("end") < count and time.monotonic() < end and self.process.poll() is None:
            time.sleep(0.02)

    def wait_for_work(self, count, host):
        """Until so many jobs are done and one is running on this host."""
        self.wait_for_ends(count)
        end = time.monotonic() + LIMIT
        while (self.calls("start", host) <= self.calls("end", host) and time.monotonic() < end and
               self.process.poll() is None):
            time.sleep(0.02)

    def figures(self):
        return (self.calls("start"), self.calls("end"), f"{time.monotonic() - self.begin:.1f}")

    def errors(self):
        return (self.folder / "errors").read_text(errors="replace")


class Reference:
    """What one call on one machine gives."""

    def __init__(self, folder, scanner, recordings):
        self.folder = common.fresh_folder(folder)
        self.recordings = recordings
        begin = time.monotonic()
        with open(self.folder / "output", "wb") as output:
            self.status = subprocess.run(
                [scanner, "--quiet", "--values", self.folder / "kept", *OPTIONS, "--report",
                 self.folder / "report", "."], cwd=recordings, stdout=output,
                stderr=subprocess.DEVNULL, check=False, timeout=LIMIT).returncode
        self.seconds = time.monotonic() - begin

    def differences(self, run, status=None):
        """Every file of output, report and values that is not the same, and a status that is another."""
        found = [] if run.status == (self.status if status is None else status) else [f"status {run.status}"]
        if not filecmp.cmp(self.folder / "output", run.folder / "output", shallow=False):
            found.append("output")
        for part in ("report", "kept"):
            found += [f"{part}/{name}" for name in differing(self.folder / part, run.folder / part)]
        return found


def differing(left, right):
    """Files that are not in both folders, or not with the same bytes. An archive's own and the parts of which
    values were joined are left out."""
    own = re.compile(r"/archive-|-\d+of\d+\.values$")
    names = [{str(path.relative_to(folder)) for path in folder.rglob("*")
              if path.is_file() and not own.search(str(path))} for folder in (left, right)]
    return sorted((names[0] ^ names[1]) | {
        name for name in names[0] & names[1]
        if not filecmp.cmp(left / name, right / name, shallow=False)})


def hosts_file(run, hosts):
    path = run.folder / "hosts"
    path.write_text("".join(f"2/{USER}@{host.address}\n" for host in hosts))
    return ["--hosts", path]


def plain(run, reference, hosts):
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait()
    tries = (run.folder / "unreadable").read_text().split()
    return "" if len(tries) == 1 else f"what cannot be read was tried {len(tries)} times"


def local(run, reference, _):
    run.start(reference.recordings)


def split(run, reference, hosts):
    run.start(reference.recordings, *hosts_file(run, hosts), "--split", "10")


def likeliest(run, reference, hosts):
    run.start(reference.recordings, *hosts_file(run, hosts), "--promising-first")


def slurm(run, reference, _):
    run.start(reference.recordings, "--slurm", "--slurm-args", "--partition=short")


def node_killed(run, reference, cluster):
    slurm(run, reference, cluster)
    run.wait_for_work(10, "*")
    before = run.calls("start") - run.calls("end")
    cluster.kill_node("node1")
    run.wait()
    cluster.start_node("node1")
    lost = run.calls("start") - run.calls("end")
    return "" if lost else f"of {before} jobs that ran none was lost"


def slurm_left_alone(run, reference, cluster):
    """The array goes on without its controller, and the next call's waits for it."""
    slurm(run, reference, cluster)
    run.wait_for_ends(10)
    run.kill_session()
    slurm(run, reference, cluster)
    run.wait()


def crash(run, reference, hosts):
    """On a recording that the reference does not have."""
    bad = reference.recordings / "made" / "crash.mkv"
    bad.write_bytes(b"crash")
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait()
    bad.unlink()
    return "" if "crash.mkv' is left out" in run.errors() else "it was not named"


def cut_off(run, reference, hosts):
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait_for_work(10, hosts[1].name)
    hosts[1].cut_off()
    run.wait()
    hosts[1].plug_in()


def killed(run, reference, hosts):
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait_for_work(10, hosts[1].name)
    hosts[1].kill()
    run.wait()
    hosts[1].start()


def comes_back(run, reference, hosts):
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait_for_work(10, hosts[1].name)
    hosts[1].kill()
    before = run.calls("start", hosts[1].name)
    time.sleep(1)
    hosts[1].start()
    run.wait()
    return "" if run.calls("start", hosts[1].name) > before else "the host that came back was not used"


def added(run, reference, hosts):
    run.start(reference.recordings, *hosts_file(run, hosts[:1]))
    run.wait_for_ends(6)
    time.sleep(2)  # GNU parallel compares whole seconds
    hosts_file(run, hosts)
    run.wait()
    return "" if run.calls("end", hosts[2].name) else "the host that was added was not used"


def controller_killed(run, reference, hosts):
    arguments = hosts_file(run, hosts)
    run.start(reference.recordings, *arguments)
    run.wait_for_ends(10)
    run.kill_controller()
    run.start(reference.recordings, *arguments)
    run.wait()
    return "" if "still at work" in run.errors() else "the second call did not wait for the first one's jobs"


def engine_killed(run, reference, hosts):
    arguments = hosts_file(run, hosts)
    run.start(reference.recordings, *arguments)
    run.wait_for_ends(10)
    run.kill_session()
    done = run.calls("end")
    run.start(reference.recordings, *arguments)
    run.wait()
    count = len(list(reference.folder.glob("kept/*.values")))
    most = count + 2 * len(hosts)
    return "" if run.calls("end") <= most else f"{done} were done, and {run.calls('end')} in the end"


def full_disk(run, reference, hosts):
    """For 15 seconds."""
    run.values.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64m", "none", run.values], check=True)
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait_for_ends(10)
    with open(run.values / "filler", "wb", buffering=0) as filler:
        try:
            while filler.write(bytes(4096)):
                pass
        except OSError:
            pass
    failed = run.calls("end")
    time.sleep(15)
    failed = run.calls("end") - failed
    (run.values / "filler").unlink()
    run.wait()
    shutil.copytree(run.values, run.folder / "copy")
    subprocess.run(["umount", run.values], check=True)
    run.values.rmdir()
    (run.folder / "copy").rename(run.values)
    return "" if failed else "nothing ran into it"


def recordings_vanish(run, reference, hosts):
    """The shared folder of recordings is an empty one for 12 seconds."""
    place = run.folder / "mounted"
    place.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "none", place], check=True)
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait_for_ends(10)
    subprocess.run(["mount", "--bind", place, reference.recordings], check=True)
    time.sleep(12)
    subprocess.run(["umount", "-l", reference.recordings], check=True)
    run.wait()
    subprocess.run(["umount", place], check=True)
    place.rmdir()
    return ""


def useless(run, reference, hosts):
    """They are named, and the work is done by the one that is not."""
    fake = run.folder / "other-scanner"
    fake.write_text("#!/bin/sh\necho kestrova-scan 9.9\n")
    fake.chmod(0o755)
    run.values.mkdir()
    hidden = [(run.folder / "kestrova-scan", "/dev/null", "it has no"),
              (run.folder / "kestrova-scan", fake, "it has kestrova-scan 9.9, and here is"),
              (run.values, None, "is another one than here"),
              (reference.recordings, None, "size or modification time of")]
    broken = [Host(21 + number, reference.folder.parent) for number in range(len(hidden))]
    for host, (path, what, _) in zip(broken, hidden):
        host.hide(path, what)
    nobody = f"{USER}@{NETWORK}.99"
    arguments = hosts_file(run, [hosts[0], *broken])
    with open(arguments[1], "a", encoding="ascii") as file:
        file.write(f"1/{nobody}\n")
    run.start(reference.recordings, *arguments)
    run.wait()
    for host in broken:
        host.kill()
    errors = run.errors()
    missing = [f"host {USER}@{host.address} is not used: .*{re.escape(words)}"
               for host, (_, _, words) in zip(broken, hidden)] + [f"host {nobody} is not used: .*No route to host"]
    missing = [pattern for pattern in missing if not re.search(pattern, errors)]
    wrong = [host.name for host in broken if run.calls("start", host.name)]
    return f"not said: {missing}; used: {wrong}" if missing or wrong else ""


def all_die(run, reference, hosts):
    arguments = hosts_file(run, hosts)
    run.start(reference.recordings, *arguments)
    run.wait_for_work(6, hosts[1].name)
    for host in hosts:
        host.kill()
    problem = run.wait_for_failure(1, "no host answers any more", 60)
    for host in hosts:
        host.start()
    run.start(reference.recordings, *arguments)
    return problem


def interrupted(run, reference, hosts):
    arguments = hosts_file(run, hosts)
    run.start(reference.recordings, *arguments)
    run.wait_for_work(6, hosts[1].name)
    run.process.send_signal(signal.SIGTERM)
    problem = run.wait_for_failure(130, "interrupted; the same call goes on", 20)
    end = time.monotonic() + 5
    while run.measuring() and time.monotonic() < end:
        time.sleep(0.1)
    if run.measuring():
        problem += "; it goes on on the hosts"
    run.start(reference.recordings, *arguments)
    return problem


def slurm_refused(run, reference, cluster):
    """There is no such partition."""
    run.start(reference.recordings, "--slurm", "--slurm-args", "--partition=long")
    problem = run.wait_for_failure(1, "Invalid partition", 30)
    if run.calls("start"):
        problem += "; something was measured"
    slurm(run, reference, cluster)
    return problem


def queued(run):
    return subprocess.run(["squeue", "--noheader"], check=True, capture_output=True, text=True).stdout + str(
        run.measuring() or "")


def slurm_ended(run, reference, cluster, end, status, words):
    slurm(run, reference, cluster)
    run.wait_for_ends(4)
    end()
    problem = run.wait_for_failure(status, words, 60)
    until = time.monotonic() + 20
    while queued(run) and time.monotonic() < until:
        time.sleep(0.2)
    if queued(run):
        problem += f"; still there: {queued(run)}"
    slurm(run, reference, cluster)
    return problem


def slurm_cancelled(run, reference, cluster):
    """By somebody else, whom it lets have the last word."""
    def cancel():
        subprocess.run(["scancel", "--me"], check=True)
    return slurm_ended(run, reference, cluster, cancel, 1, "were cancelled")


def slurm_interrupted(run, reference, cluster):
    def interrupt():
        run.process.send_signal(signal.SIGINT)
    return slurm_ended(run, reference, cluster, interrupt, 130, "interrupted; the same call goes on")


def fails(run, reference, hosts):
    """On a recording that the reference does not have, and that no scanner can read just now."""
    bad = reference.recordings / "made" / "fails.mkv"
    bad.write_bytes(b"fails")
    run.start(reference.recordings, *hosts_file(run, hosts))
    run.wait()
    bad.unlink()
    return "" if "fails.mkv' is left out: the disk is tired" in run.errors() else "it was not named"
