// The threshold: one for all strips, of which only those in sight are drawn.

const data = JSON.parse(at("data").textContent);
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
const plotHeight = Number(document.querySelector(".strip svg")?.getAttribute("height"));
let step = nearestStep(data.threshold);
let isDrawn = true;
const inSight = new Set();

const strips = [...document.querySelectorAll(".recording")].map((section) => {
  const handle = document.createElement("div");
  handle.className = "handle";
  handle.tabIndex = 0;
  handle.setAttribute("role", "slider");
  handle.setAttribute("aria-orientation", "vertical");
  handle.setAttribute("aria-label", "Threshold");
  handle.setAttribute("aria-valuemin", data.steps[0]);
  handle.setAttribute("aria-valuemax", data.steps[last]);
  const box = section.querySelector(".stripbox");
  box.append(handle);
  const share = document.createElement("span");
  section.querySelector(".facts").append(share);
  return {box, handle, share, above: sums(data.recordings[section.id])};
});

function drawStrip(strip) {
  const value = data.steps[step];
  const height = Math.sqrt(Math.min(value / data.top, 1));
  const share = percent(strip.above, step);
  strip.handle.style.transform = `translateY(${plotHeight * (1 - height)}px)`;
  strip.handle.setAttribute("aria-valuenow", value);
  strip.handle.setAttribute("aria-valuetext", `${value}, ${share} of the time at or above`);
  strip.share.textContent = `, ${share} of the time at or above ${value}`;
}

function draw() {
  isDrawn = true;
  at("share").textContent = `${percent(all, step)} of the time at or above ${data.steps[step]}:`;
  at("option").textContent = `--threshold-motion ${data.steps[step]}`;
  inSight.forEach(drawStrip);
}

function choose(next) {
  step = Math.min(Math.max(next, 0), last);
  if (isDrawn)
    requestAnimationFrame(draw);
  isDrawn = false;
}

function drag(strip, event) {
  const depth = event.clientY - strip.box.getBoundingClientRect().top;
  const height = Math.min(Math.max(1 - depth / plotHeight, 0), 1);
  choose(nearestStep(data.top * height * height));
}

const stepKeys = {
  ArrowUp: 1, ArrowRight: 1, ArrowDown: -1, ArrowLeft: -1,
  PageUp: 10, PageDown: -10, Home: -last, End: last,
};

const watcher = new IntersectionObserver((entries) => {
  for (const entry of entries) {
    const strip = strips.find((one) => one.box === entry.target);
    if (entry.isIntersecting) {
      inSight.add(strip);
      drawStrip(strip);
    } else {
      inSight.delete(strip);
    }
  }
});

for (const strip of strips) {
  const {handle} = strip;
  handle.addEventListener("pointerdown", (event) => {
    handle.setPointerCapture(event.pointerId);
    drag(strip, event);
  });
  handle.addEventListener("pointermove", (event) => {
    if (handle.hasPointerCapture(event.pointerId))
      drag(strip, event);
  });
  handle.addEventListener("keydown", (event) => {
    if (!(event.key in stepKeys))
      return;
    event.preventDefault();
    choose(step + stepKeys[event.key]);
  });
  watcher.observe(strip.box);
}

at("copyoption").addEventListener("click", () => copy(at("option"), at("said")));
at("tools").hidden = false;
draw();
