// Board, meter and display as ./run starts them, on the ports that they have: for a network of its own.

import { spawn } from "node:child_process";
import { once } from "node:events";
import fs from "node:fs";
import os from "node:os";
import path from "node:path";

import { eventually } from "./emulator.mjs";

export class Bench {
  #board = fs.mkdtempSync(path.join(os.tmpdir(), "bench-"));
  #processes = [];
  #bin;
  #romfs;
  address = "http://127.0.0.1:8080/";

  constructor(bin, romfs) {
    this.#bin = bin;
    this.#romfs = romfs;
  }

  /** @param meterOptions besides the control socket */
  async start(...meterOptions) {
    const control = path.join(this.#board, "meter");
    this.#run("panel-emulator", "board.txt", "--board", this.#board, "--romfs", this.#romfs, "--meter-control", control);
    this.#run("meter-simulator", "meter.log", "--control", control, ...meterOptions);
    await eventually(async () => (await this.#serves()) && fs.existsSync(control), "board and meter");
    this.#run("integratedDisplayRtp", "display.log");
    await eventually(async () => (await this.state()).lines[1] === 1, "the display to hand over");
  }

  /** Starts a recorded session, or its replay, before the board. @param options of display-session */
  async startSession(...options) {
    const control = path.join(this.#board, "meter");
    this.#run("panel-emulator", "board.txt", "--board", this.#board, "--romfs", this.#romfs, "--meter-control", control);
    await eventually(() => this.#serves(), "the board");
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

  async stop() {
    for (const process of this.#processes.splice(0).reverse()) {
      if (process.exitCode !== null) continue;
      const ended = once(process, "exit");
      process.kill("SIGTERM");
      await ended;
    }
    fs.rmSync(this.#board, { recursive: true });
  }

  /** The page is the last of the board that comes up. */
  #serves() {
    return this.state().then(
      () => true,
      () => false,
    );
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
