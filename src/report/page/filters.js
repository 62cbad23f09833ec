// What of the clips is shown.

const isClockKnown = clips.some((clip) => clip.clock !== null);
at("hours").hidden = !isClockKnown;
for (const [id, chosen] of [["filterfrom", 0], ["filterto", 24]]) {
  for (let hour = 0; hour <= 24; ++hour) {
    const text = `${String(hour).padStart(2, "0")}:00`;
    at(id).append(new Option(text, hour, hour === chosen, hour === chosen));
  }
}

/** Over midnight, if the first hour is behind the last. */
function isInHours(clip) {
  const from = 3600 * at("filterfrom").value;
  const to = 3600 * at("filterto").value;
  if (from === 0 && to === 24 * 3600)
    return true;
  if (clip.clock === null)
    return false;
  return from < to ? clip.clock >= from && clip.clock < to : clip.clock >= from || clip.clock < to;
}

/** The clips that all filters let through. */
function filtered() {
  const name = at("filtername").value.toLowerCase();
  const strength = Number(at("filterstrength").value);
  const mark = at("filtermark").value;
  return clips.filter((clip) => clip.strength >= strength && isInHours(clip) &&
    (mark === "all" || clip.mark === (mark === "none" ? "" : mark)) &&
    clip.name.toLowerCase().includes(name));
}

function showAll() {
  at("filtername").value = "";
  at("filterfrom").value = 0;
  at("filterto").value = 24;
  at("filterstrength").value = "";
  at("filtermark").value = "all";
  arrange();
}

let waiting = 0;
at("filters").addEventListener("input", () => {
  clearTimeout(waiting);
  waiting = setTimeout(arrange, 150);
});
at("nofilter").addEventListener("click", showAll);
