// The clips: one of them is a tab stop, arrow keys move from there.

const numberIn = (text) => (text === undefined ? null : Number(text));

/** In the order of the page, which is that of the clips in `data`. */
const clips = [...document.querySelectorAll(".clip")].map((figure, index) => ({
  index,
  figure,
  link: figure.querySelector("a"),
  home: figure.closest(".cliplist"),
  name: figure.querySelector(".source").textContent,
  clock: numberIn(figure.dataset.clock), // seconds of the day
  at: numberIn(figure.dataset.at), // seconds since 1970
  start: Number(figure.dataset.start),
  length: Number(figure.dataset.end) - Number(figure.dataset.start),
  strength: Number(figure.dataset.strength),
  mark: "",
}));
const clipOf = new Map(clips.map((clip) => [clip.link, clip]));
let shown = clips;
let place = 0;
clips.forEach((clip, index) => { clip.link.tabIndex = index === 0 ? 0 : -1; });

/** The tab stop is the clip at `index`, or the nearest there is. */
function stopAt(index) {
  if (shown[place])
    shown[place].link.tabIndex = -1;
  place = Math.max(Math.min(index, shown.length - 1), 0);
  if (shown[place])
    shown[place].link.tabIndex = 0;
}

function goTo(index) {
  stopAt(index);
  if (shown.length === 0)
    return;
  const link = shown[place].link;
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

const isPlain = (event) =>
  !event.ctrlKey && !event.altKey && !event.metaKey && !event.shiftKey;

document.addEventListener("keydown", (event) => {
  const isElsewhere = event.target.closest("input, select, button, summary, dialog");
  const move = moves[event.key];
  if (!move || !isPlain(event) || isElsewhere || shown.length === 0)
    return;
  event.preventDefault();
  goTo(clipOf.has(document.activeElement) ? move() : place);
});

document.addEventListener("focusin", (event) => {
  const clip = clipOf.get(event.target);
  if (clip && shown[place] !== clip)
    stopAt(shown.indexOf(clip));
});
