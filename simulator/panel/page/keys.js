import { isForPage } from "./shortcuts.js";

/**
 * Tells which keys of the panel are held, by however many fingers: pointers on the buttons, 1 to 4 and H on the
 * keyboard, Space and Enter on the button that has the focus. A key is down from the first finger to the last.
 */
export function watchKeys(buttons, report) {
  const fingers = new Map([...buttons].map((button) => [button, new Set()]));
  const byShortcut = new Map([...buttons].map((button) => [button.dataset.shortcut, button]));

  const press = (button, finger) => {
    const held = fingers.get(button);
    if (held.has(finger)) return;
    held.add(finger);
    button.classList.add("held");
    if (held.size === 1) report(button.dataset.key, true);
  };
  const release = (button, finger) => {
    const held = fingers.get(button);
    if (!held.delete(finger) || held.size > 0) return;
    button.classList.remove("held");
    report(button.dataset.key, false);
  };
  const releaseFinger = (finger) => {
    for (const button of fingers.keys()) release(button, finger);
  };
  const releaseAll = () => {
    for (const [button, held] of fingers) for (const finger of [...held]) release(button, finger);
  };

  for (const button of buttons) {
    button.addEventListener("pointerdown", (event) => {
      if (event.pointerType === "mouse" && event.button !== 0) return;
      button.setPointerCapture(event.pointerId);
      press(button, `pointer ${event.pointerId}`);
    });
    for (const end of ["pointerup", "pointercancel", "lostpointercapture"])
      button.addEventListener(end, (event) => release(button, `pointer ${event.pointerId}`));
    button.addEventListener("contextmenu", (event) => event.preventDefault());
  }

  addEventListener("keydown", (event) => {
    const button = keyFor(event, byShortcut, fingers);
    if (!button) return;
    event.preventDefault();
    if (!event.repeat) press(button, `keyboard ${event.code}`);
  });
  // By the place of the key: with Shift pressed meanwhile it has another name.
  addEventListener("keyup", (event) => releaseFinger(`keyboard ${event.code}`));
  addEventListener("blur", releaseAll);
  document.addEventListener("visibilitychange", () => document.hidden && releaseAll());
}

/** @return the button that a keyboard event is meant for, if any */
function keyFor(event, byShortcut, fingers) {
  if (!isForPage(event)) return null;
  const focused = document.activeElement;
  if (event.key === " " || event.key === "Enter") return fingers.has(focused) ? focused : null;
  return byShortcut.get(event.key.toLowerCase()) ?? null;
}
