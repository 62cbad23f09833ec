# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""What a person does with a report's page: goes from clip to clip, sorts, plays, drags."""

import json

from common import ROOT
from pagechecks import check

PLACE = ROOT / "build/report"
PICTURES = PLACE / "screenshots"
DRAG_STEPS = 5  # pixels each

PLACES = """
[...document.querySelectorAll(".clip a")].indexOf(document.activeElement)
"""

FACTS = """
[...document.querySelectorAll(".clip")].map(figure => [Number(figure.dataset.start),
  figure.dataset.end - figure.dataset.start, Number(figure.dataset.strength),
  figure.querySelector(".source").textContent])
"""


def handle(browser):
    """Where a strip's threshold can be taken hold of."""
    return browser.evaluate("""(() => {
        const box = document.querySelector(".handle").getBoundingClientRect();
        return [box.left + box.width / 2, box.top + box.height / 2]; })()""")


def option(browser):
    return browser.evaluate("document.getElementById('option').textContent")


def expected_share(browser, threshold):
    data = json.loads(browser.evaluate("document.getElementById('data').textContent"))
    above = sum(seconds for step, seconds in data["all"] if data["steps"][step] >= threshold)
    share = 100 * above / sum(seconds for _, seconds in data["all"])
    return f"{share:.{2 if share < 1 else 1}f} %"


def check_threshold(browser):
    """What is shown is what the option in it would find."""
    threshold = float(option(browser).split()[1])
    text = browser.evaluate("document.getElementById('share').textContent")
    check(text.startswith(expected_share(browser, threshold)), f"{text} at {threshold}")
    return threshold


def drag_by_mouse(browser):
    browser.evaluate("scrollTo(0, 0)")
    before = check_threshold(browser)
    x, y = handle(browser)
    browser.mouse("mousePressed", x, y)
    for step in range(1, DRAG_STEPS + 1):
        browser.mouse("mouseMoved", x, y - 5 * step)
    browser.mouse("mouseReleased", x, y - 5 * DRAG_STEPS)
    after = check_threshold(browser)
    check(after > before, f"{before} dragged up to {after}")
    check(abs(handle(browser)[1] - (y - 5 * DRAG_STEPS)) < 2, "the line does not follow the pointer")
    browser.mouse("mouseMoved", x, y)
    check(check_threshold(browser) == after, "it follows a pointer that has let go")


def drag_by_touch(browser):
    browser.evaluate("scrollTo(0, 0)")
    before = check_threshold(browser)
    x, y = handle(browser)
    browser.touch("touchStart", (x, y))
    browser.touch("touchMove", (x, y - 8))
    browser.touch("touchMove", (x, y - 20))
    browser.touch("touchEnd")
    check(check_threshold(browser) > before, "touch does not drag")


def drag_by_keys(browser):
    browser.evaluate("document.getElementById('threshold').focus()")
    before = check_threshold(browser)
    browser.key("ArrowUp")
    one = check_threshold(browser)
    browser.key("PageUp")
    check(before < one < check_threshold(browser), "keys do not raise the threshold")
    browser.key("Home")
    check(check_threshold(browser) == 0.0, "Home is not the lowest threshold")
    browser.key("End")
    check(check_threshold(browser) == 10.0, "End is not the highest threshold")
    value = browser.evaluate("document.getElementById('threshold').getAttribute('aria-valuetext')")
    check(value.startswith("10, "), f"the slider says {value}")
    stops = browser.evaluate("document.querySelectorAll('.handle[tabindex]').length")
    check(stops == 0, f"{stops} strips are tab stops besides the slider")


def go_by_keys(browser, clips):
    seen = []
    for key in ("ArrowRight", "ArrowRight", "ArrowLeft", "End", "ArrowRight", "Home", "ArrowLeft"):
        browser.key(key)
        seen.append(browser.evaluate(PLACES))
    # The first key goes to the clip that is the page's tab stop.
    check(seen == [0, 1, 0, clips - 1, clips - 1, 0, 0], f"keys went to {seen}")
    stops = browser.evaluate("document.querySelectorAll('.clip a[tabindex=\"0\"]').length")
    check(stops == 1, f"{stops} tab stops")


def sort(browser, order):
    browser.evaluate(f"document.querySelector('input[value={order}]').click()")
    browser.settle()
    return browser.evaluate(FACTS)


def sort_all(browser):
    by_time = browser.evaluate(FACTS)
    by_strength = sort(browser, "strength")
    check(by_strength == sorted(by_time, key=lambda clip: -clip[2]), "not by strength")
    by_length = sort(browser, "length")
    check(by_length == sorted(by_time, key=lambda clip: -clip[1]), "not by length")
    check(sort(browser, "time") == by_time, "not by time")


def play(browser, index):
    """Presses Enter on a clip; true if it plays, false if the page says that it cannot."""
    browser.evaluate(f"document.querySelectorAll('.clip a')[{index}].focus()")
    browser.key("Enter")
    check(browser.evaluate("document.getElementById('player').open"), "Enter opens nothing")
    browser.wait_for("!document.getElementById('unplayable').hidden || "
                     "document.getElementById('video').currentTime > 0")
    return browser.evaluate("document.getElementById('unplayable').hidden")


def leave_player(browser, index):
    browser.key("Escape")
    check(not browser.evaluate("document.getElementById('player').open"), "Escape does not close")
    check(browser.evaluate(PLACES) == index, "the clip has lost the focus")


def check_players(browser, names):
    """Each recording is played from the clip's start, or the command for a player is offered."""
    for index, name in enumerate(names):
        plays = play(browser, index)
        check(plays == name.endswith((".mp4", ".mkv")), f"{name}: plays: {plays}")
        command = browser.evaluate("document.getElementById('command').textContent")
        check(command.startswith("mpv --start=") and command.endswith(f"{name}'"), command)
        if plays:
            start = browser.evaluate("document.querySelectorAll('.clip')"
                                     f"[{index}].dataset.start")
            time_ = browser.evaluate("document.getElementById('video').currentTime")
            check(abs(time_ - max(float(start), 0.0)) < 2.0, f"{name}: at {time_}, not {start}")
        else:
            browser.screenshot(PICTURES / "unplayable.png")
            browser.key("Enter")  # the button to copy has the focus
            browser.wait_for("document.getElementById('playersaid').textContent !== ''")
        leave_player(browser, index)
