// Works the page before a session that is recorded, and before its replay: node session_test.mjs BIN ROMFS CHROMIUM

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import fs from "node:fs";
import os from "node:os";
import path from "node:path";
import { after, before, test } from "node:test";

import { Bench, eventually } from "./bench.mjs";
import { launch } from "./browser.mjs";

const [bin, romfs, chromium] = process.argv.slice(2);
const folder = fs.mkdtempSync(path.join(os.tmpdir(), "recording-"));
const file = path.join(folder, "kitchen.rec");
let browser;

before(async () => (browser = await launch(chromium)));

after(async () => {
  await browser?.close();
  fs.rmSync(folder, { recursive: true });
});

/** Has a page before a bench, and takes both away again. */
async function withPage(start, work) {
  const bench = new Bench(bin, romfs);
  const page = await browser.newPage();
  try {
    await start(bench);
    await page.goto(bench.address);
    await eventually(async () => (await page.locator("#frames").textContent()) !== "–", "a first state");
    await work(page, async () => (await bench.state()).meterState);
  } finally {
    await page.close();
    await bench.stop();
  }
}

async function chooseScreen(page, number) {
  await page.keyboard.press("g");
  await page.keyboard.type(number);
  await page.keyboard.press("Enter");
}

const textBecomes = (page, selector, text) =>
  eventually(async () => (await page.locator(selector).textContent()).includes(text), `${selector} to say ${text}`);

test("R stops the recording of a session, which can be replayed, and starts another", async () => {
  await withPage(
    (bench) => bench.startSession("--seed", "7", "--record", file),
    async (page, meterState) => {
      await textBecomes(page, "#recording", "kitchen.rec");
      await page.locator("[data-key=soft1]").click();
      await page.getByLabel("Event").fill("Somebody knocks");
      await page.keyboard.press("Enter");
      await eventually(async () => (await meterState()).recording.frames > 8, "frames");
      await page.locator("#event").blur();
      await page.keyboard.press("r");
      await textBecomes(page, "#notice", "./run --replay kitchen.rec");
      await textBecomes(page, "#recording", "complete");
      const { recording } = await meterState();
      const replayed = spawnSync(path.join(bin, "display-session"), ["--romfs", romfs, "--replay", file], { encoding: "utf8" });
      assert.equal(replayed.status, 0, replayed.stderr);
      assert.match(replayed.stderr, new RegExp(`${recording.frames} frames, all as recorded`));

      await chooseScreen(page, "25");
      await textBecomes(page, "#screen-now", "25 ");
      await page.keyboard.press("r");
      await textBecomes(page, "#recording", "kitchen-2.rec");
      await textBecomes(page, "#screen-now", "200 ");
      await eventually(async () => (await meterState())?.recording.running, "the other recording");
      await page.getByRole("button", { name: "Record R", pressed: true }).click();
      await textBecomes(page, "#notice", "kitchen-2.rec");
    },
  );
  assert.ok(fs.readFileSync(path.join(folder, "kitchen-2.rec"), "utf8").includes('"end":true'));
});

test("a replay pauses, goes on by one frame, and plays to its end", async () => {
  await withPage(
    (bench) => bench.startSession("--replay", file),
    async (page, meterState) => {
      assert.equal(await page.getByRole("region", { name: "Replay" }).isVisible(), true);
      assert.equal(await page.locator("#meter-controls").isVisible(), false);
      await page.keyboard.press("p");
      await eventually(async () => (await meterState()).replay.playing === false, "the pause");
      const { replay } = await meterState();
      assert.ok(replay.frame < replay.frames, "paused before the end");
      for (let step = 1; step <= 2; ++step) {
        await page.getByRole("button", { name: "Next frame" }).click();
        await eventually(async () => (await meterState()).replay.frame === replay.frame + step, `frame ${step} more`);
      }
      await textBecomes(page, "#replay output", `frame ${replay.frame + 2} of ${replay.frames}`);
      await new Promise((resolve) => setTimeout(resolve, 300));
      assert.equal((await meterState()).replay.frame, replay.frame + 2);
      await page.keyboard.press("r");
      await textBecomes(page, "#notice", "is replayed");
      await page.getByRole("tab", { name: "Link" }).click();
      await page.getByRole("button", { name: "Play" }).click();
      await eventually(async () => (await page.locator(".calls [role=option]").count()) > 0, "calls that are replayed");
      await eventually(async () => !(await meterState()), "the end of the replay");
    },
  );
});

test("says why a display that runs in real time is not recorded", async () => {
  await withPage(
    (bench) => bench.start(),
    async (page) => {
      await page.keyboard.press("r");
      await textBecomes(page, "#notice", "./run --record FILE");
      assert.equal(await page.locator("#record").getAttribute("aria-disabled"), "true");
      assert.equal(await page.locator("#recording").isVisible(), false);
    },
  );
});
