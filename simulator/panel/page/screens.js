import { kLanguages } from "./names.js";

export const kFactoryTest = -3;

/** The screens of the display by number, with their titles in every language of the panel. */
export class Screens {
  #byNumber = new Map();
  #language = 0;

  static async load() {
    const screens = new Screens();
    const { screens: list } = await (await fetch("/screens.json")).json();
    for (const screen of list) screens.#byNumber.set(screen.id, screen);
    return screens;
  }

  /** Titles are those of this language from here on, an index of the panel. */
  speak(language) {
    this.#language = kLanguages[language] ? language : 0;
  }

  has(number) {
    return this.#byNumber.has(number);
  }

  /** "68 Phasors"; the number alone for one that has no title. */
  name(number) {
    if (number === kFactoryTest) return "Key test";
    const screen = this.#byNumber.get(number);
    return screen ? `${number} ${screen.titles[this.#language]}` : String(number);
  }

  /** What can be chosen: found by number, and by title in English and in the language of the panel. */
  choices() {
    return [...this.#byNumber.values()].map(({ id, kind, titles }) => ({
      value: id,
      lead: String(id),
      label: titles[this.#language],
      note: kind,
      words: [String(id), titles[this.#language], titles[0]],
    }));
  }
}
