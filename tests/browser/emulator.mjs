// The emulator as the browser tests run it: a board of its own, keys read as the display reads them.

import { spawn } from "node:child_process";
import { once } from "node:events";
import fs from "node:fs";
import os from "node:os";
import path from "node:path";
import { createInterface } from "node:readline";
import { setTimeout as delay } from "node:timers/promises";

export const kFrameBytes = 153600;
const kPatienceMilliseconds = 30_000; // enough for a machine that others load

/** Asks until the answer is not undefined, null or false. */
export async function eventually(ask, what, patience = kPatienceMilliseconds) {
  const end = Date.now() + patience;
  while (Date.now() < end) {
    const answer = await ask();
    if (answer) return answer;
    await delay(10);
  }
  throw new Error(`in vain: ${what}`);
}

export class Emulator {
  #program;
  #process;
  #keys;
  #board = fs.mkdtempSync(path.join(os.tmpdir(), "panel-"));
  port = 0;

  constructor(program) {
    this.#program = program;
  }

  get address() {
    return `http://127.0.0.1:${this.port}/`;
  }

  /** Starts it, the second time on the same port. */
  async start() {
    const parameters = ["--board", this.#board, "--http", String(this.port)];
    this.#process = spawn(this.#program, parameters, { stdio: ["ignore", "pipe", "inherit"] });
    for await (const line of createInterface({ input: this.#process.stdout })) {
      const address = line.match(/http:\/\/127\.0\.0\.1:(\d+)\//);
      if (!address) continue;
      this.port = Number(address[1]);
      break;
    }
    const { O_RDONLY, O_NONBLOCK } = fs.constants;
    this.#keys = fs.openSync(path.join(this.#board, "buttons"), O_RDONLY | O_NONBLOCK);
  }

  async stop() {
    this.#process.kill("SIGTERM");
    await once(this.#process, "exit");
    fs.closeSync(this.#keys);
  }

  remove() {
    fs.rmSync(this.#board, { recursive: true });
  }

  /** Writes a frame; `pixel(x, y)` gives its RGB565 values. */
  writeFrame(pixel) {
    const frame = Buffer.alloc(kFrameBytes);
    for (let i = 0; i < kFrameBytes / 2; ++i) frame.writeUInt16LE(pixel(i % 320, Math.floor(i / 320)), 2 * i);
    const device = fs.openSync(path.join(this.#board, "db9000_fb"), "r+");
    fs.writeSync(device, frame, 0, frame.length, 0);
    fs.closeSync(device);
  }

  /** Waits for so many key records. @return them as text, "6 down" */
  async keys(count) {
    const records = [];
    await eventually(() => {
      for (let record = this.#readKey(); record; record = this.#readKey()) records.push(record);
      return records.length >= count;
    }, `${count} keys, there are: ${records}`);
    return records;
  }

  #readKey() {
    const record = Buffer.alloc(8);
    try {
      if (fs.readSync(this.#keys, record) !== record.length) return null;
    } catch (error) {
      if (error.code === "EAGAIN") return null;
      throw error;
    }
    return `${record.readInt32LE(0)} ${record.readInt32LE(4) === 0 ? "down" : "up"}`;
  }
}
