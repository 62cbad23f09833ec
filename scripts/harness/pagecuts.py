# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""From marks in a report to cut files: they are those that a search cuts out."""

import pathlib
import re
import shutil
import subprocess
import time

from common import ROOT
from pagechecks import check
from pagemarks import DEADLINE, marked, reopen

SCANNER = ROOT / "build/dev/bin/kestrova-scan"
# The random numbers of a file in Matroska, of itself, its tracks and their tags, and sums of them.
RANDOM = re.compile(rb"\x73\xa4\x90.{16}|[\x73\x63]\xc5\x88.{8}|\xbf\x84.{4}", re.DOTALL)


def scan(*arguments):
    ended = subprocess.run(["nice", SCANNER, "--quiet", *map(str, arguments)], capture_output=True,
                           check=False)
    check(ended.returncode == 0, ended.stderr.decode())


def files_in(folder):
    return {str(path.relative_to(folder)): RANDOM.sub(b"", path.read_bytes())
            for path in folder.rglob("*") if path.is_file()}


def save_marks(browser, downloads):
    """The file of marks, as the browser has saved it."""
    saved = downloads / "marks.json"
    saved.unlink(missing_ok=True)
    browser.save_downloads(downloads)
    browser.evaluate("document.getElementById('savemarks').click()")
    deadline = time.monotonic() + DEADLINE
    while not saved.exists() and time.monotonic() < deadline:
        time.sleep(0.05)
    return saved


def check_cut_files(browser, folder, downloads, containers, search, *exporting):
    """`search`: the options and recordings that the report was made with; `exporting`: those
    options that files depend on. Answers how many files."""
    reopen(browser, folder / "index.html")
    browser.key("ArrowRight")
    clips = browser.evaluate("document.querySelectorAll('.clip').length")
    for place in range(clips):
        browser.key("k" if place % 3 != 1 else "s")
        browser.key("ArrowRight")
    kept = [place for place, mark in marked(browser) if mark == "keep"]
    marks = save_marks(browser, downloads)
    browser.evaluate("document.getElementById('nomarks').click()")
    for container in containers:
        cut, fresh = downloads / f"cut-{container}", downloads / f"fresh-{container}"
        for place in (cut, fresh):
            shutil.rmtree(place, ignore_errors=True)
        scan("--marked", marks, "--export", cut, "--container", container, *exporting)
        scan("--export", fresh, "--container", container, *exporting, *search)
        found, expected = files_in(cut), files_in(fresh)
        check(len(expected) == clips and len(found) == len(kept), f"{container}: {sorted(found)}")
        other = [name for name, content in found.items() if expected.get(name) != content]
        check(not other, f"{container}: {other} are not those of a search")
    return len(kept) * len(containers)


def check_parts(browser, folder):
    """A clip that goes on in other recordings is played to its end."""
    reopen(browser, folder / "index.html")
    place, parts = browser.evaluate("""(() => {
        const clips = [...document.querySelectorAll(".clip")];
        const place = clips.findIndex(clip => clip.dataset.parts);
        return [place, clips[place].dataset.parts.split(" ")]; })()""")
    browser.evaluate(f"document.querySelectorAll('.clip a')[{place}].focus()")
    browser.key("Enter")
    browser.evaluate("document.getElementById('video').playbackRate = 8")
    for part in parts:
        name = pathlib.PurePosixPath(part.split("#")[0]).name
        browser.wait_for(f"document.getElementById('video').src.includes('{name}') && "
                         "document.getElementById('video').currentTime > 0")
    browser.wait_for("document.getElementById('video').paused")
    check(browser.evaluate("document.getElementById('unplayable').hidden"), "a part is not played")
    browser.key("Escape")
