// The page put together: stream in, picture out.

import * as THREE from './three.module.js';
import { Board } from './board.js';
import { CAMERAS, CameraRig } from './cameras.js';
import { makeBall, makeBallMark, makeField } from './field.js';
import { headingOf, nameOf } from './frame.js';
import { listenToKeys } from './keys.js';
import { MindPanel } from './mindpanel.js';
import { MindsInScene } from './minds.js';
import { mix, Motion } from './motion.js';
import { Robots } from './robots.js';
import { Stream } from './stream.js';
import { Timebar } from './timebar.js';

const byId = (id) => document.getElementById(id);

// A picture that takes longer than this to appear is drawn coarser from then on.
const SLOW_MS = 45;
const LEAST_RATIO = 0.5;

class App {
  constructor(show) {
    this.showNotice = show;
    const canvas = byId('scene');
    this.renderer = new THREE.WebGLRenderer({ canvas, antialias: true });
    this.renderer.setClearColor('#0f2a3a');
    this.ratio = Math.min(devicePixelRatio, 2);
    this.camera = new THREE.PerspectiveCamera(42, 1, 0.05, 120);
    this.rig = new CameraRig(this.camera, canvas);
    this.motion = new Motion();
    this.minds = new Map();
    this.watched = 'none'; // whose minds: 'none', 'one', 'all'
    this.slot = null; // the chosen player
    this.lastDraw = performance.now();
    this.slowness = 0;
    this.state = { frames: 0, drawn: 0, robots: 0, cycle: -1, connections: 0, ball: [0, 0, 0] };

    this.stream = new Stream({
      hello: (hello) => this.begin(hello),
      teams: (names) => this.board.setTeams(names),
      time: (time) => this.timebar.take(time),
      events: (rows) => {
        this.board.addEvents(rows);
        this.timebar.setGoals(this.board.goals());
      },
      mind: (mind) => this.minds.set(mind.slot, mind),
      frame: (frame) => this.take(frame),
      lost: () => show('The connection is lost. This page tries to open it again; the match may be over.'),
    });
    this.timebar = new Timebar((request) => this.stream.send(request));
    this.bindControls();
    addEventListener('resize', () => this.fit());
    this.fit();
    requestAnimationFrame((now) => this.draw(now));
  }

  // A new connection: everything anew, it may be another match.
  begin(hello) {
    byId('notice').hidden = true;
    this.hello = hello;
    this.state.connections += 1;
    this.motion.clear();
    this.minds.clear();
    this.scene = new THREE.Scene();
    this.scene.add(new THREE.HemisphereLight('#ffffff', '#47604e', 0.75));
    const sun = new THREE.DirectionalLight('#ffffff', 0.55);
    sun.position.set(-4, -8, 12);
    this.scene.add(sun);
    this.scene.add(makeField(hello.field));
    this.ball = makeBall(hello.field);
    this.ballMark = makeBallMark(hello.field);
    this.scene.add(this.ball, this.ballMark);
    this.robots = new Robots(this.scene, hello.body);
    this.mindsInScene = new MindsInScene(this.scene, hello.field);
    this.panel = new MindPanel(hello.cycleSeconds);
    this.board = new Board(hello, (cycle) => this.stream.send({ do: 'seek', cycle }));
    this.timebar.begin(hello);
    this.players = '';
    this.askForMinds();
  }

  take(frame) {
    this.state.frames += 1;
    this.motion.push(frame, performance.now());
    const players = [...frame.players.values()].map((one) => `${one.slot}:${nameOf(one)}`).join();
    if (players !== this.players) {
      this.players = players;
      this.listPlayers(frame);
    }
  }

  listPlayers(frame) {
    const select = byId('player');
    const order = [...frame.players.values()].sort(
      (a, b) => a.side.localeCompare(b.side) || a.number - b.number || a.slot - b.slot);
    select.replaceChildren(...order.map((player) => new Option(nameOf(player), player.slot)));
    if (!frame.players.has(this.slot)) this.slot = order.length ? order[0].slot : null;
    if (this.slot !== null) select.value = this.slot;
    this.askForMinds();
  }

  draw(now) {
    requestAnimationFrame((next) => this.draw(next));
    const since = now - this.lastDraw;
    this.lastDraw = now;
    const moment = this.motion.at(performance.now());
    if (!moment || !this.hello) return;
    this.adapt(since);
    const { from, to, share } = moment;
    const ball = to.ball.map((end, i) => mix(from.ball[i], end, share));
    this.ball.position.set(...ball);
    this.ballMark.position.x = ball[0];
    this.ballMark.position.y = ball[1];
    this.robots.draw(moment);
    this.board.draw(to);
    this.timebar.draw(to);
    this.drawMinds(to);
    const player = to.players.get(this.slot);
    this.rig.update(ball, player ? { position: player.position, heading: headingOf(player) } : null, Math.min(since, 200));
    this.renderer.render(this.scene, this.camera);
    this.note(to, ball);
  }

  drawMinds(frame) {
    const wanted = new Map();
    for (const slot of this.watchedSlots(frame)) {
      if (this.minds.has(slot)) wanted.set(slot, this.minds.get(slot));
    }
    this.mindsInScene.draw(wanted, frame);
    const player = frame.players.get(this.slot);
    if (this.watched === 'none' || !player) this.panel.hide();
    else this.panel.show(player, this.minds.get(this.slot), frame);
  }

  watchedSlots(frame) {
    if (this.watched === 'all') return [...frame.players.keys()];
    return this.watched === 'one' && this.slot !== null ? [this.slot] : [];
  }

  askForMinds() {
    const frame = this.motion.to;
    this.stream.send({ do: 'minds', slots: frame ? this.watchedSlots(frame) : [] });
  }

  // Coarser when the machine can't keep up; it stays so, since going back would flicker.
  adapt(since) {
    this.slowness = since > SLOW_MS && since < 1000 ? this.slowness + 1 : Math.max(0, this.slowness - 1);
    if (this.slowness < 30 || this.ratio <= LEAST_RATIO) return;
    this.slowness = 0;
    this.ratio = Math.max(LEAST_RATIO, this.ratio * 0.7);
    this.fit();
  }

  fit() {
    this.renderer.setPixelRatio(this.ratio);
    this.renderer.setSize(innerWidth, innerHeight, false);
    this.camera.aspect = innerWidth / innerHeight;
    this.camera.updateProjectionMatrix();
  }

  // For the console and for tests: what is on the screen.
  note(frame, ball) {
    Object.assign(this.state, {
      drawn: this.state.drawn + 1, robots: this.robots.bySlot.size, cycle: frame.cycle, ball,
      camera: this.rig.mode, eye: this.camera.position.toArray(), pace: this.timebar.time.pace, bytes: this.stream.bytes,
      mindsDrawn: this.mindsInScene.drawings.size, ratio: this.ratio,
    });
  }

  bindControls() {
    const deeds = {
      camera: (mode) => {
        this.rig.choose(mode);
        for (const button of document.querySelectorAll('[data-camera]')) {
          button.setAttribute('aria-pressed', String(button.dataset.camera === mode));
        }
      },
      player: (by) => {
        const select = byId('player');
        if (!select.options.length) return;
        select.selectedIndex = (select.selectedIndex + by + select.options.length) % select.options.length;
        this.choosePlayer(Number(select.value));
      },
      mind: () => this.watch(this.watched === 'one' ? 'none' : 'one'),
      minds: () => this.watch(this.watched === 'all' ? 'none' : 'all'),
      turn: ([azimuth, elevation]) => this.rig.turn(azimuth, elevation),
      zoom: (factor) => this.rig.zoom(factor),
      pause: () => this.timebar.togglePause(),
      step: (by) => this.timebar.step(by),
      seekBy: (seconds) => this.timebar.seekBy(seconds, this.state.cycle),
      speed: (by) => this.timebar.changeSpeed(by),
      goal: () => this.seekGoal(),
      live: () => this.stream.send({ do: 'live' }),
      help: () => byId('help').showModal(),
    };
    for (const mode of CAMERAS) {
      document.querySelector(`[data-camera=${mode}]`).onclick = () => deeds.camera(mode);
    }
    byId('player').onchange = (event) => this.choosePlayer(Number(event.target.value));
    byId('mind').onclick = deeds.mind;
    byId('minds').onclick = deeds.minds;
    byId('goal').onclick = deeds.goal;
    byId('help-button').onclick = deeds.help;
    byId('help-close').onclick = () => byId('help').close();
    deeds.camera('orbit');
    listenToKeys(deeds);
  }

  choosePlayer(slot) {
    this.slot = slot;
    byId('player').value = slot;
    this.askForMinds();
  }

  watch(whom) {
    this.watched = whom;
    byId('mind').setAttribute('aria-pressed', String(whom === 'one'));
    byId('minds').setAttribute('aria-pressed', String(whom === 'all'));
    this.askForMinds();
  }

  // A second before it, so that it is seen to come; past the last one begins again.
  seekGoal() {
    const lead = Math.round(1 / this.hello.cycleSeconds);
    const goals = this.board.goals();
    const next = goals.find((goal) => goal.cycle - lead > this.state.cycle) ?? goals[0];
    if (next) this.stream.send({ do: 'seek', cycle: next.cycle - lead });
  }
}

export function start(show) {
  window.pitch = new App(show);
}
