const kWidth = 320;
const kHeight = 240;
const kMaxZoom = 4;
const kDarkest = 0.2; // of a backlight that is on at level 0
const kUnlit = 0.05; // some light of the room comes back from a dark panel

/** The screen of the panel: whole pixels, in the light of its backlight. */
export class Glass {
  #canvas;
  #context;
  #image;
  #colours = colourTable();

  constructor(canvas) {
    this.#canvas = canvas;
    this.#context = canvas.getContext("2d", { alpha: false });
    this.#image = this.#context.createImageData(kWidth, kHeight);
    this.#fit();
    addEventListener("resize", () => this.#fit());
  }

  /** Shows a frame as it is in the frame buffer: two bytes a pixel, the low one first. */
  show(bytes) {
    const pixels = new Uint32Array(this.#image.data.buffer);
    for (let i = 0; i < pixels.length; ++i) pixels[i] = this.#colours[bytes[2 * i] | (bytes[2 * i + 1] << 8)];
    this.#context.putImageData(this.#image, 0, 0);
  }

  light({ on, level }) {
    // The eye sees a quarter of the light as about half.
    const seen = kDarkest + (1 - kDarkest) * Math.sqrt(level / 255);
    this.#canvas.style.setProperty("--light", on ? seen : kUnlit);
  }

  /** Takes the largest whole zoom at which the front fits into the window. */
  #fit() {
    const root = document.documentElement;
    for (let zoom = kMaxZoom; zoom >= 1; --zoom) {
      root.style.setProperty("--zoom", zoom);
      const front = this.#canvas.closest(".front").getBoundingClientRect();
      if (front.width <= root.clientWidth - 16 && front.height <= root.clientHeight - 16) break;
    }
  }
}

/** All 65,536 pixel values as the canvas has them, so that a frame is one look-up a pixel. */
function colourTable() {
  const widen = (value, bits) => (value << (8 - bits)) | (value >> (2 * bits - 8));
  return Uint32Array.from({ length: 0x10000 }, (_, pixel) => {
    const red = widen(pixel >> 11, 5);
    const green = widen((pixel >> 5) & 0x3f, 6);
    const blue = widen(pixel & 0x1f, 5);
    return ((255 << 24) | (blue << 16) | (green << 8) | red) >>> 0;
  });
}
