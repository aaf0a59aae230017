const kRetryMilliseconds = 1000;

/** The WebSocket to the board. Comes back by itself when the emulator does. */
export class Live {
  #handlers;
  #socket = null;

  /** @param handlers frame(Uint8Array), state(object) and connected(boolean) */
  constructor(handlers) {
    this.#handlers = handlers;
    this.#open();
  }

  /** Sends a message, unless there is nobody to take it. */
  send(text) {
    if (this.#socket.readyState === WebSocket.OPEN) this.#socket.send(text);
  }

  #open() {
    this.#socket = new WebSocket(`ws://${location.host}/live`);
    this.#socket.binaryType = "arraybuffer";
    this.#socket.onopen = () => this.#handlers.connected(true);
    this.#socket.onmessage = ({ data }) => {
      if (typeof data === "string") this.#handlers.state(JSON.parse(data));
      else this.#handlers.frame(new Uint8Array(data));
    };
    this.#socket.onclose = () => {
      this.#handlers.connected(false);
      setTimeout(() => this.#open(), kRetryMilliseconds);
    };
  }
}
