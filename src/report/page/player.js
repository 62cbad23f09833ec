// The clip that is played, over the page.

const player = at("player");
const video = at("video");
const markButtons = {keep: at("keepplayed"), seen: at("seenplayed")};
let played = null;
let parts = []; // of the clip, that are still to be played

function showMark() {
  for (const [mark, button] of Object.entries(markButtons))
    button.setAttribute("aria-pressed", played.mark === mark);
}

function play(clip) {
  played = clip;
  showMark();
  at("playedname").textContent = clip.name;
  at("playednumber").textContent = clip.figure.querySelector("figcaption b").textContent;
  at("command").textContent = clip.figure.dataset.command;
  at("playersaid").textContent = "";
  at("unplayable").hidden = true;
  video.hidden = false;
  parts = [clip.link.href, ...(clip.figure.dataset.parts || "").split(" ").filter(Boolean)];
  player.showModal();
  playNext();
}

function playNext() {
  video.src = parts.shift();
  video.play().catch(() => {});
}

/** Browsers pause where a part ends, or end the recording; a person pauses before. */
function goOn() {
  const end = Number(video.src.split(",").pop());
  if (player.open && parts.length > 0 && (video.ended || video.currentTime >= end))
    playNext();
}

video.addEventListener("pause", goOn);
video.addEventListener("ended", goOn);

video.addEventListener("error", () => {
  if (!video.hasAttribute("src"))
    return;
  video.hidden = true;
  at("unplayable").hidden = false;
  at("copycommand").focus();
});

player.addEventListener("close", () => {
  video.removeAttribute("src");
  video.load();
});

function markPlayed(mark) {
  toggle(played, mark);
  showMark();
}

player.addEventListener("keydown", (event) => {
  const mark = markKeys[event.key.toLowerCase()];
  if (mark && isPlain(event))
    markPlayed(mark);
});

for (const [mark, button] of Object.entries(markButtons))
  button.addEventListener("click", () => markPlayed(mark));

document.addEventListener("click", (event) => {
  const clip = clipOf.get(event.target.closest("a"));
  if (!clip || event.ctrlKey || event.metaKey || event.shiftKey)
    return;
  event.preventDefault();
  play(clip);
});

at("close").addEventListener("click", () => player.close());
at("copycommand").addEventListener("click", () => copy(at("command"), at("playersaid")));
