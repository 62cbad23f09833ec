// Lists of clips, in groups: the browser leaves out those that are out of sight.

const groupSize = 60; // fills the last row, whether there are 1, 2, 3, 4, 5 or 6 clips in one
const figuresOf = new WeakMap(); // of groups

for (const group of document.querySelectorAll(".clips"))
  figuresOf.set(group, [...group.children]);

function isSame(group, figures) {
  const own = group ? figuresOf.get(group) : [];
  return own.length === figures.length && own.every((figure, index) => figure === figures[index]);
}

function makeGroup(figures) {
  const group = document.createElement("div");
  group.className = "clips";
  group.append(...figures);
  figuresOf.set(group, figures);
  return group;
}

/** Takes those groups out of the list that do not stay; answers the figures of all that it gets. */
function makeRoom(list, figures) {
  const old = [...list.children];
  const parts = [];
  for (let first = 0; first < figures.length; first += groupSize)
    parts.push(figures.slice(first, first + groupSize));
  old.forEach((group, index) => {
    if (!isSame(group, parts[index] || []))
      group.remove();
  });
  return parts;
}

/** Fills lists with figures. Those that move are taken out of the page first: that is quicker. */
function fill(figuresByList) {
  const partsByList = new Map();
  figuresByList.forEach((figures, list) => partsByList.set(list, makeRoom(list, figures)));
  partsByList.forEach((parts, list) => {
    const kept = [...list.children];
    const groups = parts.map((part) => (isSame(kept[0], part) ? kept.shift() : makeGroup(part)));
    if (groups.length !== list.children.length)
      list.replaceChildren(...groups);
  });
}

/** How high the groups are that have not been drawn yet, so that the page does not jump. */
function estimate() {
  const first = document.querySelector(".clips");
  if (!first)
    return;
  const columns = getComputedStyle(first).gridTemplateColumns.split(" ").length;
  const height = first.firstElementChild.getBoundingClientRect().height + 16;
  for (const group of document.querySelectorAll(".clips")) {
    const rows = Math.ceil(figuresOf.get(group).length / columns);
    group.style.containIntrinsicBlockSize = `auto ${Math.round(rows * height)}px`;
  }
}

let width = 0;
new ResizeObserver((entries) => {
  if (entries[0].contentRect.width === width)
    return;
  width = entries[0].contentRect.width;
  estimate();
}).observe(at("recordings"));
