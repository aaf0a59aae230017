// Board, meter and display as ./run starts them, on the ports that they have: for a network of its own. What only looks
// at the board does without the other two.

import { spawn } from "node:child_process";
import { once } from "node:events";
import fs from "node:fs";
import os from "node:os";
import path from "node:path";
import { setTimeout as delay } from "node:timers/promises";

const kFrameBytes = 153600;
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

export class Bench {
  #board = fs.mkdtempSync(path.join(os.tmpdir(), "bench-"));
  #processes = [];
  #bin;
  #romfs;
  #keys;
  address = "http://127.0.0.1:8080/";

  constructor(bin, romfs) {
    this.#bin = bin;
    this.#romfs = romfs;
  }

  /** Starts the board, alone or for a meter. The page is the last of it that comes up. */
  async startBoard(...options) {
    this.#run("panel-emulator", "board.txt", "--board", this.#board, "--romfs", this.#romfs, ...options);
    const serves = () => this.state().then(() => true, () => false);
    await eventually(serves, "the board");
  }

  /** @param meterOptions besides the control socket */
  async start(...meterOptions) {
    const control = path.join(this.#board, "meter");
    this.#run("meter-simulator", "meter.log", "--control", control, ...meterOptions);
    await this.startBoard("--meter-control", control);
    await eventually(() => fs.existsSync(control), "the meter");
    this.#run("integratedDisplayRtp", "display.log");
    await eventually(async () => (await this.state()).lines[1] === 1, "the display to hand over");
  }

  /** Starts a recorded session, or its replay, before the board. @param options of display-session */
  async startSession(...options) {
    const control = path.join(this.#board, "meter");
    await this.startBoard("--meter-control", control);
    const where = ["--board", this.#board, "--control", control, "--console", path.join(this.#board, "display.log")];
    this.#run("display-session", "session.log", "--romfs", this.#romfs, ...where, ...options);
    await eventually(async () => (await this.state()).meterState, "the session");
  }

  async state() {
    return (await fetch(`${this.address}state`)).json();
  }

  /** Puts a line to the meter. @return its answer */
  async tell(line) {
    return (await fetch(`${this.address}meter`, { method: "POST", body: line })).text();
  }

  /** Ends the programs, and leaves what the board holds. */
  async endPrograms() {
    for (const process of this.#processes.splice(0).reverse()) {
      if (process.exitCode !== null) continue;
      const ended = once(process, "exit");
      process.kill("SIGTERM");
      await ended;
    }
  }

  async stop() {
    await this.endPrograms();
    if (this.#keys) fs.closeSync(this.#keys);
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

  /** In the place of the display, which opens the keys as well. */
  #readKey() {
    const { O_RDONLY, O_NONBLOCK } = fs.constants;
    this.#keys ??= fs.openSync(path.join(this.#board, "buttons"), O_RDONLY | O_NONBLOCK);
    const record = Buffer.alloc(8);
    try {
      if (fs.readSync(this.#keys, record) !== record.length) return null;
    } catch (error) {
      if (error.code === "EAGAIN") return null;
      throw error;
    }
    return `${record.readInt32LE(0)} ${record.readInt32LE(4) === 0 ? "down" : "up"}`;
  }

  #run(program, log, ...parameters) {
    const output = fs.openSync(path.join(this.#board, log), "a");
    const environment = { ...process.env, BOARD_ROOT: this.#board };
    this.#processes.push(
      spawn(path.join(this.#bin, program), parameters, { stdio: ["ignore", output, "inherit"], env: environment }),
    );
    fs.closeSync(output);
  }
}
