// Score, clock, play mode and events.

const byId = (id) => document.getElementById(id);

const MODE_WORDS = {
  BeforeKickOff: 'before the kick-off',
  KickOff_Left: 'kick-off for left', KickOff_Right: 'kick-off for right',
  PlayOn: 'play on',
  KickIn_Left: 'kick-in for left', KickIn_Right: 'kick-in for right',
  corner_kick_left: 'corner for left', corner_kick_right: 'corner for right',
  goal_kick_left: 'goal kick for left', goal_kick_right: 'goal kick for right',
  offside_left: 'offside, left', offside_right: 'offside, right',
  free_kick_left: 'free kick for left', free_kick_right: 'free kick for right',
  Goal_Left: 'GOAL for left', Goal_Right: 'GOAL for right',
  GameOver: 'the match is over',
};

// Only touches the page when something is new: fifty frames a second come by.
function setText(id, text) {
  const place = byId(id);
  if (place.textContent !== text) place.textContent = text;
}

export const clockText = (seconds, digits) => {
  const minutes = Math.floor(seconds / 60);
  return `${minutes}:${(seconds - 60 * minutes).toFixed(digits).padStart(3 + digits, '0')}`;
};

const MOST_SHOWN = 200;

export class Board {
  // seek(cycle) is called for an event that was chosen.
  constructor(hello, seek) {
    this.hello = hello;
    this.seek = seek;
    this.events = [];
    this.shown = -1;
    byId('event-list').replaceChildren();
  }

  setTeams([left, right]) {
    setText('left-name', left || 'left');
    setText('right-name', right || 'right');
  }

  draw(frame) {
    setText('left-goals', String(frame.score[0]));
    setText('right-goals', String(frame.score[1]));
    setText('clock', clockText(frame.clock, 1));
    setText('half', frame.half === 2 ? '2nd half' : '1st half');
    const mode = this.hello.modes[frame.mode] ?? '';
    setText('mode', MODE_WORDS[mode] ?? mode);
    this.drawEvents(frame.cycle);
  }

  addEvents(rows) {
    for (const [cycle, text] of rows) this.events.push({ cycle, text, goal: /^goal for /.test(text) });
    this.shown = -1;
  }

  goals() {
    return this.events.filter((event) => event.goal);
  }

  // Those that have happened by CYCLE, the latest first.
  drawEvents(cycle) {
    let count = this.events.length;
    while (count > 0 && this.events[count - 1].cycle > cycle) --count;
    if (count === this.shown) return;
    this.shown = count;
    const rows = this.events.slice(Math.max(0, count - MOST_SHOWN), count).reverse().map((event) => {
      const row = document.createElement('li');
      const button = document.createElement('button');
      const time = document.createElement('time');
      time.textContent = clockText(event.cycle * this.hello.cycleSeconds, 1);
      button.append(time, event.text);
      button.classList.toggle('goal', event.goal);
      button.onclick = () => this.seek(event.cycle);
      row.append(button);
      return row;
    });
    byId('event-list').replaceChildren(...rows);
  }
}
