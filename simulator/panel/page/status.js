const element = (id) => document.getElementById(id);

/** Shows what the board says about itself, beside the glass. */
export function showState(state) {
  const lamp = element("lamp");
  lamp.classList.toggle("lit", state.alarmLamp);
  lamp.setAttribute("aria-label", state.alarmLamp ? "Alarm lamp on" : "Alarm lamp off");
  show("display", state.display ? "running" : "silent", state.display);
  if (state.meter === null) show("meter", "not watched", null);
  else show("meter", state.meter ? "running" : "silent", state.meter);
  const percent = Math.round((state.backlight.level / 255) * 100);
  show("backlight", state.backlight.on ? `${percent} %` : "off", null);
  show("frames", state.frames.toLocaleString("en"), null);
}

export function showConnection(connected) {
  element("offline").textContent = connected ? "" : "No connection to the board";
}

function show(id, text, up) {
  const place = element(id);
  place.textContent = text;
  place.className = up === null ? "" : up ? "up" : "down";
}
