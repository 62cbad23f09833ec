const at = (id) => document.getElementById(id);
const data = JSON.parse(at("data").textContent);

/** What is scrolled to is not hidden behind the tools, however many of them are open. */
new ResizeObserver(() => {
  const isOver = getComputedStyle(at("tools")).position === "sticky";
  const height = isOver ? at("tools").getBoundingClientRect().height : 0;
  document.documentElement.style.scrollPaddingTop = `${height + 16}px`;
}).observe(at("tools"));

function say(text) {
  at("said").textContent = text;
}

/** Where the clipboard is refused, the text is selected for the person to copy. */
async function copy(source, status) {
  try {
    await navigator.clipboard.writeText(source.textContent);
    status.textContent = "Copied.";
  } catch (error) {
    getSelection().selectAllChildren(source);
    status.textContent = "Selected: copy it with the browser's menu or keys.";
  }
}

// Places in the page: the address is kept for the marks.
document.addEventListener("click", (event) => {
  const link = event.target.closest('a[href^="#"]');
  if (!link)
    return;
  event.preventDefault();
  const target = at(link.getAttribute("href").slice(1));
  if (target.closest("[hidden]")) {
    say("Its clips are in another order, or filtered out.");
    return;
  }
  target.scrollIntoView();
  target.tabIndex = -1;
  target.focus({preventScroll: true});
});
