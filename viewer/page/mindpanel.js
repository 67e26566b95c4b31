// The panel about one player: believed beside true, with where each piece comes from and how old it is.

import { ACTIONS } from './actions.js';
import { headingOf, nameOf } from './frame.js';

const byId = (id) => document.getElementById(id);
// Spaces that don't break: numbers stay together.
const metres = (x, y) => `${x.toFixed(2)},\u00a0${y.toFixed(2)}`;

function element(tag, text, className) {
  const made = document.createElement(tag);
  made.textContent = text;
  if (className) made.className = className;
  return made;
}

export class MindPanel {
  constructor(cycleSeconds) {
    this.cycleSeconds = cycleSeconds;
  }

  hide() {
    byId('mind-panel').hidden = true;
  }

  // mind: the last message about the player, or undefined before the first.
  show(player, mind, frame) {
    byId('mind-panel').hidden = false;
    byId('mind-title').textContent = `Mind of ${nameOf(player)}`;
    if (!mind) return;
    const age = (told) => `${((frame.cycle - told.cycle) * this.cycleSeconds).toFixed(1)}\u00a0s\u00a0ago`;
    const [x, y] = player.position;
    const rows = [];
    rows.push(this.placeRow('own place', mind.self, [x, y], age));
    const heading = headingOf(player);
    const off = mind.heading && Math.abs(((mind.heading.deg - heading + 540) % 360 + 360) % 360 - 180);
    rows.push(['heading', mind.heading ? `${mind.heading.deg.toFixed(0)}\u00b0 (${age(mind.heading)})` : 'not known',
      `${heading.toFixed(0)}\u00b0`, mind.heading ? `${off.toFixed(0)}\u00b0` : '']);
    rows.push(this.placeRow('ball', mind.ball, frame.ball, age));
    for (const other of mind.opponents) {
      const real = [...frame.players.values()].find((one) => one.side !== player.side && one.number === other.number);
      rows.push(this.placeRow(`opponent ${other.number}`, other, real?.position, age));
    }
    byId('mind-rows').replaceChildren(...rows.map((cells) => {
      const row = document.createElement('tr');
      row.append(...cells.map((cell, i) => element('td', cell, ['', 'believed', 'true', ''][i])));
      return row;
    }));

    const shown = mind.shown.landmarks.join(' ') || 'no flag';
    const facts = [
      ['Shown', `${shown}${mind.shown.ball ? ', the ball' : ', not the ball'}`, 'shown'],
      ['Plan', mind.action ? `${mind.action.number}: ${ACTIONS[mind.action.number]} (${age(mind.action)})` : 'no line of it known', 'plan'],
      ['Prints', mind.trace.join('  \u00b7  ') || 'nothing known', 'plan'],
      ['Says', mind.words ? `${mind.words.text} (${age(mind.words)})` : 'nothing lately', 'believed'],
    ];
    byId('mind-facts').replaceChildren(...facts.flatMap(
      ([name, text, from]) => [element('dt', name, from), element('dd', text)]));
  }

  placeRow(what, told, real, age) {
    return [
      what,
      told ? `${metres(told.x, told.y)} (${age(told)})` : 'not said lately',
      real ? metres(real[0], real[1]) : '',
      told && real ? `${Math.hypot(told.x - real[0], told.y - real[1]).toFixed(2)}\u00a0m` : '',
    ];
  }
}
