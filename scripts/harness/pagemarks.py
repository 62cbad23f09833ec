# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""What a person does with many clips of a report: filters them, marks them, goes to a day, keeps the marks."""

import json
import time

from pagechecks import check

MARKS = """
[...document.querySelectorAll(".clip")].map(figure => figure.dataset.mark || "")
"""
DEADLINE = 30  # seconds
DEBOUNCED = 1.0  # seconds in which what was typed, or marked, takes effect


def busy_seconds(browser):
    """For how long the page has kept its thread busy: scripts, styles, layout, painting."""
    metrics = browser.call("Performance.getMetrics")["metrics"]
    return next(one["value"] for one in metrics if one["name"] == "TaskDuration")


def set_field(browser, name, value):
    browser.evaluate(f"""(() => {{
        const field = document.getElementById({json.dumps(name)});
        field.value = {json.dumps(value)};
        field.dispatchEvent(new Event("input", {{bubbles: true}})); }})()""")
    time.sleep(DEBOUNCED)
    browser.settle()


def shown(browser, what):
    """Of each clip in the page, in its order."""
    return browser.evaluate(f"[...document.querySelectorAll('.clip')].map(one => {what})")


def show_all(browser):
    browser.evaluate("document.getElementById('nofilter').click()")
    browser.settle()


def check_filters(browser):
    """Answers how long the page took for one."""
    strengths = shown(browser, "Number(one.dataset.strength)")
    began = busy_seconds(browser)
    set_field(browser, "filterstrength", "5")
    took = busy_seconds(browser) - began
    expected = [one for one in strengths if one >= 5]
    check(shown(browser, "Number(one.dataset.strength)") == expected, "not filtered by strength")
    count = browser.evaluate("document.getElementById('count').textContent")
    check(count == f"{len(expected)} of {len(strengths)} clips", count)
    show_all(browser)
    set_field(browser, "filterfrom", "23")
    set_field(browser, "filterto", "1")
    hours = {int(one) // 3600 for one in shown(browser, "one.dataset.clock")}
    check(hours == {23}, f"hours {hours} over midnight, where nothing was recorded at 0")
    show_all(browser)
    set_field(browser, "filtername", "20261105-22")
    names = set(shown(browser, "one.querySelector('.source').textContent"))
    check(names == {"camera </script>/20261105-220000.mp4"}, f"of the name: {names}")
    set_field(browser, "filtername", "nothing like that")
    check(shown(browser, "one") == [], "a name that no recording has")
    browser.key("ArrowRight")
    show_all(browser)
    check(len(shown(browser, "0")) == len(strengths), "not all are shown again")
    return took


def nearest(browser, part):
    """Clicks into a row; how far the clip with the focus is from there, in seconds."""
    x, y, at = browser.evaluate(f"""(() => {{
        const box = document.querySelectorAll(".stripbox[data-at]")[2];
        box.scrollIntoView({{block: "center"}});
        const {{left, top, width}} = box.getBoundingClientRect();
        return [left + {part} * width, top + 4,
                Number(box.dataset.at) + {part} * box.dataset.seconds]; }})()""")
    browser.mouse("mousePressed", x, y)
    browser.mouse("mouseReleased", x, y)
    found = browser.evaluate("Number(document.activeElement.closest('.clip').dataset.at)")
    times = shown(browser, "Number(one.dataset.at)")
    return abs(found - at) - min(abs(one - at) for one in times)


def check_days(browser):
    rows = browser.evaluate("document.querySelectorAll('.dayrow').length")
    check(rows == 30, f"{rows} rows for 30 nights")
    labels = browser.evaluate("[...document.querySelectorAll('.dayrow:first-child text')].map(t => t.textContent)")
    check(labels[0] == "22:00" and labels[-1] == "06:00", f"a night has the hours {labels}")
    for part in (0.1, 0.9):
        check(nearest(browser, part) < 30, "a click on a day goes somewhere else")
    before = browser.evaluate("location.href")
    browser.evaluate("document.querySelectorAll('.today')[4].click()")
    place = browser.evaluate("document.activeElement.textContent")
    check(place.startswith("Night of Thursday 2026-11-05"), place)
    check(browser.evaluate("location.href") == before, "a link in the page has changed the address")


def marked(browser):
    return [(index, mark) for index, mark in enumerate(browser.evaluate(MARKS)) if mark]


def reopen(browser, page, fragment=""):
    """As a new page: one that differs in its fragment alone would not be loaded anew."""
    browser.call("Page.navigate", url="about:blank")
    browser.wait_for("location.href === 'about:blank' && document.readyState === 'complete'")
    browser.call("Page.navigate", url=page.absolute().as_uri() + fragment)
    browser.wait_for("location.protocol === 'file:' && document.readyState === 'complete'")


def mark_some(browser):
    for key in ("Home", "k", "ArrowRight", "ArrowRight", "s", "ArrowRight", "k", "k", "End", "s", "k"):
        browser.key(key)
    time.sleep(DEBOUNCED)


def check_marks(browser, page):
    last = len(shown(browser, "0")) - 1
    browser.evaluate("document.querySelector('.clip a[tabindex=\"0\"]').focus()")
    mark_some(browser)
    expected = [(0, "keep"), (2, "seen"), (last, "keep")]
    check(marked(browser) == expected, f"marked: {marked(browser)}")
    count = browser.evaluate("document.getElementById('marked').textContent")
    check(count == "2 to keep, 1 seen", count)
    fragment = browser.evaluate("location.hash")
    check(fragment.endswith(f".K1S{last - 3}K"), fragment)
    reopen(browser, page)
    check(marked(browser) == expected, "the browser has not kept the marks")
    browser.evaluate("localStorage.clear()")
    reopen(browser, page, fragment)
    check(marked(browser) == expected, "the address has not kept the marks")
    browser.evaluate("localStorage.clear()")
    for other, told in ((fragment[:7] + "000000000000.K", "another report"),
                        (fragment + "<b>", "no sense"), (fragment + "9999999K", "no sense")):
        reopen(browser, page, other)
        check(marked(browser) == [], f"{other} marks something")
        check(told in browser.evaluate("document.getElementById('said').textContent"), other)
    reopen(browser, page, fragment)
    set_field(browser, "filtermark", "seen")
    check(browser.evaluate(MARKS) == ["seen"], "not filtered by marks")
    set_field(browser, "filtermark", "none")
    browser.key("Home")
    browser.key("s")
    left = len(shown(browser, "0"))
    check(left == last + 1 - 4, f"{left} without a mark")
    check(browser.evaluate("document.activeElement.matches('.clip a')"), "the next clip has no focus")
    show_all(browser)
    browser.evaluate("document.getElementById('nomarks').click()")
    time.sleep(DEBOUNCED)
    check(browser.evaluate("location.hash + (localStorage.length || '')") == "", "marks are left")


def load_marks(browser, path):
    browser.evaluate("document.getElementById('said').textContent = ''")
    browser.choose_file("#loadmarks", path)
    browser.wait_for("document.getElementById('said').textContent !== ''")
    return browser.evaluate("document.getElementById('said').textContent")


def check_marks_file(browser, folder, downloads):
    page = folder / "index.html"
    browser.save_downloads(downloads)
    reopen(browser, page)
    browser.key("ArrowRight")
    mark_some(browser)
    expected = marked(browser)
    browser.evaluate("document.getElementById('savemarks').click()")
    saved = downloads / "marks.json"
    deadline = time.monotonic() + DEADLINE
    while not saved.exists() and time.monotonic() < deadline:
        time.sleep(0.05)
    marks = json.loads(saved.read_text(encoding="utf-8"))
    check((marks["kestrova"], marks["version"]) == ("marks", 1), marks)
    check([one["mark"] for one in marks["clips"]] == [mark for _, mark in expected], marks)
    starts = shown(browser, "Number(one.dataset.start)")
    check([round(one["start"], 3) for one in marks["clips"]] == [starts[place] for place, _ in expected],
          marks)
    keys = ["recording", "size", "modified", "number", "start", "end", "mark"]
    check(all(list(one) == keys for one in marks["clips"]), marks)
    check(marks["clips"][0]["recording"].endswith('/camera 0/<b>night &"day".mp4'), marks)
    browser.evaluate("document.getElementById('nomarks').click()")
    check(load_marks(browser, saved) == "3 marks loaded.", "the saved marks")
    check(marked(browser) == expected, "they are others")
    for number, text in enumerate(('{"kestrova": "marks"}', "[" * 100000, "null", '\x00', "<script>")):
        hostile = downloads / f"hostile-{number}.json"
        hostile.write_text(text, encoding="utf-8")
        check(load_marks(browser, hostile) == "That is no file of marks.", text[:20])
    for change in ({"number": 77}, {"mark": "<b>"}, {"start": "0"}, {"recording": None}):
        marks["clips"] = [{**marks["clips"][0], **change}, None, 7]
        other = downloads / "other.json"
        other.write_text(json.dumps(marks), encoding="utf-8")
        check("of no clip" in load_marks(browser, other), change)
    check(not browser.complaints(), browser.complaints())


def check_policy(browser, folder):
    """What is not the page's own script or style is refused, in attributes as well."""
    browser.open(folder / "index.html")
    policy = browser.evaluate("document.querySelector('meta[http-equiv]').content")
    check("unsafe" not in policy and policy.count("'sha256-") == 2, policy)
    for injected in ("<script>window.ran = 1</script>", "<p style='color: red'>", "<style>p {}</style>",
                     "<img src='x:' onerror='window.ran = 1'>"):
        refused = browser.evaluate(f"""new Promise(done => {{
            document.addEventListener("securitypolicyviolation", event => done(event.effectiveDirective),
                                      {{once: true}});
            document.body.append(document.createRange().createContextualFragment({json.dumps(injected)}));
            setTimeout(() => done(""), 2000); }})""")
        check(refused, f"not refused: {injected}")
    check(browser.evaluate("window.ran === undefined"), "a script has run that is not the page's")
