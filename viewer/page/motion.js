// Between frames: what is drawn glides from the last frame but one to the last, so that the picture
// is smooth whatever the rates of stream and screen are.

// A frame further away than this wasn't reached by moving: a jump in time.
const FARTHEST_CYCLES = 40;
const SHORTEST_MS = 10;
const LONGEST_MS = 120;

export class Motion {
  constructor() {
    this.from = null;
    this.to = null;
    this.arrived = 0;
    this.interval = 20;
  }

  push(frame, now) {
    const gap = this.to ? frame.cycle - this.to.cycle : 0;
    const moved = gap > 0 && gap <= FARTHEST_CYCLES;
    if (moved) {
      const since = Math.min(Math.max(now - this.arrived, SHORTEST_MS), LONGEST_MS);
      this.interval += (since - this.interval) * 0.2;
    }
    this.from = moved ? this.to : frame;
    this.to = frame;
    this.arrived = now;
  }

  clear() {
    this.from = this.to = null;
  }

  // What to draw: { from, to, share }, or null before the first frame.
  at(now) {
    if (!this.to) return null;
    const share = this.from === this.to ? 1 : Math.min((now - this.arrived) / this.interval, 1);
    return { from: this.from, to: this.to, share: Math.max(share, 0) };
  }
}

export const mix = (a, b, share) => a + (b - a) * share;
