// The minds in the scene: what players believe, drawn beside what is true. Pink is believed, yellow
// is what the arena has shown.

import * as THREE from './three.module.js';
import { dispose, makeLabel } from './labels.js';

const PINK = '#ff9df0';
const YELLOW = '#ffe96b';
const HEIGHT = 0.03; // [m] above the ground
const MOST_POINTS = 64;

class Lines {
  constructor(colour, opacity) {
    this.points = new Float32Array(MOST_POINTS * 3);
    this.count = 0;
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute('position', new THREE.BufferAttribute(this.points, 3));
    this.object = new THREE.LineSegments(
      geometry, new THREE.LineBasicMaterial({ color: colour, transparent: true, opacity, depthTest: false }));
    this.object.frustumCulled = false;
  }

  begin() {
    this.count = 0;
  }

  add(a, b) {
    if (this.count + 2 > MOST_POINTS) return;
    this.points.set([...a, ...b], this.count * 3);
    this.count += 2;
  }

  end() {
    this.object.geometry.setDrawRange(0, this.count);
    this.object.geometry.attributes.position.needsUpdate = true;
  }
}

const ring = (radius) => {
  const made = new THREE.Mesh(
    new THREE.RingBufferGeometry(radius - 0.025, radius, 32),
    new THREE.MeshBasicMaterial({ color: PINK, transparent: true, opacity: 0.9, depthTest: false, side: THREE.DoubleSide }));
  made.position.z = HEIGHT;
  return made;
};

// One player's overlay.
class MindDrawing {
  constructor(name) {
    this.group = new THREE.Group();
    this.believed = new Lines(PINK, 0.9);
    this.shown = new Lines(YELLOW, 0.55);
    this.self = ring(0.25);
    this.ball = ring(0.12);
    this.selfLabel = makeLabel(name, { size: 0.34, colour: PINK });
    this.group.add(this.believed.object, this.shown.object, this.self, this.ball, this.selfLabel);
  }

  draw(mind, player, field) {
    this.believed.begin();
    this.shown.begin();
    const { self, ball, heading } = mind;
    this.self.visible = this.selfLabel.visible = Boolean(self);
    this.ball.visible = Boolean(ball);
    if (self) {
      this.self.position.set(self.x, self.y, HEIGHT);
      this.selfLabel.position.set(self.x, self.y, 0.25);
      this.believed.add([self.x, self.y, HEIGHT], [player.position[0], player.position[1], HEIGHT]);
      if (heading) {
        const a = heading.deg * Math.PI / 180;
        const tip = [self.x + 0.7 * Math.cos(a), self.y + 0.7 * Math.sin(a), HEIGHT];
        this.believed.add([self.x, self.y, HEIGHT], tip);
        for (const side of [2.6, -2.6]) {
          this.believed.add(tip, [tip[0] + 0.2 * Math.cos(a + side), tip[1] + 0.2 * Math.sin(a + side), HEIGHT]);
        }
      }
    }
    if (ball) {
      this.ball.position.set(ball.x, ball.y, HEIGHT);
      if (self) this.believed.add([self.x, self.y, HEIGHT], [ball.x, ball.y, HEIGHT]);
    }
    for (const other of mind.opponents) {
      const d = 0.15;
      this.believed.add([other.x - d, other.y - d, HEIGHT], [other.x + d, other.y + d, HEIGHT]);
      this.believed.add([other.x - d, other.y + d, HEIGHT], [other.x + d, other.y - d, HEIGHT]);
    }
    const eye = [player.position[0], player.position[1], player.position[2] + 0.155];
    field.landmarks.forEach((landmark, row) => {
      if (player.landmarks & (1 << row)) this.shown.add(eye, landmark.at);
    });
    this.believed.end();
    this.shown.end();
  }
}

export class MindsInScene {
  constructor(scene, field) {
    this.scene = scene;
    this.field = field;
    this.drawings = new Map();
  }

  // minds: Map slot -> last mind message, of those to be drawn.
  draw(minds, frame) {
    for (const [slot, drawing] of this.drawings) {
      if (minds.has(slot) && frame.players.has(slot)) continue;
      this.scene.remove(drawing.group);
      dispose(drawing.group);
      this.drawings.delete(slot);
    }
    for (const [slot, mind] of minds) {
      const player = frame.players.get(slot);
      if (!player) continue;
      let drawing = this.drawings.get(slot);
      const name = `${player.side[0].toUpperCase()}${player.number}?`;
      if (!drawing) {
        drawing = new MindDrawing(name);
        this.drawings.set(slot, drawing);
        this.scene.add(drawing.group);
      }
      drawing.draw(mind, player, this.field);
    }
  }
}
