const kShown = 200;

/** A dialog in which one of many things is found by typing and taken with Enter or a click. */
export class Chooser {
  #dialog;
  #title;
  #input;
  #list;
  #choices = [];
  #found = [];
  #active = 0;
  #take = () => {};

  constructor(dialog) {
    this.#dialog = dialog;
    this.#title = dialog.querySelector("h2");
    this.#input = dialog.querySelector("input");
    this.#list = dialog.querySelector("[role=listbox]");
    this.#input.oninput = () => this.#find();
    this.#input.onkeydown = (event) => this.#onKey(event);
    this.#list.onclick = (event) => {
      const option = event.target.closest("[role=option]");
      if (option) this.#choose(this.#found[[...this.#list.children].indexOf(option)]);
    };
    dialog.onclick = (event) => event.target === dialog && dialog.close();
  }

  /**
   * @param choices {value, lead, label, note, words} each; what is already the case has `current`
   * @param take called with the value
   */
  open(title, choices, take) {
    this.#title.textContent = title;
    this.#choices = choices;
    this.#take = take;
    this.#input.value = "";
    this.#find();
    this.#dialog.showModal();
    this.#input.focus();
    this.#move(Math.max(0, this.#found.findIndex(({ current }) => current)));
  }

  #find() {
    const sought = plain(this.#input.value.trim());
    this.#found = this.#choices
      .map((choice) => ({ choice, rank: Math.min(...choice.words.map((word) => rank(plain(word), sought))) }))
      .filter(({ rank }) => rank < Infinity)
      .sort((a, b) => a.rank - b.rank)
      .slice(0, kShown)
      .map(({ choice }) => choice);
    this.#list.replaceChildren(...this.#found.map(option));
    this.#dialog.querySelector("output").textContent = this.#found.length === 0 ? "Nothing is called that" : "";
    this.#move(0);
  }

  #move(to) {
    this.#active = Math.min(Math.max(to, 0), this.#found.length - 1);
    [...this.#list.children].forEach((row, i) => row.setAttribute("aria-selected", i === this.#active));
    const active = this.#list.children[this.#active];
    this.#input.setAttribute("aria-activedescendant", active?.id ?? "");
    active?.scrollIntoView({ block: "nearest" });
  }

  #onKey(event) {
    const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: 8, PageUp: -8 };
    if (event.key in steps) this.#move(this.#active + steps[event.key]);
    else if (event.key === "Enter") this.#choose(this.#found[this.#active]);
    else return;
    event.preventDefault();
  }

  #choose(choice) {
    if (!choice) return;
    this.#dialog.close();
    this.#take(choice.value);
  }
}

function option({ lead, label, note, current }, index) {
  const row = document.createElement("li");
  row.id = `choice-${index}`;
  row.setAttribute("role", "option");
  const part = (name, text) => {
    const span = document.createElement("span");
    span.className = name;
    span.textContent = text;
    return span;
  };
  if (lead !== undefined) row.append(part("lead", lead));
  row.append(part("label", label), part("note", current ? "now" : (note ?? "")));
  return row;
}

/** Letters without their accents, so that "verz" finds what it should. */
function plain(text) {
  return text.normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();
}

/** How well a word answers what is sought: the less, the better. */
function rank(word, sought) {
  if (word === sought) return 0;
  if (word.startsWith(sought)) return 1;
  if (word.includes(` ${sought}`)) return 2;
  return word.includes(sought) ? 3 : Infinity;
}
