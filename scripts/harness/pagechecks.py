# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""What a report's page must be, whoever looks at it: right, readable, and told to who cannot see it."""

import subprocess

# What Debian's tidy is too old to know, and right in HTML.
UNKNOWN_TO_TIDY = ('<img> proprietary attribute "loading"', '<img> proprietary attribute "decoding"',
                   "<svg> proprietary attribute")

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


def tidy(page):
    """Refuses a page of which the validator says anything but what it is too old to know."""
    ended = subprocess.run(["tidy", "-quiet", "-errors", page], capture_output=True, text=True,
                           check=False)
    lines = [line for line in ended.stderr.splitlines()
             if not any(known in line for known in UNKNOWN_TO_TIDY)]
    check(not lines and ended.returncode < 2, f"{page}: {lines[:5]}")


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


# What is smaller than 24 pixels to hit; a label belongs to what it names.
SMALL = """
[...document.querySelectorAll("button, input, select, summary, a[href], .handle")].filter(one => {
  const box = one.getBoundingClientRect();
  return box.width > 0 && box.bottom > 0 && !one.matches(".skip") && (box.width < 24 || box.height < 23.9);
}).map(one => one.outerHTML.slice(0, 80))
"""


def check_sizes(browser):
    small = browser.evaluate(SMALL)
    check(not small, f"too small to hit: {small}")


def check_contrast(browser):
    ratio, whose = browser.evaluate(CONTRAST)
    check(ratio >= 4.5, f"contrast {ratio}: {whose}")
    return ratio


def check_width(browser):
    wide = browser.evaluate("document.documentElement.scrollWidth - innerWidth")
    check(wide <= 0, f"{wide} pixels too wide")
