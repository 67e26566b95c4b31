// The connection to the viewer: opens it, opens it again when it breaks, hands on what comes.

import { decodeFrame } from './frame.js';

const FIRST_PAUSE_MS = 300;
const LONGEST_PAUSE_MS = 3000;

export class Stream {
  // handlers: hello, teams, time, events, mind, frame, lost; each gets one value.
  constructor(handlers) {
    this.handlers = handlers;
    this.pause = FIRST_PAUSE_MS;
    this.bytes = 0;
    this.open();
  }

  open() {
    this.socket = new WebSocket(`ws://${location.host}/stream`);
    this.socket.binaryType = 'arraybuffer';
    this.socket.onmessage = (message) => this.take(message.data);
    this.socket.onclose = () => {
      this.handlers.lost();
      setTimeout(() => this.open(), this.pause);
      this.pause = Math.min(this.pause * 2, LONGEST_PAUSE_MS);
    };
  }

  take(data) {
    if (data instanceof ArrayBuffer) {
      this.bytes += data.byteLength;
      // At once, not when it is drawn: a page that is busy says so by its silence.
      this.send({ do: 'got' });
      const frame = decodeFrame(data);
      if (frame) this.handlers.frame(frame);
      return;
    }
    this.bytes += data.length;
    for (const [kind, value] of Object.entries(JSON.parse(data))) {
      if (kind === 'hello') this.pause = FIRST_PAUSE_MS;
      this.handlers[kind]?.(value);
    }
  }

  send(request) {
    if (this.socket.readyState === WebSocket.OPEN) this.socket.send(JSON.stringify(request));
  }
}
