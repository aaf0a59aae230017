import { announce } from "./notices.js";

const kRateMilliseconds = 1000;
const element = (id) => document.getElementById(id);

/** Shows what the board says about itself, beside the glass. */
export class Status {
  #lampLit = null;
  #count = { frames: 0, since: 0, text: "" };

  /** @param screens names them */
  show(state, screens) {
    this.#showLamp(state.alarmLamp);
    show("display", state.display ? "running" : "silent", state.display);
    if (state.meter === null) show("meter", "not watched", null);
    else if (state.meterState?.replay) show("meter", "replayed", null);
    else show("meter", state.meter ? "running" : "silent", state.meter);
    const percent = Math.round((state.backlight.level / 255) * 100);
    show("backlight", state.backlight.on ? `${percent} %` : "off", null);
    show("frames", state.frames.toLocaleString("en"), null);
    element("rate").textContent = this.#rate(state.frames);
    state.lines.forEach((high, line) => {
      const place = element(`line-${line}`);
      place.classList.toggle("high", high === 1);
      place.setAttribute("aria-label", `line ${line} ${high === 1 ? "high" : "low"}`);
    });
    show("screen-now", screenText(state.screen, screens), null);
  }

  #showLamp(lit) {
    const lamp = element("lamp");
    lamp.classList.toggle("lit", lit);
    lamp.setAttribute("aria-label", lit ? "Alarm lamp on" : "Alarm lamp off");
    if (this.#lampLit !== null && this.#lampLit !== lit) announce(lamp.getAttribute("aria-label"));
    this.#lampLit = lit;
  }

  #rate(frames) {
    const now = performance.now();
    const passed = now - this.#count.since;
    if (passed < kRateMilliseconds) return this.#count.text;
    const text = this.#count.since > 0 ? `${(((frames - this.#count.frames) * 1000) / passed).toFixed(1)} a second` : "";
    this.#count = { frames, since: now, text };
    return text;
  }
}

function screenText(screen, screens) {
  return screen === null ? "unknown" : screens.name(screen);
}

export function showConnection(connected) {
  element("offline").textContent = connected ? "" : "No connection to the board";
}

function show(id, text, up) {
  const place = element(id);
  if (place.textContent !== text) place.textContent = text;
  place.className = up === null ? "" : up ? "up" : "down";
}
