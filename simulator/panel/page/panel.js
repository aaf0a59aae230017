// Puts the page together: what the board says goes to the glass and the tools, what fingers do goes to the board.

import { Chooser } from "./chooser.js";
import { makeConsole } from "./console.js";
import { DeepLink } from "./deep_link.js";
import { Glass } from "./glass.js";
import { watchKeys } from "./keys.js";
import { Live } from "./live.js";
import { MeterControls } from "./meter.js";
import { askMeter } from "./meter_line.js";
import { faultsOf, kLanguages, kModes, modeOf } from "./names.js";
import { say } from "./notices.js";
import { savePicture } from "./picture.js";
import { Recording } from "./recording.js";
import { Replay } from "./replay.js";
import { Screens } from "./screens.js";
import { watchShortcuts } from "./shortcuts.js";
import { showConnection, Status } from "./status.js";
import { watchTabs } from "./tabs.js";
import { Trace } from "./trace.js";
import { wordsFor } from "./address.js";

const element = (id) => document.getElementById(id);

const [screens, registers] = await Promise.all([Screens.load(), fetch("/registers.json").then((reply) => reply.json())]);
const glass = new Glass(element("glass"));
const status = new Status();
const link = new DeepLink(screens);
const chooser = new Chooser(element("chooser"));
const meter = new MeterControls(element("meter-controls"), registers, chooser);
const recording = new Recording(element("record"), element("recording"));
const replay = new Replay(element("replay"));
const trace = new Trace(element("tool-link"));
const consoleLines = makeConsole(element("tool-console"));
const benchButtons = document.querySelectorAll("[data-action]");
let state = null;

const live = new Live({
  frame: (bytes) => glass.show(bytes),
  state: (newest) => {
    state = newest;
    screens.speak(state.meterState?.language ?? 0);
    status.show(state, screens);
    glass.light(state.backlight);
    meter.show(state);
    recording.show(state);
    replay.show(state);
    link.follow(state);
    for (const button of benchButtons) button.disabled = "meter" in button.dataset && !hasMeter(state);
  },
  console: (lines, lost) => consoleLines.add(lines, lost),
  trace: (calls, lost) => trace.add(calls, lost),
  connected: showConnection,
});

/** Whether a meter takes lines; a replay has none. */
function hasMeter({ meter, meterState }) {
  return meter && !meterState?.replay;
}

/** Lets one of several things be chosen, and has the meter bring it about. */
function choose(title, items, lineOf, nameOf) {
  chooser.open(title, items, async (value) => {
    const { done, text } = await askMeter(lineOf(value));
    say(done ? nameOf(value) : `${nameOf(value)}: ${text}`, done);
  });
}

function chooseNamed(title, items, current, lineOf) {
  const choices = items.map(({ code, name, note }) => ({
    value: code,
    label: name,
    note,
    words: [name, code],
    current: code === current,
  }));
  const nameOf = (code) => `${title}: ${items.find((item) => item.code === code).name}`;
  choose(title, choices, lineOf, nameOf);
}

watchShortcuts(benchButtons, {
  go: () => {
    const choices = screens.choices().map((choice) => ({ ...choice, current: choice.value === state.screen }));
    choose("Go to a screen", choices, (number) => `navigate ${number}`, (number) => screens.name(number));
  },
  language: () => {
    const current = kLanguages[state.meterState.language]?.code;
    const number = (code) => kLanguages.findIndex((language) => language.code === code);
    chooseNamed("Language", kLanguages, current, (code) => `language ${number(code)}`);
  },
  mode: () =>
    chooseNamed("Mode", kModes, modeOf(state.meterState), (code) => kModes.find((mode) => mode.code === code).line),
  fault: () =>
    chooseNamed("Fault of the link", faultsOf(state.meterState), state.meterState.fault, (code) => `fault ${code}`),
  picture: () => savePicture(state ? wordsFor(state) : {}),
  record: () => recording.toggle(),
  play: () => replay.toggle(),
  step: () => replay.step(),
  keys: () => element("key-map").showModal(),
});

watchKeys(document.querySelectorAll("[data-key]"), (key, down) => live.send(`${key} ${down ? "down" : "up"}`));
watchTabs(document.querySelectorAll("[role=tab]"), (panel) => {
  if (panel === "tool-link") live.subscribe("trace");
  if (panel === "tool-console") live.subscribe("console");
});
