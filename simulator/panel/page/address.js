import { kLanguages, kModes, modeOf } from "./names.js";

const kWords = ["screen", "lang", "mode", "scenario", "seed"];

/** The words of an address, "#screen=68&lang=de"; `unknown` names those that mean nothing. */
export function readAddress(hash) {
  const words = { unknown: [] };
  for (const [name, value] of new URLSearchParams(hash.replace(/^#/, ""))) {
    if (kWords.includes(name)) words[name] = value;
    else words.unknown.push(name);
  }
  return words;
}

/** The words for what the bench is doing. */
export function wordsFor({ screen, meterState }) {
  const words = {};
  if (screen > 0) words.screen = String(screen);
  if (!meterState) return words;
  words.lang = kLanguages[meterState.language]?.code;
  words.mode = modeOf(meterState);
  words.scenario = meterState.scenario;
  words.seed = String(meterState.seed);
  return words;
}

/** The address with these words, in their fixed order. */
export function writeAddress(words) {
  const query = new URLSearchParams(kWords.filter((name) => words[name]).map((name) => [name, words[name]]));
  return query.size > 0 ? `#${query}` : "";
}

/**
 * What must be told to the meter for the bench to be as the words say, in the order in which it must be told.
 * @return lines, and a sentence for each word that cannot be had
 */
export function linesFor(words, { meterState }, screens) {
  const lines = [];
  const refused = words.unknown.map((name) => `The address says "${name}", which means nothing here.`);
  const now = wordsFor({ meterState });
  const wish = (name, line, why) => {
    if (words[name] === undefined || words[name] === now[name]) return;
    if (line) lines.push(line);
    else refused.push(why);
  };
  const known = (meterState.scenarios ?? []).includes(words.scenario);
  wish("scenario", known && `scenario ${words.scenario}`, `There is no scenario "${words.scenario}".`);
  const language = kLanguages.findIndex(({ code }) => code === words.lang);
  wish("lang", language >= 0 && `language ${language}`, `There is no language "${words.lang}".`);
  wish("mode", kModes.find(({ code }) => code === words.mode)?.line, `There is no mode "${words.mode}".`);
  const number = Number(words.screen);
  wish("screen", screens.has(number) && `navigate ${number}`, `There is no screen "${words.screen}".`);
  wish("seed", null, `This meter runs with seed ${now.seed}; another is given at the start: ./run --seed ${words.seed}`);
  return { lines, refused };
}
