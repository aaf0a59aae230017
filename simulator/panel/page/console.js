import { FeedList } from "./feed_list.js";

/** What display, meter and board print. */
export function makeConsole(root) {
  return new FeedList(root, row, ({ source, text }, sought) => `${source} ${text}`.toLowerCase().includes(sought));
}

function row({ source, time, text }) {
  const line = document.createElement("p");
  line.className = source;
  for (const [name, part] of [["when", new Date(time).toTimeString().slice(0, 8)], ["who", source], ["what", text]]) {
    const span = document.createElement("span");
    span.className = name;
    span.textContent = part;
    line.append(span);
  }
  return line;
}
