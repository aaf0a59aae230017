// Works the page before a display and a meter that run: node bench_test.mjs BIN ROMFS CHROMIUM

import assert from "node:assert/strict";
import fs from "node:fs";
import { after, before, test } from "node:test";
import { isDeepStrictEqual } from "node:util";

import { Bench, eventually } from "./bench.mjs";
import { launch } from "./browser.mjs";

const [bin, romfs, chromium] = process.argv.slice(2);
const kSeed = "7";
const kRecovery = 60_000; // milliseconds; each call that was under way waits for its end
const kTitleRows = [27, 28]; // of the picture, where nothing runs: below the clock, above the values

const bench = new Bench(bin, romfs);
const complaints = [];
let browser;

before(async () => {
  browser = await launch(chromium);
  await bench.start("--seed", kSeed);
});

after(async () => {
  await browser?.close();
  await bench.stop();
});

/** Opens the page. Whatever it complains about, or asks of others, is kept. */
async function open(hash = "", options = {}) {
  const page = await browser.newPage({ viewport: { width: 1280, height: 800 }, ...options });
  page.on("pageerror", (error) => complaints.push(error.message));
  page.on("console", (message) => message.type() === "error" && complaints.push(message.text()));
  page.on("request", (request) => {
    const url = request.url();
    if (!url.startsWith(bench.address) && !/^(data|blob):/.test(url)) complaints.push(`asks for ${url}`);
  });
  await page.goto(bench.address + hash);
  await textBecomes(page, "#display", "running");
  return page;
}

const textBecomes = (page, selector, text) =>
  eventually(async () => (await page.locator(selector).textContent()).includes(text), `${selector} to say ${text}`);
const hashBecomes = (page, hash) =>
  eventually(() => page.url().endsWith(hash), `an address with ${hash}`).catch((error) => {
    throw new Error(`${error.message}, it is ${page.url()}`);
  });

/** The title on the glass, as its pixels. */
const titleOn = (page) =>
  page.evaluate(([top, height]) => {
    const { data } = document.getElementById("glass").getContext("2d").getImageData(0, top, 320, height);
    return data.join();
  }, kTitleRows);
const titleChanges = (page, before) => eventually(async () => (await titleOn(page)) !== before, "another title");

async function chooseByKeys(page, letter, text) {
  await page.keyboard.press(letter);
  await page.keyboard.type(text);
  await page.keyboard.press("Enter");
}

test("shows where the keys lead, pressed by mouse and by keyboard", async () => {
  const page = await open();
  await chooseByKeys(page, "g", "25");
  await textBecomes(page, "#screen-now", "25 ");
  await hashBecomes(page, `#screen=25&lang=en&mode=normal&scenario=normal&seed=${kSeed}`);
  const currents = await titleOn(page);
  await page.locator("[data-key=soft1]").click();
  await titleChanges(page, currents);
  await textBecomes(page, "#screen-now", "25 ");  // below its options
  const options = await titleOn(page);
  await page.keyboard.press("h");
  await titleChanges(page, options);
  await textBecomes(page, "#screen-now", "1 ");
  await hashBecomes(page, `#screen=1&lang=en&mode=normal&scenario=normal&seed=${kSeed}`);
  await page.close();
});

test("opens a link, and says what of it cannot be had", async () => {
  const hash = `#screen=68&lang=de&mode=alt&scenario=sag&seed=${kSeed}`;
  const page = await open(hash);
  await textBecomes(page, "#notice", "The link is open");
  await textBecomes(page, "#screen-now", "68 Zeigerdiagramm");
  await hashBecomes(page, hash);
  await eventually(async () => {
    const { meterState, screen } = await bench.state();
    const reached = [screen, meterState.language, meterState.scenario, meterState.altMode];
    return isDeepStrictEqual(reached, [68, 1, "sag", 1]);
  }, "a meter as the link says");
  assert.equal(await page.locator("#warning").isVisible(), false);
  await page.evaluate(() => (location.hash = "#screen=999&lang=xx&scenario=calm&seed=8&light=1&mode=normal"));
  for (const word of ["999", "xx", "calm", "light", "./run --seed 8"]) await textBecomes(page, "#warning-text", word);
  await hashBecomes(page, `#screen=200&lang=de&mode=normal&scenario=sag&seed=${kSeed}`);
  await page.close();
});

test("saves the picture that is on the glass", async () => {
  const page = await open("#screen=68&lang=en&scenario=normal");
  await textBecomes(page, "#screen-now", "68 Phasor");
  await hashBecomes(page, `#screen=68&lang=en&mode=normal&scenario=normal&seed=${kSeed}`);
  const same = async () => {
    const [download] = await Promise.all([page.waitForEvent("download"), page.keyboard.press("s")]);
    assert.match(download.suggestedFilename(), /^panel-68-en-normal\.png$/);
    const saved = fs.readFileSync(await download.path());
    const served = Buffer.from(await (await fetch(`${bench.address}frame.png`)).arrayBuffer());
    const shown = await page.evaluate(async (base64) => {
      const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
      const picture = await createImageBitmap(new Blob([bytes], { type: "image/png" }));
      const canvas = new OffscreenCanvas(picture.width, picture.height);
      const context = canvas.getContext("2d");
      context.drawImage(picture, 0, 0);
      const pixels = (source) => source.getImageData(0, 0, 320, 240).data.join();
      return pixels(context) === pixels(document.getElementById("glass").getContext("2d"));
    }, saved.toString("base64"));
    return shown && saved.equals(served);
  };
  await eventually(same, "a picture like the glass, between two frames");
  await page.close();
});

test("traces the calls with their fields, filtered and paused", async () => {
  const page = await open();
  await page.getByRole("tab", { name: "Link" }).click();
  await page.getByLabel("Filter calls").fill("phasor");
  const row = page.locator(".calls [role=option]").first();
  await row.click();
  assert.match(await row.textContent(), /PQINTERFACE_getPhasorData/);
  await textBecomes(page, "#call", "PQINTERFACE_getPhasorData");
  assert.ok((await page.locator("#call dt").count()) > 10, "its fields");
  await page.getByRole("button", { name: "Pause" }).click();
  const rows = await page.locator(".calls [role=option]").count();
  await textBecomes(page, "#tool-link .count", "since the pause");
  await eventually(async () => !(await page.locator("#tool-link .count").textContent()).includes(" 0 more"), "more");
  assert.equal(await page.locator(".calls [role=option]").count(), rows);
  await page.close();
});

test("shows a fault and the recovery from it", async () => {
  const page = await open();
  await page.getByRole("tab", { name: "Link" }).click();
  await chooseByKeys(page, "f", "half");
  await page.getByLabel("Failures").check();
  await eventually(() => page.locator(".calls .failed .result", { hasText: "half" }).count(), "a spoiled call");
  assert.equal((await bench.state()).meterState.fault, "half");
  await chooseByKeys(page, "f", "none");
  await page.getByLabel("Failures").uncheck();
  await page.getByRole("tabpanel", { name: "Link" }).getByRole("button", { name: "Clear" }).click();
  await eventually(() => page.locator(".calls [role=option]:not(.failed)").count(), "sound calls", kRecovery);
  const { frames } = await bench.state();
  await eventually(async () => (await bench.state()).frames > frames, "the values run again", kRecovery);
  await page.close();
});

test("lets two look on, each at all that the other does", async () => {
  const [one, other] = [await open(), await open()];
  await chooseByKeys(one, "g", "44");
  for (const page of [one, other]) await textBecomes(page, "#screen-now", "44 ");
  await other.waitForTimeout(500);
  const title = await titleOn(other);
  await chooseByKeys(other, "l", "fran");
  await titleChanges(one, title);
  await hashBecomes(one, `#screen=44&lang=fr&mode=normal&scenario=normal&seed=${kSeed}`);
  await chooseByKeys(one, "l", "English");
  await eventually(async () => (await titleOn(other)) === title, "the English title");
  await chooseByKeys(other, "m", "test");
  await titleChanges(one, title);
  for (const page of [one, other]) await hashBecomes(page, `mode=test&scenario=normal&seed=${kSeed}`);
  await eventually(async () => (await titleOn(one)) === (await titleOn(other)), "the same title");
  await chooseByKeys(one, "m", "normal");
  await one.close();
  await other.close();
});

test("shows and searches what the programs print", async () => {
  const page = await open();
  await page.getByRole("tab", { name: "Console" }).click();
  await page.getByLabel("Search the console").fill("starting display server");
  await eventually(async () => (await page.locator(".lines p").count()) === 1, "one line of the display");
  await page.getByLabel("Search the console").fill("");
  await fetch(`${bench.address}nothing`);
  await eventually(() => page.locator(".lines .board", { hasText: "404" }).count(), "the refusal");
  await page.close();
});

test("reads and writes a register, and drives the meter by lines", async () => {
  const page = await open();
  await page.getByRole("button", { name: "Find…" }).click();
  await page.keyboard.type("nominal current");
  await page.keyboard.press("Enter");
  await textBecomes(page, "#answer", "get 354: ok");
  const { screen } = await bench.state();
  await page.locator("#register-value").fill("");
  await page.keyboard.type("321");
  assert.equal(await page.locator(".held").count(), 0);
  assert.equal((await bench.state()).screen, screen, "no digit reached the panel's keys");
  await page.getByRole("button", { name: "Set", exact: true }).click();
  await textBecomes(page, "#answer", "set 354 321: ok");
  assert.match(await bench.tell("get 354"), /321/);
  await page.locator("#line").fill("no such line");
  await page.keyboard.press("Enter");
  await textBecomes(page, "#answer", "error");
  await page.locator("#line").press("ArrowUp");
  assert.equal(await page.locator("#line").inputValue(), "no such line");
  await page.close();
});

test("puts the meter into conditions by one click each", async () => {
  const page = await open();
  const meterState = async () => (await bench.state()).meterState;
  const becomes = (field, wanted) =>
    eventually(async () => JSON.stringify((await meterState())[field]) === JSON.stringify(wanted), `${field} ${wanted}`);
  const click = (name) => page.getByRole("button", { name, exact: true }).click();
  const pressed = (name, is) =>
    eventually(() => page.getByRole("button", { name, exact: true, pressed: is }).count(), `${name} pressed ${is}`);

  for (const fault of ["Slow", "Silent", "Half", "Garbage", "Reset", "None"]) {
    await page.getByRole("group", { name: "Fault of the link" }).getByRole("button", { name: fault }).click();
    await becomes("fault", fault.toLowerCase());
  }
  const { connectionId, events } = await meterState();
  await click("Restart meter");
  await eventually(async () => (await meterState()).connectionId !== connectionId, "a new life");

  await page.getByLabel("Alarm", { exact: true }).selectOption("Phase loss");
  await click("Hold on");
  await becomes("heldAlarms", ["Phase loss"]);
  await eventually(() => page.locator("#lamp[aria-label='Alarm lamp on']").count(), "the lamp", kRecovery);
  await pressed("Hold on", true);
  await click("Hold on");
  await becomes("heldAlarms", []);

  await page.getByLabel("Event").fill("Somebody knocks");
  await page.keyboard.press("Enter");
  await eventually(async () => (await meterState()).events > events, "the event");
  await click("Hardware lock");
  await becomes("hardwareLock", true);
  await pressed("Hardware lock", true);
  await click("Hardware lock");
  await becomes("hardwareLock", false);
  await click("Front-panel rights");
  await becomes("frontPanelRights", false);
  await pressed("Front-panel rights", false);
  await click("Front-panel rights");
  await becomes("frontPanelRights", true);
  await page.getByLabel("Refusal").fill("Not today");
  await click("Refuse writes");
  await becomes("refusal", "Not today");
  assert.match(await bench.tell("set 111 500"), /error Not today/);
  await pressed("Refuse writes", true);
  await click("Refuse writes");
  await becomes("refusal", null);
  await page.close();
});

test("keeps focus and keys in an open dialog, and gives the focus back", async () => {
  const page = await open();
  const { screen } = await bench.state();
  await page.getByRole("button", { name: "Keys ?" }).focus();
  await page.keyboard.press("?");
  assert.equal(await page.getByRole("dialog", { name: "Keys" }).isVisible(), true);
  for (let i = 0; i < 4; ++i) {
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => ["DIALOG", "BODY"].includes(document.activeElement.tagName) ||
      document.activeElement.closest("dialog") !== null), true);
  }
  await page.keyboard.press("1");
  assert.equal(await page.locator(".held").count(), 0);
  await page.keyboard.press("Escape");
  assert.equal(await page.evaluate(() => document.activeElement.dataset.action), "keys");
  await page.keyboard.press("g");
  await page.keyboard.type("zzz");
  await textBecomes(page, "#chooser", "Nothing is called that");
  await page.keyboard.press("Escape");
  assert.equal((await bench.state()).screen, screen, "no key reached the panel");
  await page.close();
});

test("names everything to a screen reader, on a phone as well", async () => {
  const page = await open("", { viewport: { width: 360, height: 740 }, hasTouch: true });
  const nameless = await page.evaluate(() =>
    [...document.querySelectorAll("button, input, select, [role=img], [role=listbox], dialog")]
      .filter((item) => {
        const label = item.getAttribute("aria-label") ?? item.getAttribute("aria-labelledby") ?? item.textContent.trim();
        return !label && !(item.labels?.length > 0);
      })
      .map((item) => item.outerHTML),
  );
  assert.deepEqual(nameless, []);
  assert.equal(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), true);
  await bench.tell("scenario 500-alarms");
  await eventually(() => page.locator("#lamp[aria-label='Alarm lamp on']").count(), "the lamp");
  await textBecomes(page, "#announcer", "Alarm lamp o");
  await bench.tell("scenario normal");
  await page.close();
});

test("asks nothing of other places and complains about nothing", () => {
  // A refusal that a test asked for is named by the browser as well.
  assert.deepEqual(complaints.filter((text) => !text.includes("the server responded with a status")), []);
});
