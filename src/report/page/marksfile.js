// Marks as a file, from which the scanner cuts out what is to be kept.

const largestFile = 64 * 1024 * 1024; // bytes

/** By which the scanner knows that it is still the same. */
function recordingOf(place) {
  const [recording, size, modified, recordingBytes] = data.recordings[place];
  return recordingBytes ? {recording, recordingBytes, size, modified} : {recording, size, modified};
}

/** With its parts, if it lies in several recordings. */
function markOf(clip) {
  const [recording, number, start, end, parts] = data.clips[clip.index];
  const one = {...recordingOf(recording), number, start, end, mark: clip.mark};
  if (parts)
    one.parts = parts.map(([place, from, to, offset]) =>
      ({...recordingOf(place), start: from, end: to, offset}));
  return one;
}

/** By which a clip is found again. */
function keyOf({recording, recordingBytes, number, start, end}) {
  return JSON.stringify([recordingBytes || recording, number, start, end]);
}

function marksFileText() {
  const lines = clips.filter((clip) => clip.mark).map((clip) => JSON.stringify(markOf(clip)));
  return `{"kestrova": "marks", "version": 1, "clips": [\n${lines.join(",\n")}\n]}\n`;
}

at("savemarks").addEventListener("click", () => {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([marksFileText()], {type: "application/json"}));
  link.download = "marks.json";
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
});

/** Null if it is no file of marks. */
function readMarks(text) {
  try {
    const file = JSON.parse(text);
    const isGood = file.kestrova === "marks" && file.version === 1 && Array.isArray(file.clips);
    return isGood ? file.clips.filter((one) => one && typeof one === "object") : null;
  } catch (error) {
    return null;
  }
}

function applyMarks(marks) {
  const byKey = new Map(clips.map((clip) => [keyOf(markOf(clip)), clip]));
  let found = 0;
  for (const one of marks) {
    const clip = byKey.get(keyOf(one));
    if (!clip || !Object.values(markKeys).includes(one.mark))
      continue;
    setMark(clip, one.mark);
    ++found;
  }
  return found;
}

at("loadmarks").addEventListener("change", async (event) => {
  const file = event.target.files[0];
  if (!file)
    return;
  const marks = file.size > largestFile ? null : readMarks(await file.text());
  event.target.value = "";
  if (!marks) {
    say("That is no file of marks.");
    return;
  }
  const found = applyMarks(marks);
  marksChanged();
  keepNow();
  const others = marks.length - found;
  say(`${found} marks loaded${others ? `; ${others} are of no clip in this report` : ""}.`);
});
