// What is done to the meter by hand: alarms, events, lock, rights and refusals.

const kSwitches = [
  { id: "lock", field: "hardwareLock" },
  { id: "rights", field: "frontPanelRights" },
  { id: "refuse", field: "refusal" },
];

/** The fields and switches for the meter's conditions. Offers what the meter knows, and nothing to one that knows none. */
export class Conditions {
  #root;
  #alarm;
  #held = [];

  /** @param ask puts a line to the meter and shows the answer */
  constructor(root, ask) {
    this.#root = root;
    this.#alarm = root.querySelector("#alarm");
    this.#alarm.onchange = () => this.#showHeld();
    this.#button("hold").onclick = () => ask(`alarm ${this.#isHeld() ? "off" : "on"} ${this.#alarm.value}`);
    for (const { id } of kSwitches) {
      const button = this.#button(id);
      button.onclick = () => {
        const wanted = button.ariaPressed === "true" ? "off" : "on";
        const reason = id === "refuse" && wanted === "on" ? root.querySelector("#refusal").value.trim() : "";
        ask(`${id} ${wanted} ${reason}`.trim());
      };
    }
    this.#onSubmit("#refusal-form", ({ refusal }) => ask(`refuse on ${refusal.value}`.trim()));
    this.#onSubmit("#event-form", ({ event }) => {
      ask(`event ${event.value}`);
      event.value = "";
    });
  }

  show(meterState) {
    const alarms = meterState.alarms ?? [];
    this.#root.hidden = alarms.length === 0;
    if (this.#alarm.options.length !== alarms.length) this.#alarm.replaceChildren(...alarms.map((name) => new Option(name)));
    this.#held = meterState.heldAlarms ?? [];
    this.#showHeld();
    for (const { id, field } of kSwitches)
      this.#button(id).ariaPressed = String(meterState[field] !== null && meterState[field] !== false);
    this.#root.querySelector("#refusal").placeholder = meterState.refusal ?? "the meter's own reason";
  }

  #showHeld() {
    this.#button("hold").ariaPressed = String(this.#isHeld());
  }

  #isHeld() {
    return this.#held.includes(this.#alarm.value);
  }

  #button(name) {
    return this.#root.querySelector(`[data-switch=${name}]`);
  }

  #onSubmit(form, take) {
    this.#root.querySelector(form).onsubmit = (event) => {
      event.preventDefault();
      take(event.target.elements);
    };
  }
}
