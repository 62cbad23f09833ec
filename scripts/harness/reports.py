"""Opens reports in a headless browser and does with them what a person would: keys, pointer, sizes."""

import json
import pathlib
import shutil
import subprocess
import sys
import urllib.parse

from browser import Browser
from common import ROOT

PLACE = ROOT / "build/report"
PICTURES = PLACE / "screenshots"
DRAG_STEPS = 5  # pixels each

# What Debian's tidy is too old to know, and right in HTML.
UNKNOWN_TO_TIDY = ('<img> proprietary attribute "loading"', '<img> proprietary attribute "decoding"',
                   "<svg> proprietary attribute")

FIRST_PICTURE = """
window.firstPicture = new Promise(done => document.addEventListener("load", event => {
  if (event.target.matches(".clip img"))
    requestAnimationFrame(() => done(performance.now()));
}, true));
"""

PLACES = """
[...document.querySelectorAll(".clip a")].indexOf(document.activeElement)
"""

FACTS = """
[...document.querySelectorAll(".clip")].map(figure => [Number(figure.dataset.start),
  figure.dataset.end - figure.dataset.start, Number(figure.dataset.strength),
  figure.querySelector(".source").textContent])
"""

# The contrast of each text with what lies behind it, as WCAG counts it; the worst, and whose.
CONTRAST = """
(() => {
  const channels = (text) => text.match(/[\\d.]+/g).map(Number);
  const light = (color) => {
    const [r, g, b] = channels(color).slice(0, 3)
        .map(c => c / 255).map(c => c <= 0.03928 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4);
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
  };
  const ground = (element) => {
    for (let one = element; one; one = one.parentElement) {
      const color = getComputedStyle(one).backgroundColor;
      if (channels(color)[3] !== 0)
        return color;
    }
    return "rgb(255, 255, 255)";
  };
  let worst = [99, ""];
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  while (walker.nextNode()) {
    const element = walker.currentNode.parentElement;
    if (!walker.currentNode.data.trim() || element.matches("script, style"))
      continue;
    const style = getComputedStyle(element);
    const isDrawn = element instanceof SVGElement;
    const one = light(isDrawn ? style.fill : style.color);
    const other = light(ground(element));
    const ratio = (Math.max(one, other) + 0.05) / (Math.min(one, other) + 0.05);
    if (ratio < worst[0])
      worst = [ratio, element.outerHTML.slice(0, 80)];
  }
  return worst;
})()
"""


class Failed(Exception):
    """A report is not as it should be."""


def check(condition, what):
    if not condition:
        raise Failed(what)


def say(text):
    print(text, flush=True)


def tidy(page):
    """Refuses a page of which the validator says anything but what it is too old to know."""
    ended = subprocess.run(["tidy", "-quiet", "-errors", page], capture_output=True, text=True,
                           check=False)
    lines = [line for line in ended.stderr.splitlines()
             if not any(known in line for known in UNKNOWN_TO_TIDY)]
    check(not lines and ended.returncode < 2, f"{page}: {lines[:5]}")


def check_quiet(browser, folder, *others):
    """No complaint, and no request but to files of the folder, or to those named."""
    check(not browser.complaints(), browser.complaints())
    for url in browser.requests():
        if url.startswith("data:"):  # the buttons that the browser draws on a video
            continue
        path = urllib.parse.unquote(urllib.parse.urlsplit(url).path)
        check(url.startswith("file://") and (path.startswith(f"{folder}/") or path in others), url)


def loaded(browser):
    """Waits until each picture in sight is there."""
    browser.wait_for("""[...document.images].every(image => image.naturalWidth > 0 ||
        image.getBoundingClientRect().top > innerHeight || image.getBoundingClientRect().bottom < 0)""")


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
    browser.evaluate("document.querySelector('.handle').focus()")
    before = check_threshold(browser)
    browser.key("ArrowUp")
    one = check_threshold(browser)
    browser.key("PageUp")
    check(before < one < check_threshold(browser), "keys do not raise the threshold")
    browser.key("Home")
    check(check_threshold(browser) == 0.0, "Home is not the lowest threshold")
    browser.key("End")
    check(check_threshold(browser) == 10.0, "End is not the highest threshold")
    value = browser.evaluate("document.querySelector('.handle').getAttribute('aria-valuenow')")
    check(value == "10", f"the slider says {value}")


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


def check_accessible(browser):
    tree = browser.call("Accessibility.getFullAXTree")["nodes"]
    named = {}
    for node in tree:
        if not node.get("ignored"):
            role = node["role"]["value"]
            named.setdefault(role, []).append(node.get("name", {}).get("value", ""))
    for role in ("main", "banner", "contentinfo", "region", "slider", "image", "radio"):
        check(role in named, f"no {role}: {sorted(named)}")
    for role in ("region", "slider", "image", "link", "button", "radio"):
        check(all(named.get(role, [])), f"a {role} without a name: {named.get(role)}")


def check_contrast(browser):
    ratio, whose = browser.evaluate(CONTRAST)
    check(ratio >= 4.5, f"contrast {ratio}: {whose}")
    return ratio


def check_width(browser):
    wide = browser.evaluate("document.documentElement.scrollWidth - innerWidth")
    check(wide <= 0, f"{wide} pixels too wide")


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


def busy_seconds(browser):
    """For how long the page has kept its thread busy: scripts, styles, layout, painting."""
    metrics = browser.call("Performance.getMetrics")["metrics"]
    return next(one["value"] for one in metrics if one["name"] == "TaskDuration")


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
    browser.screenshot(PICTURES / "many-strength.png")
    sort(browser, "time")
    sort_all(browser)
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
        f"of work to sort, {1000 * dragging:.0f} ms for a step of a drag; {memory:.0f} MiB, "
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
        check_many(browser, PLACE / "many")
    say(f"The pictures lie in {PICTURES}.")


try:
    main()
except Failed as failure:
    sys.exit(f"Failed: {failure}")
