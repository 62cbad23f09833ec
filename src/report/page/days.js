// A click on a day goes to the clip that is nearest.

function nearestClip(section, time) {
  let best = -1;
  for (let i = 0; i < shown.length; ++i) {
    const {home, at: begin} = shown[i];
    if (!section.contains(home))
      continue;
    if (best < 0 || Math.abs(begin - time) < Math.abs(shown[best].at - time))
      best = i;
  }
  return best;
}

for (const box of document.querySelectorAll(".stripbox[data-at]")) {
  box.addEventListener("click", (event) => {
    const {left, width} = box.getBoundingClientRect();
    const time = Number(box.dataset.at) +
      Number(box.dataset.seconds) * (event.clientX - left) / width;
    const nearest = nearestClip(box.closest(".camera"), time);
    if (nearest >= 0 && !event.target.matches(".handle"))
      goTo(nearest);
  });
}
