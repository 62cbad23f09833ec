// The threshold: one for all strips, of which only those in sight are drawn.

const last = data.steps.length - 1;

/** The seconds at or above each step. */
function sums(pairs) {
  const above = new Array(data.steps.length).fill(0);
  for (const [step, seconds] of pairs)
    above[step] = seconds;
  for (let i = last - 1; i >= 0; --i)
    above[i] += above[i + 1];
  return above;
}

function nearestStep(value) {
  let best = 0;
  for (let i = 1; i <= last; ++i) {
    if (Math.abs(data.steps[i] - value) < Math.abs(data.steps[best] - value))
      best = i;
  }
  return best;
}

function percent(above, step) {
  const share = above[0] > 0 ? 100 * above[step] / above[0] : 0;
  return share.toFixed(share < 1 ? 2 : 1) + " %";
}

const all = sums(data.all);
const slider = at("threshold");
let step = nearestStep(data.threshold);
let isDrawn = true;
const inSight = new Set();

/** What says how much of a recording, or a camera, is at or above it. */
const shares = new Map(Object.entries(data.strips).map(([id, pairs]) => {
  const text = document.createElement("span");
  at(id).querySelector(".facts").append(text);
  return [id, {text, above: sums(pairs)}];
}));

/** Lines that a pointer can drag; keys have the slider. */
const strips = new Map([...document.querySelectorAll(".stripbox")].map((box) => {
  const handle = document.createElement("div");
  handle.className = "handle";
  box.append(handle);
  const share = shares.get(box.closest(".recording").id);
  return [box, {box, handle, share, height: Number(box.querySelector("svg svg").getAttribute("height"))}];
}));

function drawStrip({handle, share, height}) {
  const value = data.steps[step];
  const depth = 1 - Math.sqrt(Math.min(value / data.top, 1));
  handle.style.transform = `translateY(${height * depth}px)`;
  share.text.textContent = `, ${percent(share.above, step)} of the time at or above ${value}`;
}

function draw() {
  isDrawn = true;
  const value = data.steps[step];
  const share = percent(all, step);
  at("share").textContent = `${share} of the time at or above ${value}:`;
  at("option").textContent = `--threshold-motion ${value}`;
  slider.value = step;
  slider.setAttribute("aria-valuetext", `${value}, ${share} of the time at or above`);
  inSight.forEach(drawStrip);
}

function choose(next) {
  step = Math.min(Math.max(next, 0), last);
  if (isDrawn)
    requestAnimationFrame(draw);
  isDrawn = false;
}

function drag({box, height}, event) {
  const depth = event.clientY - box.getBoundingClientRect().top;
  const share = Math.min(Math.max(1 - depth / height, 0), 1);
  choose(nearestStep(data.top * share * share));
}

const watcher = new IntersectionObserver((entries) => {
  for (const {target, isIntersecting} of entries) {
    const strip = strips.get(target);
    if (isIntersecting) {
      inSight.add(strip);
      drawStrip(strip);
    } else {
      inSight.delete(strip);
    }
  }
});

for (const strip of strips.values()) {
  const {handle} = strip;
  handle.addEventListener("pointerdown", (event) => {
    handle.setPointerCapture(event.pointerId);
    drag(strip, event);
  });
  handle.addEventListener("pointermove", (event) => {
    if (handle.hasPointerCapture(event.pointerId))
      drag(strip, event);
  });
  watcher.observe(strip.box);
}

slider.max = last;
slider.addEventListener("input", () => choose(Number(slider.value)));
at("copyoption").addEventListener("click", () => copy(at("option"), at("said")));
at("tools").hidden = false;
draw();
