const kKept = 1000;
const kAtEnd = 4; // pixels from the end that still count as the end

/** The newest of a feed as rows: filtered, paused and cleared at will, and following unless the user looks back. */
export class FeedList {
  #list;
  #count;
  #input;
  #pause;
  #row;
  #matches;
  #entries = [];
  #waiting = []; // came while it was paused
  #lost = 0;

  /**
   * @param root holds the filter, the list and the count
   * @param row makes the element for an entry
   * @param matches whether an entry is wanted, given the entry and what is sought in lower case
   */
  constructor(root, row, matches) {
    this.#list = root.querySelector(".list");
    this.#count = root.querySelector(".count");
    this.#input = root.querySelector("input[type=search]");
    this.#pause = root.querySelector("[data-pause]");
    this.#row = row;
    this.#matches = matches;
    this.#input.oninput = () => this.refresh();
    this.#pause.onclick = () => this.#toggle();
    root.querySelector("[data-clear]").onclick = () => this.#clear();
  }

  add(entries, lost) {
    this.#lost += lost;
    if (this.#isPaused()) {
      this.#waiting.push(...entries);
      this.#waiting.splice(0, this.#waiting.length - kKept);
    } else {
      this.#append(entries);
    }
    this.#tell();
  }

  /** Shows what there is once more, after a change of what is wanted. */
  refresh() {
    const entries = this.#entries;
    this.#entries = [];
    this.#list.replaceChildren();
    this.#append(entries);
    this.#tell();
  }

  #append(entries) {
    const follow = this.#list.scrollHeight - this.#list.scrollTop - this.#list.clientHeight < kAtEnd;
    const sought = this.#input.value.trim().toLowerCase();
    this.#entries.push(...entries);
    this.#entries.splice(0, this.#entries.length - kKept);
    this.#list.append(...entries.filter((entry) => this.#matches(entry, sought)).map((entry) => this.#row(entry)));
    while (this.#list.children.length > kKept) this.#list.firstChild.remove();
    if (follow) this.#list.scrollTop = this.#list.scrollHeight;
  }

  #isPaused() {
    return this.#pause.getAttribute("aria-pressed") === "true";
  }

  #toggle() {
    this.#pause.setAttribute("aria-pressed", !this.#isPaused());
    if (!this.#isPaused()) this.#append(this.#waiting.splice(0));
    this.#tell();
  }

  #clear() {
    this.#entries = [];
    this.#waiting = [];
    this.#lost = 0;
    this.#list.replaceChildren();
    this.#tell();
  }

  #tell() {
    const parts = [`${this.#list.children.length} of ${this.#entries.length}`];
    if (this.#isPaused()) parts.push(`${this.#waiting.length} more since the pause`);
    if (this.#lost > 0) parts.push(`${this.#lost} lost`);
    this.#count.textContent = parts.join(", ");
  }
}
