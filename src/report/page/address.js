// Where marks are kept: in the page's address, and in the browser's storage where it has one.

const beginning = `#marks=${data.report}.`;
const storageName = `kestrova marks ${data.report}`;

/** A letter for each clip that is marked; before it so many clips as have no mark, unless 0. */
function marksText() {
  let text = "";
  let gap = 0;
  for (const {mark} of clips) {
    if (mark)
      text += (gap || "") + (mark === "keep" ? "K" : "S");
    gap = mark ? 0 : gap + 1;
  }
  return text;
}

/** False if the text is none of ours; then nothing is marked. */
function takeMarks(text) {
  if (!/^(\d{0,7}[KS])*$/.test(text))
    return false;
  const marks = [];
  let next = 0;
  for (const [, gap, letter] of text.matchAll(/(\d*)([KS])/g)) {
    next += Number(gap);
    marks[next++] = letter === "K" ? "keep" : "seen";
  }
  if (next > clips.length)
    return false;
  clips.forEach((clip, index) => setMark(clip, marks[index] || ""));
  return true;
}

function stored() {
  try {
    return localStorage.getItem(storageName);
  } catch (error) { // pages of files may have none
    return null;
  }
}

function store(text) {
  try {
    if (text)
      localStorage.setItem(storageName, text);
    else
      localStorage.removeItem(storageName);
  } catch (error) {
    // The address has them.
  }
}

let keeping = 0;

/** Browsers refuse addresses that change too often. */
function keepSoon() {
  clearTimeout(keeping);
  keeping = setTimeout(keepNow, 400);
}

function keepNow() {
  clearTimeout(keeping);
  keeping = 0;
  const text = marksText();
  store(text);
  history.replaceState(null, "", text ? beginning + text : location.pathname + location.search);
}

/** What stands in the address counts more than what is stored. */
function readAddress() {
  const hash = location.hash;
  if (hash.startsWith("#marks=") && !hash.startsWith(beginning))
    say("The marks in the address are of another report.");
  else if (hash.startsWith(beginning) && !takeMarks(hash.slice(beginning.length)))
    say("The marks in the address make no sense.");
  return hash.startsWith(beginning);
}

if (!readAddress())
  takeMarks(stored() || "");
countMarks();
addEventListener("hashchange", () => {
  if (readAddress())
    marksChanged();
});
addEventListener("pagehide", () => {
  if (keeping)
    keepNow();
});
