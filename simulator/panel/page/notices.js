const element = (id) => document.getElementById(id);

/** Says in the line under the front what an action led to; a screen reader speaks it. */
export function say(text, done = true) {
  element("notice").textContent = text;
  element("notice").classList.toggle("refused", !done);
}

/** Tells a screen reader what everybody else sees. */
export function announce(text) {
  element("announcer").textContent = text;
}

/** Shows what cannot be had, until it is dismissed; nothing with an empty list. */
export function warn(sentences) {
  element("warning").hidden = sentences.length === 0;
  element("warning-text").textContent = sentences.join(" ");
}

element("warning-close").onclick = () => warn([]);
