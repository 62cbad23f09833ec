// Sorting: by time each recording has its own clips, otherwise all are in one list.

const orders = {
  strength: (left, right) => right.strength - left.strength,
  length: (left, right) => right.length - left.length,
};
let order = "time";

const figures = (list) => list.map((clip) => clip.figure);

/** Sections whose clips are all elsewhere or filtered out have nothing to show but their strips. */
function hideEmpty(isRanked, isFiltered) {
  for (const section of document.querySelectorAll(".dayclips, section.recording")) {
    const isEmpty = !section.querySelector(".clip");
    section.hidden = isEmpty && (section.matches(".dayclips") || (isFiltered && !isRanked));
  }
}

/** Shows the clips that are filtered, in their order; the current one stays, or the next one. */
function arrange() {
  const isRanked = order in orders;
  const current = shown[place];
  const hadFocus = clipOf.has(document.activeElement);
  const left = filtered();
  const byHome = new Map([...document.querySelectorAll(".cliplist")].map((list) => [list, []]));
  for (const clip of isRanked ? [] : left)
    byHome.get(clip.home).push(clip.figure);
  shown = isRanked ? [...left].sort(orders[order]) : left;
  const ranked = at("ranked").querySelector(".cliplist");
  byHome.set(ranked, isRanked ? figures(shown) : []);
  fill(byHome);
  at("ranked").hidden = !isRanked;
  hideEmpty(isRanked, left.length < clips.length);
  estimate();
  at("count").textContent = left.length < clips.length
    ? `${left.length} of ${clips.length} clips` : "";
  keepPlace(current, hadFocus);
}

function keepPlace(current, hadFocus) {
  if (current)
    current.link.tabIndex = -1;
  const now = shown.indexOf(current);
  stopAt(now < 0 ? place : now);
  if (hadFocus)
    goTo(place);
}

at("order").addEventListener("change", (event) => {
  order = event.target.value;
  arrange();
  scrollTo(0, 0);
});
