import { askMeter } from "./meter_line.js";
import { say } from "./notices.js";

/** Plays, pauses and steps the recording that stands behind the page; hidden while none does. */
export class Replay {
  #root;
  #play;
  #playing = true;

  constructor(root) {
    this.#root = root;
    this.#play = root.querySelector("[data-action=play]");
  }

  show({ meterState }) {
    const replay = meterState?.replay;
    this.#root.hidden = !replay;
    if (!replay) return;
    const { file, playing, frame, frames, seconds, length } = replay;
    this.#playing = playing;
    this.#play.firstChild.textContent = playing ? "Pause " : "Play ";
    this.#root.querySelector("#replay-file").textContent = file;
    const progress = this.#root.querySelector("progress");
    progress.max = length;
    progress.value = seconds;
    this.#root.querySelector("output").textContent =
      `frame ${frame} of ${frames}, ${seconds.toFixed(1)} of ${length.toFixed(1)} s`;
  }

  toggle() {
    return this.#ask(this.#playing ? "pause" : "play");
  }

  step() {
    return this.#ask("step");
  }

  async #ask(word) {
    const { done, text } = await askMeter(`replay ${word}`);
    if (!done) say(text, false);
  }
}
