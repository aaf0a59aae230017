// What the simulated meter knows by number, in that order.
const kChoices = [
  { id: "language", field: "language", items: ["English", "German", "French", "Spanish", "Italian", "Russian"] },
  { id: "phase-labels", field: "phaseLabels", items: ["1, 2, 3", "A, B, C", "R, S, T"] },
  { id: "symbols", field: "symbols", items: ["IEC", "ANSI"] },
];
const kModeLines = { normal: "alt-mode 0", alternate: "alt-mode 1", test: "test-mode 1" };

/** The controls of the simulated meter; hidden when the emulator was not told where the meter is. */
export class MeterControls {
  #form;
  #answer;
  #scenario;

  constructor(form) {
    this.#form = form;
    this.#answer = form.querySelector("output");
    this.#scenario = form.querySelector("#scenario");
    this.#scenario.onchange = () => this.#ask(`scenario ${this.#scenario.value}`);
    for (const { id, items } of kChoices) {
      const select = form.querySelector(`#${id}`);
      select.replaceChildren(...items.map((item) => new Option(item)));
      select.onchange = () => this.#ask(`${id} ${select.selectedIndex}`);
    }
    for (const button of form.querySelectorAll("[data-mode]"))
      button.onclick = () => this.#ask(kModeLines[button.dataset.mode]);
    form.querySelector("#display-test").onclick = () => this.#ask("display-test");
    form.onsubmit = (event) => {
      event.preventDefault();
      this.#ask(`navigate ${form.querySelector("#screen").valueAsNumber}`);
    };
  }

  /** Follows the meter, but never moves what the user is just choosing from. */
  show({ meter, meterState }) {
    this.#form.hidden = meter === null;
    if (!meterState) return;
    const scenarios = meterState.scenarios ?? [];
    if (this.#scenario.options.length !== scenarios.length)
      this.#scenario.replaceChildren(...scenarios.map((name) => new Option(name)));
    this.#follow(this.#scenario, scenarios.indexOf(meterState.scenario));
    for (const { id, field } of kChoices) this.#follow(this.#form.querySelector(`#${id}`), meterState[field]);
    const mode = meterState.testMode ? "test" : meterState.altMode ? "alternate" : "normal";
    for (const button of this.#form.querySelectorAll("[data-mode]"))
      button.setAttribute("aria-pressed", button.dataset.mode === mode);
  }

  #follow(select, index) {
    if (select !== document.activeElement && index !== undefined) select.selectedIndex = index;
  }

  async #ask(line) {
    this.#report("…", true);
    try {
      const reply = await fetch("/meter", { method: "POST", body: line });
      const text = (await reply.text()).trim();
      this.#report(`${line}: ${text}`, reply.ok && text.startsWith("ok"));
    } catch {
      this.#report("No connection to the board", false);
    }
  }

  #report(text, taken) {
    this.#answer.textContent = text;
    this.#answer.classList.toggle("refused", !taken);
  }
}
