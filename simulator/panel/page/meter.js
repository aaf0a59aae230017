import { faultsOf, kLanguages, kModes, kPhaseLabels, kSymbols, modeOf } from "./names.js";
import { Conditions } from "./conditions.js";
import { askMeter } from "./meter_line.js";
import { RegisterForm } from "./register_form.js";

// What the meter knows by number, in that order.
const kChoices = [
  { id: "language", field: "language", items: kLanguages.map(({ name }) => name) },
  { id: "phase-labels", field: "phaseLabels", items: kPhaseLabels },
  { id: "symbols", field: "symbols", items: kSymbols },
];
const kValues = [
  { field: "frequency", name: "Frequency", unit: "Hz", decimals: 3 },
  { field: "lineVoltage", name: "Line voltage", unit: "V", decimals: 1 },
  { field: "current", name: "Current", unit: "A", decimals: 1 },
  { field: "activePower", name: "Active power", unit: "kW", decimals: 2, scale: 1000 },
  { field: "reactivePower", name: "Reactive power", unit: "kvar", decimals: 2, scale: 1000 },
  { field: "powerFactor", name: "Power factor", unit: "", decimals: 3 },
];
const kHistory = 50;

/** The controls of the simulated meter; hidden when the emulator was not told where the meter is. */
export class MeterControls {
  #root;
  #answer;
  #scenario;
  #conditions;

  constructor(root, registers, chooser) {
    this.#root = root;
    this.#answer = this.#find("#answer");
    this.#scenario = this.#find("#scenario");
    this.#scenario.onchange = () => this.#ask(`scenario ${this.#scenario.value}`);
    for (const { id, items } of kChoices) {
      const select = this.#find(`#${id}`);
      select.replaceChildren(...items.map((item) => new Option(item)));
      select.onchange = () => this.#ask(`${id} ${select.selectedIndex}`);
    }
    this.#offer("#modes", kModes);
    root.addEventListener("click", ({ target }) => target.dataset.line && this.#ask(target.dataset.line));
    new RegisterForm(this.#find("#register-form"), registers, chooser, (line) => this.#ask(line));
    this.#conditions = new Conditions(this.#find("#conditions"), (line) => this.#ask(line));
    this.#watchLine();
  }

  /** Follows the meter, but never moves what the user is just choosing from. */
  show({ meter, meterState }) {
    this.#root.hidden = meter === null || Boolean(meterState?.replay);
    document.getElementById("meter-absent").hidden = meter !== null;
    document.getElementById("meter-replayed").hidden = !meterState?.replay;
    if (!meterState || meterState.replay) return;
    const scenarios = meterState.scenarios ?? [];
    if (this.#scenario.options.length !== scenarios.length)
      this.#scenario.replaceChildren(...scenarios.map((name) => new Option(name)));
    this.#follow(this.#scenario, scenarios.indexOf(meterState.scenario));
    for (const { id, field } of kChoices) this.#follow(this.#find(`#${id}`), meterState[field]);
    this.#offer("#faults", faultsOf(meterState).map((fault) => ({ ...fault, line: `fault ${fault.code}` })));
    this.#press("#faults", `fault ${meterState.fault}`);
    this.#press("#modes", kModes.find(({ code }) => code === modeOf(meterState)).line);
    this.#conditions.show(meterState);
    this.#showValues(meterState);
  }

  #find(selector) {
    return this.#root.querySelector(selector);
  }

  #follow(select, index) {
    if (select !== document.activeElement && index !== undefined) select.selectedIndex = index;
  }

  /** One button a line, unless they are there already. */
  #offer(group, items) {
    const place = this.#find(group);
    if (place.children.length === items.length) return;
    place.replaceChildren(
      ...items.map(({ name, line, note }) => {
        const button = document.createElement("button");
        Object.assign(button, { type: "button", textContent: name, title: note ?? "" });
        button.dataset.line = line;
        return button;
      }),
    );
  }

  #press(group, line) {
    for (const button of this.#find(group).children) button.setAttribute("aria-pressed", button.dataset.line === line);
  }

  #showValues({ values, time, activeAlarms, events }) {
    if (!values) return;
    const rows = kValues.map(({ field, name, unit, decimals, scale }) => {
      const value = values[field] / (scale ?? 1);
      return [name, Number.isFinite(value) ? `${value.toFixed(decimals)} ${unit}` : "---"];
    });
    rows.push(["Alarms, events", `${activeAlarms}, ${events}`], ["Meter's time", time]);
    this.#find("#values").replaceChildren(
      ...rows.flatMap(([name, text]) => [["dt", name], ["dd", text]]).map(([tag, text]) => {
        const part = document.createElement(tag);
        part.textContent = text;
        return part;
      }),
    );
  }

  /** Any line; the arrow keys bring earlier ones back. */
  #watchLine() {
    const input = this.#find("#line");
    const history = [];
    let at = 0;
    this.#find("#line-form").onsubmit = (event) => {
      event.preventDefault();
      history.push(input.value);
      if (history.length > kHistory) history.shift();
      at = history.length;
      this.#ask(input.value);
      input.value = "";
    };
    input.onkeydown = (event) => {
      const step = { ArrowUp: -1, ArrowDown: 1 }[event.key];
      if (!step) return;
      event.preventDefault();
      at = Math.min(Math.max(at + step, 0), history.length);
      input.value = history[at] ?? "";
    };
  }

  async #ask(line) {
    this.#report("…", true);
    const { done, text } = await askMeter(line);
    this.#report(`${line}: ${text}`, done);
  }

  #report(text, taken) {
    this.#answer.textContent = text;
    this.#answer.classList.toggle("refused", !taken);
  }
}
