import { linesFor, readAddress, wordsFor, writeAddress } from "./address.js";
import { askMeter } from "./meter_line.js";
import { say, warn } from "./notices.js";

const kRetryMilliseconds = 500;
const kRetries = 120; // the display may still be starting
const kHandOverLine = 1; // driven high when the display has built its screens

/** Brings the bench to where the address says, and lets the address follow where it goes. */
export class DeepLink {
  #screens;
  #state = null;
  #wish = 0; // counts the addresses that were asked for
  #opening = false;

  constructor(screens) {
    this.#screens = screens;
    addEventListener("hashchange", () => this.#open());
    if (location.hash) this.#open();
  }

  follow(state) {
    this.#state = state;
    if (this.#opening || state.meterState?.replay) return;
    const address = writeAddress(wordsFor(state));
    if (address && address !== location.hash) history.replaceState(null, "", address);
  }

  async #open() {
    const wish = ++this.#wish;
    const words = readAddress(location.hash);
    this.#opening = true;
    warn([]);
    say("Opening the link…");
    await this.#until(() => this.#state, wish);
    if (this.#state.meter === null) warn(["The meter is not watched: the link cannot be opened."]);
    else if (this.#state.meterState?.replay) warn(["A recording is replayed: the link cannot be opened."]);
    else await this.#bringAbout(words, wish);
    if (wish === this.#wish) this.#opening = false;
  }

  async #bringAbout(words, wish) {
    const ready = await this.#until(() => this.#state.meterState && this.#isHandedOver(), wish);
    if (wish !== this.#wish) return;
    if (!ready) return say("The display did not come up: the link was not opened", false);
    const { lines, refused } = linesFor(words, this.#state, this.#screens);
    for (const line of lines) {
      let answer = { done: false };
      const asked = async () => (answer = await askMeter(line)).done || !answer.text.includes("does not answer");
      await this.#until(asked, wish);
      if (wish !== this.#wish) return;
      if (!answer.done) refused.push(`${line}: ${answer.text}.`);
    }
    warn(refused);
    say(refused.length === 0 ? "The link is open" : "The link is open in part");
    const settled = () => ["lang", "mode", "scenario"].every((name) => !words[name] || this.#now()[name] === words[name]);
    if (refused.length === 0) await this.#until(settled, wish, 10);
  }

  #now() {
    return wordsFor(this.#state);
  }

  #isHandedOver() {
    return this.#state.display && this.#state.lines[kHandOverLine] === 1;
  }

  /** Asks again and again. @return whether it came true before patience, or another wish, ended that */
  async #until(holds, wish, retries = kRetries) {
    for (let i = 0; i < retries && wish === this.#wish; ++i) {
      if (await holds()) return true;
      await new Promise((resolve) => setTimeout(resolve, kRetryMilliseconds));
    }
    return false;
  }
}
