// Puts the page together: what the board says goes to the glass and the lamps, what fingers do goes to the board.

import { Live } from "./live.js";
import { Glass } from "./glass.js";
import { watchKeys } from "./keys.js";
import { showState, showConnection } from "./status.js";
import { MeterControls } from "./meter.js";

const glass = new Glass(document.getElementById("glass"));
const meter = new MeterControls(document.getElementById("meter-controls"));

const live = new Live({
  frame: (bytes) => glass.show(bytes),
  state: (state) => {
    showState(state);
    glass.light(state.backlight);
    meter.show(state);
  },
  connected: showConnection,
});

watchKeys(document.querySelectorAll("[data-key]"), (key, down) => live.send(`${key} ${down ? "down" : "up"}`));
