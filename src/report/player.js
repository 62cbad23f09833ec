// The clip that is played, over the page.

const player = at("player");
const video = at("video");

function play(clip) {
  at("playedname").textContent = clip.name;
  at("playednumber").textContent = clip.figure.querySelector("figcaption b").textContent;
  at("command").textContent = clip.figure.dataset.command;
  at("playersaid").textContent = "";
  at("unplayable").hidden = true;
  video.hidden = false;
  video.src = clip.link.href;
  player.showModal();
  video.play().catch(() => {});
}

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

document.addEventListener("click", (event) => {
  const clip = clipOf.get(event.target.closest("a"));
  if (!clip || event.ctrlKey || event.metaKey || event.shiftKey)
    return;
  event.preventDefault();
  play(clip);
});

at("close").addEventListener("click", () => player.close());
at("copycommand").addEventListener("click", () => copy(at("command"), at("playersaid")));
