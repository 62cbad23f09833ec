# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Opens reports in a headless browser and does with them what a person would: keys, pointer, sizes."""

import pathlib
import shutil
import sys
import urllib.parse

from browser import Browser
from pagecuts import check_cut_files, check_parts
from pagechecks import (Failed, check, check_accessible, check_contrast, check_sizes, check_width,
                        tidy)
from pagedriving import (DRAG_STEPS, FACTS, PICTURES, PLACE, check_players, drag_by_keys,
                         drag_by_mouse, drag_by_touch, go_by_keys, sort, sort_all)
from pagemarks import (busy_seconds, check_days, check_filters, check_marks, check_marks_file,
                       check_policy)

FIRST_PICTURE = """
window.firstPicture = new Promise(done => document.addEventListener("load", event => {
  if (event.target.matches(".clip img"))
    requestAnimationFrame(() => done(performance.now()));
}, true));
"""


def say(text):
    print(text, flush=True)


def check_quiet(browser, folder, *others):
    """No complaint, and no request but to files of the folder, or to those named."""
    check(not browser.complaints(), browser.complaints())
    for url in browser.requests():
        if url.startswith(("data:", "blob:")):  # a video's buttons; a file that the page gives away
            continue
        path = urllib.parse.unquote(urllib.parse.urlsplit(url).path)
        check(url.startswith("file://") and (path.startswith(f"{folder}/") or path in others), url)


def loaded(browser):
    """Waits until each picture in sight is there."""
    browser.wait_for("""[...document.images].every(image => image.naturalWidth > 0 ||
        image.getBoundingClientRect().top > innerHeight || image.getBoundingClientRect().bottom < 0)""")


def check_few(browser, folder, recordings):
    page = folder / "index.html"
    tidy(page)
    browser.size(1280, 900)
    browser.open(page)
    loaded(browser)
    browser.screenshot(PICTURES / "few.png")
    clips = browser.evaluate(FACTS)
    go_by_keys(browser, len(clips))
    sort_all(browser)
    check_accessible(browser)
    check_players(browser, [pathlib.Path(clip[3]).name for clip in clips])
    drag_by_mouse(browser)
    drag_by_touch(browser)
    browser.screenshot(PICTURES / "dragged.png")
    drag_by_keys(browser)
    check_quiet(browser, folder, *recordings)
    say(f"few: {len(clips)} clips, keys, drag, order and players as they should be")


def check_looks(browser, folder):
    for name, width, height, scheme, scale in (("light", 1280, 900, "light", 1),
                                               ("dark", 1280, 900, "dark", 1),
                                               ("phone", 360, 740, "light", 2),
                                               ("phone-dark", 360, 740, "dark", 2)):
        browser.size(width, height, scheme, scale)
        browser.open(folder / "index.html")
        loaded(browser)
        browser.screenshot(PICTURES / f"{folder.name}-{name}.png")
        browser.key("ArrowRight")
        browser.screenshot(PICTURES / f"{folder.name}-{name}-focus.png")
        check_width(browser)
        for tools in ("filters", "marking"):
            browser.evaluate(f"document.getElementById('{tools}').open = true")
        browser.screenshot(PICTURES / f"{folder.name}-{name}-open.png")
        check_width(browser)
        check_sizes(browser)
        ratio = check_contrast(browser)
        check_quiet(browser, folder)
        say(f"{folder.name}, {name}: contrast at least {ratio:.1f} : 1")


def picture_for_readme(browser, folder):
    browser.size(1100, 840)
    browser.open(folder / "index.html")
    loaded(browser)
    browser.screenshot(PICTURES / "readme.png")


def check_without_script(browser, folder):
    browser.size(1280, 900)
    browser.call("Emulation.setScriptExecutionDisabled", value=True)
    browser.open(folder / "index.html")
    loaded(browser)
    browser.screenshot(PICTURES / "noscript.png", has_script=False)
    check(browser.evaluate("document.getElementById('tools').hidden"), "tools without a script")
    browser.call("Emulation.setScriptExecutionDisabled", value=False)


def check_moved(browser, folder):
    moved = PLACE / "moved #1 50% ü"
    shutil.rmtree(moved, ignore_errors=True)
    shutil.copytree(folder, moved)
    browser.open(moved / "index.html")
    loaded(browser)
    check_quiet(browser, moved)


def check_cells(browser, folder):
    """Where motion was is drawn over pictures, inside of them."""
    page = folder / "index.html"
    tidy(page)
    browser.open(page)
    loaded(browser)
    outside = browser.evaluate("""[...document.querySelectorAll(".clip")].filter(clip => {
        const box = clip.querySelector(".box rect").getBoundingClientRect();
        const image = clip.querySelector("img").getBoundingClientRect();
        return box.width < 4 || box.left < image.left - 3 || box.right > image.right + 3 ||
            box.top < image.top - 3 || box.bottom > image.bottom + 3; }).length""")
    check(outside == 0, f"{outside} boxes of motion beside their picture")
    check(browser.evaluate("document.querySelectorAll('svg.where path').length") > 0, "no map")
    say("cells: boxes and map as they should be")


def check_cuts(browser, downloads, recordings):
    files = check_cut_files(browser, PLACE / "few", downloads, ["mp4"], recordings)
    files += check_cut_files(browser, PLACE / "continued", downloads, ["mp4", "avi", "mkv"],
                             ["--continue", PLACE / "visit"], "--start-time", "auto")
    check_parts(browser, PLACE / "continued")
    say(f"cuts: {files} files of marked clips are those of a search; a clip of two files is played on")


def check_no_network(browser, folder):
    """The page itself forbids what no part of it does."""
    browser.open(folder / "index.html")
    refused = browser.evaluate("""new Promise(done => {
        document.addEventListener("securitypolicyviolation", event => done(event.effectiveDirective));
        new Image().src = "http://127.0.0.1:9/x.png"; })""")
    check(refused == "img-src", f"refused: {refused}")


def renderer_memory(browser):
    """Proportional MiB of the process that shows the page: the largest of the browser's renderers."""
    sizes = []
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            command = (folder / "cmdline").read_bytes()
            if b"--type=renderer" not in command or browser.home.name.encode() not in command:
                continue
            rollup = (folder / "smaps_rollup").read_text()
            sizes.append(int(rollup.split("Pss:")[1].split()[0]) / 1024)
        except OSError:
            continue
    return max(sizes, default=0.0)



def check_many(browser, folder):
    page = folder / "index.html"
    tidy(page)
    browser.size(1280, 900)
    script = browser.call("Page.addScriptToEvaluateOnNewDocument", source=FIRST_PICTURE)
    browser.open(page)
    first = browser.evaluate("firstPicture")
    whole = browser.evaluate("performance.getEntriesByType('navigation')[0].loadEventEnd")
    at_load = len(browser.requests())
    memory = renderer_memory(browser)
    browser.screenshot(PICTURES / "many.png")
    count = browser.evaluate("document.querySelectorAll('.clip').length")
    check(at_load < count / 10, f"{at_load} files asked for at once")
    go_by_keys(browser, count)
    began = busy_seconds(browser)
    sort(browser, "strength")
    sorting = busy_seconds(browser) - began
    began = busy_seconds(browser)
    browser.key("s")
    marking = busy_seconds(browser) - began
    browser.key("s")
    browser.screenshot(PICTURES / "many-strength.png")
    sort(browser, "time")
    sort_all(browser)
    filtering = check_filters(browser)
    check_days(browser)
    check_marks(browser, page)
    began = busy_seconds(browser)
    drag_by_mouse(browser)
    dragging = (busy_seconds(browser) - began) / DRAG_STEPS
    for row in range(60):
        browser.evaluate(f"scrollTo(0, document.body.scrollHeight * {row} / 60)")
        browser.settle()
    loaded(browser)
    scrolled = renderer_memory(browser)
    heap = browser.evaluate("performance.memory.usedJSHeapSize") / 2**20
    check_quiet(browser, folder)
    browser.call("Page.removeScriptToEvaluateOnNewDocument", identifier=script["identifier"])
    say(f"many: {count} clips, {page.stat().st_size / 2**20:.1f} MiB of HTML; first picture after "
        f"{first:.0f} ms, loaded after {whole:.0f} ms with {at_load} files; {1000 * sorting:.0f} ms "
        f"of work to sort, {1000 * filtering:.0f} ms to filter, {1000 * marking:.0f} ms to mark, "
        f"{1000 * dragging:.0f} ms for a step of a drag; {memory:.0f} MiB, "
        f"scrolled through {scrolled:.0f} MiB, of which scripts {heap:.0f} MiB")


def main():
    recordings = sys.argv[1:]
    PICTURES.mkdir(parents=True, exist_ok=True)
    with Browser() as browser:
        check_few(browser, PLACE / "few", recordings)
        check_looks(browser, PLACE / "few")
        check_looks(browser, PLACE / "ten")
        check_without_script(browser, PLACE / "few")
        check_moved(browser, PLACE / "few")
        picture_for_readme(browser, PLACE / "readme")
        check_no_network(browser, PLACE / "few")
        check_policy(browser, PLACE / "few")
        check_cells(browser, PLACE / "cells")
        check_marks_file(browser, PLACE / "ten", PLACE / "downloads")
        check_cuts(browser, PLACE / "downloads", recordings)
        check_looks(browser, PLACE / "days")
        check_many(browser, PLACE / "many")
    say(f"The pictures lie in {PICTURES}.")


try:
    main()
except Failed as failure:
    sys.exit(f"Failed: {failure}")
