import { say } from "./notices.js";

/** Saves the panel as it is. @param words those of the address, for the file's name */
export async function savePicture(words) {
  try {
    const reply = await fetch("/frame.png");
    const link = document.createElement("a");
    link.href = URL.createObjectURL(await reply.blob());
    link.download = `${["panel", words.screen, words.lang, words.scenario].filter(Boolean).join("-")}.png`;
    link.click();
    URL.revokeObjectURL(link.href);
    say(`Saved ${link.download}`);
  } catch {
    say("No picture: no connection to the board", false);
  }
}
