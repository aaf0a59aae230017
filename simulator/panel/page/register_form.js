/** Reads and writes any register of the meter, found by number or by name. */
export class RegisterForm {
  #form;
  #number;
  #value;
  #registers;
  #chooser;
  #ask;

  /**
   * @param registers all that the meter has
   * @param ask puts a line to the meter and shows the answer
   */
  constructor(form, registers, chooser, ask) {
    this.#registers = registers;
    this.#form = form;
    this.#number = form.querySelector("#register");
    this.#value = form.querySelector("#register-value");
    this.#chooser = chooser;
    this.#ask = ask;
    form.onsubmit = (event) => {
      event.preventDefault();
      this.#get();
    };
    form.querySelector("#register-find").onclick = () => this.#find();
    form.querySelector("#register-set").onclick = () => this.#set();
    this.#value.onkeydown = (event) => {
      if (event.key !== "Enter") return;
      event.preventDefault();
      this.#set();
    };
  }

  #get() {
    this.#ask(`get ${this.#number.valueAsNumber}`);
  }

  #set() {
    if (this.#form.reportValidity()) this.#ask(`set ${this.#number.valueAsNumber} ${this.#value.value}`);
  }

  #find() {
    const choices = this.#registers.map(({ id, label, settable }) => ({
      value: id,
      lead: String(id),
      label,
      note: settable ? "setting" : "",
      words: [String(id), label],
    }));
    this.#chooser.open("Find a register", choices, (id) => this.#take(this.#registers.find((row) => row.id === id)));
  }

  #take({ id, items }) {
    this.#number.value = id;
    this.#value.value = "";
    this.#form.querySelector("#register-items").replaceChildren(...(items ?? []).map((item) => new Option(item)));
    this.#get();
    this.#value.focus();
  }
}
