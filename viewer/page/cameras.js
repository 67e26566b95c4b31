// Four ways to look: orbit round a point, follow the ball, follow a player, stand at the side line.
// All of them can be turned (drag, A D W S) and zoomed (wheel, + -).

import * as THREE from './three.module.js';

export const CAMERAS = ['orbit', 'ball', 'player', 'side'];

// Angles in degrees: azimuth from +x towards +y where the camera stands, seen from its target.
const STARTS = {
  orbit: { azimuth: -90, elevation: 36, distance: 17.5 },
  ball: { azimuth: -90, elevation: 25, distance: 4.5 },
  player: { azimuth: 180, elevation: 20, distance: 2.4 }, // behind it: relative to its heading
  side: { azimuth: -90, elevation: 22, distance: 11 },
};
const CALM = 0.12; // share of the way that a following camera goes in 1/60 s
const calmly = !matchMedia('(prefers-reduced-motion: reduce)').matches;

const clamp = (value, low, high) => Math.min(Math.max(value, low), high);

export class CameraRig {
  constructor(camera, canvas) {
    this.camera = camera;
    this.camera.up.set(0, 0, 1);
    this.mode = 'orbit';
    this.views = structuredClone(STARTS);
    this.target = new THREE.Vector3();
    this.heading = 0;
    this.listen(canvas);
  }

  get view() {
    return this.views[this.mode];
  }

  choose(mode) {
    this.mode = mode;
  }

  turn(azimuth, elevation) {
    this.view.azimuth += azimuth;
    this.view.elevation = clamp(this.view.elevation + elevation, 3, 89);
  }

  zoom(factor) {
    this.view.distance = clamp(this.view.distance * factor, 0.7, 45);
  }

  listen(canvas) {
    canvas.addEventListener('pointerdown', (event) => canvas.setPointerCapture(event.pointerId));
    canvas.addEventListener('pointermove', (event) => {
      if (canvas.hasPointerCapture(event.pointerId)) this.turn(-0.3 * event.movementX, 0.3 * event.movementY);
    });
    canvas.addEventListener('wheel', (event) => {
      event.preventDefault();
      this.zoom(Math.exp(0.001 * event.deltaY));
    }, { passive: false });
  }

  // ball: [x, y, z]; player: { position, heading in degrees } or null; milliseconds since the last call.
  update(ball, player, milliseconds) {
    const wanted = new THREE.Vector3();
    let turned = 0;
    if (this.mode === 'ball') {
      wanted.set(...ball);
    } else if (this.mode === 'player' && player) {
      wanted.set(player.position[0], player.position[1], 0.35);
      turned = player.heading;
    } else if (this.mode === 'side') {
      wanted.set(clamp(ball[0], -6, 6), 0, 0);
    }
    const share = calmly ? 1 - (1 - CALM) ** (milliseconds / (1000 / 60)) : 1;
    this.target.lerp(wanted, share);
    const turnBy = ((turned - this.heading + 540) % 360 + 360) % 360 - 180;
    this.heading += turnBy * share;

    const { azimuth, elevation, distance } = this.view;
    const a = (azimuth + this.heading) * Math.PI / 180;
    const e = elevation * Math.PI / 180;
    this.camera.position.set(Math.cos(a) * Math.cos(e), Math.sin(a) * Math.cos(e), Math.sin(e))
      .multiplyScalar(distance).add(this.target);
    this.camera.position.z = Math.max(this.camera.position.z, 0.08);
    this.camera.lookAt(this.target);
  }
}
