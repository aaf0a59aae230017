const kRetryMilliseconds = 1000;

/** The WebSocket to the board. Comes back by itself when the emulator does. */
export class Live {
  #handlers;
  #socket = null;
  #wanted = new Set();

  /** @param handlers frame(Uint8Array), state(object), console and trace(entries, lost), connected(boolean) */
  constructor(handlers) {
    this.#handlers = handlers;
    this.#open();
  }

  /** Sends a message, unless there is nobody to take it. */
  send(text) {
    if (this.#socket.readyState === WebSocket.OPEN) this.#socket.send(text);
  }

  /** Wants "console" or "trace" from here on, over every connection. */
  subscribe(feed) {
    this.#wanted.add(feed);
    this.send(`${feed} on`);
  }

  #open() {
    this.#socket = new WebSocket(`ws://${location.host}/live`);
    this.#socket.binaryType = "arraybuffer";
    this.#socket.onopen = () => {
      this.#handlers.connected(true);
      for (const feed of this.#wanted) this.send(`${feed} on`);
    };
    this.#socket.onmessage = ({ data }) => {
      if (typeof data === "string") this.#take(JSON.parse(data));
      else this.#handlers.frame(new Uint8Array(data));
    };
    this.#socket.onclose = () => {
      this.#handlers.connected(false);
      setTimeout(() => this.#open(), kRetryMilliseconds);
    };
  }

  #take(message) {
    const feed = ["console", "trace"].find((name) => name in message);
    if (feed) this.#handlers[feed](message[feed], message.lost);
    else this.#handlers.state(message);
  }
}
