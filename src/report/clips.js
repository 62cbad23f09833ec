// The clips: one of them is a tab stop, arrow keys move from there.

const clips = [...document.querySelectorAll(".clip")].map((figure) => ({
  figure,
  link: figure.querySelector("a"),
  home: figure.parentElement,
  name: figure.querySelector(".source").textContent,
  start: Number(figure.dataset.start),
  length: Number(figure.dataset.end) - Number(figure.dataset.start),
  strength: Number(figure.dataset.strength),
}));
const clipOf = new Map(clips.map((clip) => [clip.link, clip]));
let shown = clips;
let place = 0;
clips.forEach((clip, index) => { clip.link.tabIndex = index === 0 ? 0 : -1; });

function goTo(index) {
  if (shown.length === 0)
    return;
  shown[place].link.tabIndex = -1;
  place = Math.min(Math.max(index, 0), shown.length - 1);
  const link = shown[place].link;
  link.tabIndex = 0;
  link.focus({preventScroll: true});
  link.parentElement.scrollIntoView({block: "nearest"});
}

function perRow() {
  const columns = getComputedStyle(shown[place].figure.parentElement).gridTemplateColumns;
  return columns.split(" ").length;
}

const moves = {
  ArrowRight: () => place + 1,
  ArrowLeft: () => place - 1,
  ArrowDown: () => place + perRow(),
  ArrowUp: () => place - perRow(),
  Home: () => 0,
  End: () => shown.length - 1,
};

document.addEventListener("keydown", (event) => {
  const isPlain = !event.ctrlKey && !event.altKey && !event.metaKey && !event.shiftKey;
  const isElsewhere = event.target.closest("input, button, dialog, [role=slider]");
  const move = moves[event.key];
  if (!move || !isPlain || isElsewhere || shown.length === 0)
    return;
  event.preventDefault();
  goTo(clipOf.has(document.activeElement) ? move() : place);
});

document.addEventListener("focusin", (event) => {
  if (!clipOf.has(event.target) || shown[place].link === event.target)
    return;
  shown[place].link.tabIndex = -1;
  place = shown.findIndex((clip) => clip.link === event.target);
  event.target.tabIndex = 0;
});

// Sorting: by time each recording has its own, otherwise all are in one list.

const orders = {
  strength: (left, right) => right.strength - left.strength,
  length: (left, right) => right.length - left.length,
};

function sortBy(order) {
  const isRanked = order in orders;
  const current = shown[place];
  shown = isRanked ? [...clips].sort(orders[order]) : clips;
  place = Math.max(shown.indexOf(current), 0);
  const ranked = at("ranked");
  const list = ranked.querySelector(".clips");
  for (const clip of shown)
    (isRanked ? list : clip.home).append(clip.figure);
  ranked.hidden = !isRanked;
  scrollTo(0, 0);
}

at("order").addEventListener("change", (event) => sortBy(event.target.value));
