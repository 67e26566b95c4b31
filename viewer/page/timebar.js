// The bar of time: pause, step, speed, scrub. It shows what the viewer says about this page's place
// in the match, and asks the viewer to change it.

import { clockText } from './board.js';

const byId = (id) => document.getElementById(id);

export class Timebar {
  constructor(send) {
    this.send = send;
    this.time = { pace: 'paused', speed: 1, first: 0, last: 0, cycle: 0, finished: false };
    this.dragging = false;
    byId('pause').onclick = () => this.togglePause();
    byId('step-back').onclick = () => this.step(-1);
    byId('step').onclick = () => this.step(1);
    byId('live').onclick = () => this.send({ do: 'live' });
    byId('speed').onchange = (event) => this.send({ do: 'speed', value: Number(event.target.value) });
    const place = byId('place');
    place.oninput = () => {
      this.dragging = true;
      this.send({ do: 'seek', cycle: Number(place.value) });
    };
    place.onchange = () => { this.dragging = false; };
  }

  begin(hello) {
    this.cycleSeconds = hello.cycleSeconds;
    byId('live').hidden = !hello.live;
  }

  take(time) {
    this.time = time;
    byId('pause').textContent = time.pace === 'paused' ? 'Play' : 'Pause';
    byId('speed').value = String(time.speed);
    byId('live').setAttribute('aria-pressed', String(time.pace === 'live'));
    const place = byId('place');
    place.min = time.first;
    place.max = time.last;
    this.marks();
  }

  draw(frame) {
    const text = clockText(frame.cycle * this.cycleSeconds, 2);
    if (byId('place-text').textContent === text) return;
    byId('place-text').textContent = text;
    if (!this.dragging) byId('place').value = frame.cycle;
    byId('place').setAttribute('aria-valuetext', text);
  }

  setGoals(goals) {
    this.goals = goals;
    this.marks();
  }

  marks() {
    const { first, last } = this.time;
    byId('marks').replaceChildren(...(this.goals ?? [])
      .filter(({ cycle }) => cycle >= first && cycle <= last && last > first)
      .map(({ cycle, text }) => {
        const mark = document.createElement('i');
        mark.title = text;
        mark.style.left = `${100 * (cycle - first) / (last - first)}%`;
        return mark;
      }));
  }

  togglePause() {
    this.send({ do: this.time.pace === 'paused' ? 'play' : 'pause' });
  }

  step(by) {
    this.send({ do: 'step', by });
  }

  seekBy(seconds, cycle) {
    this.send({ do: 'seek', cycle: Math.round(cycle + seconds / this.cycleSeconds) });
  }

  // To the next one along the list.
  changeSpeed(by) {
    const select = byId('speed');
    select.selectedIndex = Math.min(Math.max(select.selectedIndex + by, 0), select.options.length - 1);
    this.send({ do: 'speed', value: Number(select.value) });
  }
}
