// What the bench calls things: the words of the address and of the meter's lines.

/** In the order of the meter's numbers. */
export const kLanguages = [
  { code: "en", name: "English" },
  { code: "de", name: "Deutsch" },
  { code: "fr", name: "Français" },
  { code: "es", name: "Español" },
  { code: "it", name: "Italiano" },
  { code: "ru", name: "Русский" },
];
export const kPhaseLabels = ["1, 2, 3", "A, B, C", "R, S, T"];
export const kSymbols = ["IEC", "ANSI"];

export const kModes = [
  { code: "normal", name: "Normal", line: "alt-mode 0" },
  { code: "alt", name: "Alternate", line: "alt-mode 1" },
  { code: "test", name: "Test", line: "test-mode 1" },
];

export const kFaults = [
  { code: "none", name: "None", note: "the link is sound" },
  { code: "slow", name: "Slow", note: "each answer takes a second" },
  { code: "silent", name: "Silent", note: "connected, but no answers" },
  { code: "half", name: "Half", note: "answers break off half-way" },
  { code: "garbage", name: "Garbage", note: "answers are nonsense" },
  { code: "reset", name: "Reset", note: "each call ends the connection" },
  { code: "absent", name: "Absent", note: "nobody listens" },
  { code: "late", name: "Late", note: "answers come when nobody waits any more" },
  { code: "drip", name: "Drip", note: "a byte a second" },
  { code: "cut", name: "Cut", note: "half an answer, then the connection ends" },
  { code: "flood", name: "Flood", note: "each answer comes three times" },
  { code: "infinite", name: "Infinite", note: "numbers are none, or infinite" },
  { code: "endless", name: "Endless", note: "texts have no end" },
  { code: "huge", name: "Huge", note: "counts as large as can be" },
];

export function modeOf(meterState) {
  return meterState.testMode ? "test" : meterState.altMode ? "alt" : "normal";
}

/** The faults that this meter can play. */
export function faultsOf(meterState) {
  return (meterState?.faults ?? []).map((code) => kFaults.find((fault) => fault.code === code) ?? { code, name: code, note: "" });
}
