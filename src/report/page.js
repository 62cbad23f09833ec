const at = (id) => document.getElementById(id);

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
