/** Puts one control line to the meter. @return whether it was carried out, and what the meter said */
export async function askMeter(line) {
  try {
    const reply = await fetch("/meter", { method: "POST", body: line });
    const text = (await reply.text()).trim();
    return { done: reply.ok && text.startsWith("ok"), text };
  } catch {
    return { done: false, text: "no connection to the board" };
  }
}
