import { FeedList } from "./feed_list.js";

/** The calls between display and meter, with their fields. */
export class Trace {
  #feed;
  #list;
  #details;
  #calls = new WeakMap(); // by their rows
  #rows = 0;

  constructor(root) {
    this.#list = root.querySelector(".list");
    this.#details = root.querySelector(".details");
    const failures = root.querySelector("input[type=checkbox]");
    this.#feed = new FeedList(
      root,
      (call) => this.#row(call),
      (call, sought) => (!failures.checked || isFailure(call)) && textOf(call).includes(sought),
    );
    failures.onchange = () => this.#feed.refresh();
    this.#list.onclick = (event) => this.#select(event.target.closest("[role=option]"));
    this.#list.onkeydown = (event) => this.#onKey(event);
  }

  add(calls, lost) {
    const missing = calls.reduce((sum, call) => sum + (call.lost ?? 0), lost);
    this.#feed.add(calls.filter(({ operation }) => operation), missing);
  }

  #row(call) {
    const row = document.createElement("div");
    row.id = `call-${++this.#rows}`;
    row.setAttribute("role", "option");
    row.classList.toggle("failed", isFailure(call));
    const arrow = call.to === "display" ? "to display" : "";
    for (const [name, text] of [
      ["when", new Date(call.time).toISOString().slice(11, 23)],
      ["what", call.operation],
      ["to", arrow],
      ["bytes", `${call.bytes} B`],
      ["took", milliseconds(call.us)],
      ["result", call.result === "ok" ? "" : call.result],
    ]) {
      const span = document.createElement("span");
      span.className = name;
      span.textContent = text;
      row.append(span);
    }
    this.#calls.set(row, call);
    return row;
  }

  #onKey(event) {
    const step = { ArrowDown: "nextElementSibling", ArrowUp: "previousElementSibling" }[event.key];
    if (!step) return;
    event.preventDefault();
    const selected = this.#list.querySelector("[aria-selected=true]");
    this.#select(selected ? selected[step] : this.#list.lastElementChild);
  }

  #select(row) {
    if (!row) return;
    for (const other of this.#list.querySelectorAll("[aria-selected=true]")) other.setAttribute("aria-selected", false);
    row.setAttribute("aria-selected", true);
    row.scrollIntoView({ block: "nearest" });
    this.#list.setAttribute("aria-activedescendant", row.id);
    this.#show(this.#calls.get(row));
  }

  #show(call) {
    const title = document.createElement("h3");
    title.textContent = call.operation;
    const summary = document.createElement("p");
    summary.textContent = `call ${call.call}, ${call.bytes} bytes, ${milliseconds(call.us)}, ${call.result}`;
    this.#details.replaceChildren(title, summary, ...fields("Request", call.request), ...fields("Reply", call.reply));
    this.#details.hidden = false;
  }
}

function isFailure({ result }) {
  return result !== "ok";
}

function textOf(call) {
  return JSON.stringify([call.operation, call.result, call.request, call.reply]).toLowerCase();
}

function milliseconds(us) {
  return `${(us / 1000).toFixed(us < 10_000 ? 2 : 0)} ms`;
}

/** One line a field; what has fields itself is written as its path. */
function fields(title, record) {
  const rows = flatten(record);
  if (rows.length === 0) return [];
  const heading = document.createElement("h4");
  heading.textContent = title;
  const list = document.createElement("dl");
  for (const [name, value] of rows) {
    const term = document.createElement("dt");
    const text = document.createElement("dd");
    term.textContent = name;
    text.textContent = String(value);
    list.append(term, text);
  }
  return [heading, list];
}

function flatten(value, path = "") {
  if (value === null || value === undefined) return [];
  if (typeof value !== "object") return [[path, value]];
  const deeper = (name) => (Array.isArray(value) ? `${path}[${name}]` : path ? `${path}.${name}` : name);
  return Object.entries(value).flatMap(([name, inner]) => flatten(inner, deeper(name)));
}
