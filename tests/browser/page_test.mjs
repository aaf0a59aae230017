// Looks at the panel page with a browser and works its keys: node page_test.mjs BIN ROMFS CHROMIUM

import assert from "node:assert/strict";
import { after, before, test } from "node:test";

import { Bench, eventually } from "./bench.mjs";
import { launch } from "./browser.mjs";

const [bin, romfs, chromium] = process.argv.slice(2);

const bench = new Bench(bin, romfs);
let browser;
let page;

/** A page of the board that has its connection. */
async function open(options = {}) {
  const opened = await browser.newPage({ viewport: { width: 1200, height: 800 }, ...options });
  await opened.goto(bench.address);
  await eventually(() => opened.locator("#frames").textContent().then((text) => text !== "–"), "a first state");
  return opened;
}

/** A page that is told by the test, instead of the emulator, what the board does. */
async function openWithState(state) {
  const opened = await browser.newPage();
  await opened.routeWebSocket(/\/live$/, (socket) => socket.send(JSON.stringify(state)));
  await opened.goto(bench.address);
  await eventually(() => opened.locator("#frames").textContent().then((text) => text !== "–"), "a first state");
  return opened;
}

const kState = {
  frames: 12345,
  backlight: { level: 255, on: true },
  lines: [0, 1, 1],
  alarmLamp: false,
  display: true,
  meter: null,
  meterState: null,
};

before(async () => {
  browser = await launch(chromium);
  await bench.startBoard();
  page = await open();
});

after(async () => {
  await browser?.close();
  await bench.stop();
});

test("shows every pixel of the frame", async () => {
  const value = (x, y) => (x * 205 + y * 7919) & 0xffff;
  bench.writeFrame(value);
  const expected = Array.from({ length: 320 * 240 }, (_, i) => value(i % 320, Math.floor(i / 320)));
  await eventually(
    () =>
      page.evaluate((wanted) => {
        const canvas = document.getElementById("glass");
        const { data } = canvas.getContext("2d").getImageData(0, 0, 320, 240);
        const step = (byte, steps) => Math.round((byte * steps) / 255);
        return wanted.every(
          (pixel, i) =>
            ((step(data[4 * i], 31) << 11) | (step(data[4 * i + 1], 63) << 5) | step(data[4 * i + 2], 31)) === pixel,
        );
      }, expected),
    "the frame on the glass",
  );
});

test("has whole zooms, fits the window, and puts the keys under their columns", async () => {
  for (const [width, height, zoom] of [
    [360, 700, 1],
    [1200, 800, 2],
    [1600, 1100, 3],
  ]) {
    await page.setViewportSize({ width, height });
    const shown = () => page.locator("#glass").evaluate((glass) => glass.clientWidth);
    await eventually(async () => (await shown()) === 320 * zoom, `a zoom of ${zoom}`);
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), true, `${width}`);
    const glass = await page.locator("#glass").boundingBox();
    assert.equal(glass.height, 240 * zoom);
    for (let column = 0; column < 4; ++column) {
      const key = await page.locator(`[data-key=soft${column + 1}]`).boundingBox();
      const centre = key.x + key.width / 2 - glass.x;
      assert.ok(Math.abs(centre - (80 * column + 40) * zoom) <= 1, `soft key ${column + 1} at ${centre}`);
      assert.ok(key.y >= glass.y + glass.height);
    }
  }
  await page.setViewportSize({ width: 1200, height: 800 });
});

test("holds a key as long as the pointer does, wherever it goes", async () => {
  await page.locator("[data-key=soft4]").hover();
  await page.mouse.down();
  assert.deepEqual(await bench.keys(1), ["4 down"]);
  await page.mouse.move(5, 5);
  await page.mouse.up();
  assert.deepEqual(await bench.keys(1), ["4 up"]);
});

test("takes 1 to 4 and H from the keyboard, and each once while it repeats", async () => {
  for (const [key, code] of [["1", 1], ["4", 4], ["h", 5]]) {
    await page.keyboard.down(key);
    await page.keyboard.down(key);
    await page.keyboard.up(key);
    assert.deepEqual(await bench.keys(2), [`${code} down`, `${code} up`]);
  }
});

test("makes one of soft keys 2 and 3, from the keyboard and from two fingers", async () => {
  await Promise.all([page.keyboard.down("2"), page.keyboard.down("3")]);
  await page.keyboard.up("2");
  await page.keyboard.up("3");
  assert.deepEqual(await bench.keys(2), ["6 down", "6 up"]);

  const touch = await open({ hasTouch: true });
  const devtools = await touch.context().newCDPSession(touch);
  const points = [];
  for (const key of ["soft3", "soft2"]) {
    const box = await touch.locator(`[data-key=${key}]`).boundingBox();
    points.push({ x: box.x + box.width / 2, y: box.y + box.height / 2, id: points.length });
  }
  await devtools.send("Input.dispatchTouchEvent", { type: "touchStart", touchPoints: points });
  await devtools.send("Input.dispatchTouchEvent", { type: "touchEnd", touchPoints: [] });
  assert.deepEqual(await bench.keys(2), ["6 down", "6 up"]);
  await touch.close();
});

test("can be worked with Tab and Space, and lets go when it loses the focus", async () => {
  const opened = await open();
  for (let i = 0; i < 5; ++i) await opened.keyboard.press("Tab");
  assert.equal(await opened.evaluate(() => document.activeElement.getAttribute("aria-label")), "Home");
  await opened.keyboard.down("Space");
  assert.deepEqual(await bench.keys(1), ["5 down"]);
  await opened.evaluate(() => dispatchEvent(new Event("blur")));
  assert.deepEqual(await bench.keys(1), ["5 up"]);
  await opened.keyboard.up("Space");
  await opened.close();
});

test("shows lamp, light and counters, and hides a meter that it cannot reach", async () => {
  const light = (opened) =>
    opened.locator("#glass").evaluate((glass) => Number(getComputedStyle(glass).filter.match(/[\d.]+/)[0]));
  const calm = await openWithState(kState);
  assert.equal(await light(calm), 1);
  assert.equal(await calm.locator("#lamp").getAttribute("aria-label"), "Alarm lamp off");
  assert.equal(await calm.locator("#frames").textContent(), "12,345");
  assert.equal(await calm.locator("#meter-controls").isVisible(), false);

  const dim = await openWithState({ ...kState, alarmLamp: true, backlight: { level: 63, on: true } });
  const off = await openWithState({ ...kState, display: false, backlight: { level: 255, on: false } });
  assert.ok((await light(dim)) < 0.8 && (await light(dim)) > 0.3);
  assert.ok((await light(off)) < 0.2);
  assert.equal(await dim.locator("#lamp").getAttribute("aria-label"), "Alarm lamp on");
  assert.equal(await off.locator("#display").textContent(), "silent");
  for (const opened of [calm, dim, off]) await opened.close();
});

test("says that the board is gone, and comes back with it", async () => {
  await bench.endPrograms();
  await eventually(async () => (await page.locator("#offline").textContent()) !== "", "the loss to be shown");
  await bench.startBoard();
  await eventually(async () => (await page.locator("#offline").textContent()) === "", "the connection");
  await page.keyboard.press("1");
  assert.deepEqual(await bench.keys(2), ["1 down", "1 up"]);
});
