import { askMeter } from "./meter_line.js";
import { say } from "./notices.js";

const kNoSession = "This display runs in real time and cannot be recorded. ./run --record FILE runs one that can.";

/** Records the session where one stands behind the page, and says why not where none does. */
export class Recording {
  #button;
  #place;
  #recording = null;
  #why = kNoSession;

  /** @param place tells what is recorded */
  constructor(button, place) {
    this.#button = button;
    this.#place = place;
  }

  show({ meter, meterState }) {
    if (meterState) this.#recording = meterState.recording ?? null;
    this.#why = meter === null ? "The meter is not watched: there is nothing to record."
      : meterState?.replay ? "This is a recording already; it is replayed."
      : kNoSession;
    this.#button.ariaDisabled = String(this.#recording === null);
    this.#button.ariaPressed = String(this.#recording?.running ?? false);
    this.#button.title = this.#recording ? "" : this.#why;
    this.#place.closest("div").hidden = this.#recording === null;
    if (this.#recording) this.#place.textContent = text(this.#recording);
  }

  async toggle() {
    if (!this.#recording) return say(this.#why, false);
    const { running, file } = this.#recording;
    const answer = await askMeter(running ? "record stop" : "record start");
    if (!answer.done) return say(answer.text, false);
    say(running ? `Recorded: ./run --replay ${file}` : "The display starts anew, and all of it is recorded");
  }
}

function text({ file, running, frames }) {
  return `${file}, ${frames} frames${running ? ", goes on" : ", complete"}`;
}
