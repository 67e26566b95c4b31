// The keyboard: one table of keys, shown as help and obeyed.

const byId = (id) => document.getElementById(id);

// deeds: what the page can do, by name; see app.js.
const KEYS = [
  { keys: ['1'], text: 'camera: orbit', deed: 'camera', value: 'orbit' },
  { keys: ['2'], text: 'camera: follow the ball', deed: 'camera', value: 'ball' },
  { keys: ['3'], text: 'camera: follow a player', deed: 'camera', value: 'player' },
  { keys: ['4'], text: 'camera: side line', deed: 'camera', value: 'side' },
  { keys: ['n'], text: 'next player', deed: 'player', value: 1 },
  { keys: ['p'], text: 'previous player', deed: 'player', value: -1 },
  { keys: ['m'], text: "the player's mind", deed: 'mind' },
  { keys: ['M'], text: 'all minds', deed: 'minds' },
  { keys: ['a'], text: 'turn the camera left', deed: 'turn', value: [-5, 0] },
  { keys: ['d'], text: 'turn the camera right', deed: 'turn', value: [5, 0] },
  { keys: ['w'], text: 'turn the camera up', deed: 'turn', value: [0, 3] },
  { keys: ['s'], text: 'turn the camera down', deed: 'turn', value: [0, -3] },
  { keys: ['+', '='], text: 'nearer', deed: 'zoom', value: 0.9 },
  { keys: ['-'], text: 'farther', deed: 'zoom', value: 1.1 },
  { keys: [' '], text: 'pause and play', deed: 'pause', name: 'Space' },
  { keys: [','], text: 'one cycle back', deed: 'step', value: -1 },
  { keys: ['.'], text: 'one cycle on', deed: 'step', value: 1 },
  { keys: ['ArrowLeft'], text: '2 s back', deed: 'seekBy', value: -2, name: '\u2190' },
  { keys: ['ArrowRight'], text: '2 s on', deed: 'seekBy', value: 2, name: '\u2192' },
  { keys: ['ArrowUp'], text: 'faster', deed: 'speed', value: 1, name: '\u2191' },
  { keys: ['ArrowDown'], text: 'slower', deed: 'speed', value: -1, name: '\u2193' },
  { keys: ['g'], text: 'next goal', deed: 'goal' },
  { keys: ['l'], text: 'live', deed: 'live' },
  { keys: ['h', '?'], text: 'this list', deed: 'help' },
];

// A control that has the focus keeps the keys that are its own.
function belongsTo(target, key) {
  if (target.tagName === 'INPUT') return key.startsWith('Arrow'); // the slider has no use for the space bar
  if (target.tagName === 'SELECT') return key.startsWith('Arrow') || key === ' ';
  return target.tagName === 'BUTTON' && (key === ' ' || key === 'Enter');
}

export function listenToKeys(deeds) {
  byId('help-list').replaceChildren(...KEYS.flatMap(({ keys, text, name }) => {
    const term = document.createElement('dt');
    term.textContent = name ?? keys.map((key) => (key === 'M' ? 'Shift+M' : key.toUpperCase())).join(' or ');
    const words = document.createElement('dd');
    words.textContent = text;
    return [term, words];
  }));
  document.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.altKey || event.metaKey || belongsTo(event.target, event.key)) return;
    const row = KEYS.find(({ keys }) => keys.includes(event.key));
    if (!row || byId('help').open) return;
    event.preventDefault();
    deeds[row.deed](row.value);
  });
}
