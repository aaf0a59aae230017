const kTyped = "input:not([type=checkbox]), select, textarea"; // where a letter has another meaning

/** Whether a key of the keyboard is meant for the page as such, and not for a field or a dialog. */
export function isForPage(event) {
  if (event.ctrlKey || event.altKey || event.metaKey) return false;
  return !document.querySelector("dialog[open]") && !document.activeElement.matches(kTyped);
}

/** Carries out what the buttons of the bench do, by pointer and by the letter that each names. */
export function watchShortcuts(buttons, actions) {
  const byKey = new Map();
  for (const button of buttons) {
    byKey.set(button.dataset.letter, button);
    button.onclick = () => actions[button.dataset.action]();
  }
  addEventListener("keydown", (event) => {
    const button = isForPage(event) && !event.repeat && byKey.get(event.key.toLowerCase());
    if (!button || button.disabled || button.closest("[hidden]")) return;
    event.preventDefault();
    button.click();
  });
}
