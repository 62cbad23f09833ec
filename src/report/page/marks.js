// Marks: what to keep, and what has been seen.

const markKeys = {k: "keep", s: "seen"};

function setMark(clip, mark) {
  clip.mark = mark;
  if (mark)
    clip.figure.dataset.mark = mark;
  else
    delete clip.figure.dataset.mark;
}

function countMarks() {
  const count = (mark) => clips.filter((clip) => clip.mark === mark).length;
  at("marked").textContent = `${count("keep")} to keep, ${count("seen")} seen`;
}

/** After marks have changed, by whatever. */
function marksChanged() {
  countMarks();
  if (at("filtermark").value !== "all")
    arrange();
}

/** The same mark again takes it away. */
function toggle(clip, mark) {
  setMark(clip, clip.mark === mark ? "" : mark);
  const words = {keep: "to keep", seen: "seen", "": "without a mark"};
  say(`${clip.figure.querySelector("b").textContent} is ${words[clip.mark]}.`);
  marksChanged();
  keepSoon();
}

document.addEventListener("keydown", (event) => {
  const mark = markKeys[event.key.toLowerCase()];
  const clip = clipOf.get(event.target);
  if (!mark || !clip || !isPlain(event))
    return;
  event.preventDefault();
  toggle(clip, mark);
});

at("nomarks").addEventListener("click", () => {
  for (const clip of clips)
    setMark(clip, "");
  marksChanged();
  keepSoon();
});
