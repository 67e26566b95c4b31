// The field as the arena has it: ground, lines, goals, flags, and the ball.

import * as THREE from './three.module.js';
import { makeLabel } from './labels.js';

const LINE = 0.05; // [m] wide
const LINE_HEIGHT = 0.004; // [m] above the ground, so that neither hides the other
const CENTRE_CIRCLE = 1.8; // [m]
const GOAL_DEPTH = 0.6; // [m] of the net; only to look at

function addStrip(group, material, x, y, length, width) {
  const strip = new THREE.Mesh(new THREE.PlaneBufferGeometry(length, width), material);
  strip.position.set(x, y, LINE_HEIGHT);
  group.add(strip);
}

function addLines(group, field) {
  const white = new THREE.MeshBasicMaterial({ color: '#f4f7f5' });
  const { length, width } = field;
  for (const end of [-1, 1]) {
    addStrip(group, white, 0, end * width / 2, length + LINE, LINE);
    addStrip(group, white, end * length / 2, 0, LINE, width + LINE);
  }
  addStrip(group, white, 0, 0, LINE, width);
  const circle = new THREE.Mesh(
    new THREE.RingBufferGeometry(CENTRE_CIRCLE - LINE / 2, CENTRE_CIRCLE + LINE / 2, 64), white);
  circle.position.z = LINE_HEIGHT;
  group.add(circle);
  const spot = new THREE.Mesh(new THREE.CircleBufferGeometry(0.06, 16), white);
  spot.position.z = LINE_HEIGHT;
  group.add(spot);
}

function addGround(group, field) {
  const outside = new THREE.Mesh(
    new THREE.PlaneBufferGeometry(field.length + 24, field.width + 24),
    new THREE.MeshLambertMaterial({ color: '#1c4a29' }));
  outside.position.z = -0.006;
  group.add(outside);
  const stripes = 9;
  const wide = field.length / stripes;
  for (let i = 0; i < stripes; ++i) {
    const stripe = new THREE.Mesh(
      new THREE.PlaneBufferGeometry(wide, field.width),
      new THREE.MeshLambertMaterial({ color: i % 2 ? '#2d7a3f' : '#286e38' }));
    stripe.position.set(-field.length / 2 + wide * (i + 0.5), 0, 0);
    group.add(stripe);
  }
}

function addBar(group, material, from, to, radius) {
  const a = new THREE.Vector3(...from);
  const b = new THREE.Vector3(...to);
  const bar = new THREE.Mesh(
    new THREE.CylinderBufferGeometry(radius, radius, a.distanceTo(b), 10), material);
  bar.position.copy(a).add(b).multiplyScalar(0.5);
  bar.quaternion.setFromUnitVectors(new THREE.Vector3(0, 1, 0), b.sub(a).normalize());
  group.add(bar);
}

function addGoal(group, field, end, colour) {
  const r = field.postRadius;
  const x = end * (field.length / 2 + r);
  const y = field.goalWidth / 2 + r;
  const z = field.goalHeight + r;
  const post = new THREE.MeshLambertMaterial({ color: colour });
  addBar(group, post, [x, -y, 0], [x, -y, z], r);
  addBar(group, post, [x, y, 0], [x, y, z], r);
  addBar(group, post, [x, -y, z], [x, y, z], r);

  const back = x + end * GOAL_DEPTH;
  const points = [];
  const line = (a, b) => points.push(new THREE.Vector3(...a), new THREE.Vector3(...b));
  for (let i = 0; i <= 14; ++i) {
    const across = -y + 2 * y * i / 14;
    line([x, across, z], [back, across, z * 0.75]);
    line([back, across, z * 0.75], [back, across, 0]);
  }
  for (let i = 0; i <= 5; ++i) {
    const up = z * 0.75 * i / 5;
    line([back, -y, up], [back, y, up]);
    for (const edge of [-y, y]) line([x, edge, up], [back, edge, up]);
  }
  group.add(new THREE.LineSegments(
    new THREE.BufferGeometry().setFromPoints(points),
    new THREE.LineBasicMaterial({ color: '#ffffff', transparent: true, opacity: 0.35 })));
}

function addLandmarks(group, field) {
  const pole = new THREE.MeshLambertMaterial({ color: '#ffe96b' });
  for (const { name, at: [x, y, z] } of field.landmarks) {
    const isFlag = z === 0;
    if (isFlag) addBar(group, pole, [x, y, 0], [x, y, 0.6], 0.02);
    const label = makeLabel(name, { size: 0.4, colour: '#ffe96b' });
    label.position.set(x, y, isFlag ? 0.8 : z + 0.3);
    group.add(label);
  }
}

export function makeField(field) {
  const group = new THREE.Group();
  addGround(group, field);
  addLines(group, field);
  addGoal(group, field, -1, '#9ecbff');
  addGoal(group, field, 1, '#ffb347');
  addLandmarks(group, field);
  return group;
}

export function makeShadow(radius) {
  const shadow = new THREE.Mesh(
    new THREE.CircleBufferGeometry(radius, 20),
    new THREE.MeshBasicMaterial({ color: '#000', transparent: true, opacity: 0.35, depthWrite: false }));
  shadow.position.z = 2 * LINE_HEIGHT;
  return shadow;
}

export function makeBall(field) {
  return new THREE.Mesh(
    new THREE.SphereBufferGeometry(field.ballRadius, 20, 14),
    new THREE.MeshLambertMaterial({ color: '#ffffff', emissive: '#777777' }));
}

// The ball is small on a large field: a ring on the ground says where it is.
export function makeBallMark(field) {
  const mark = makeShadow(field.ballRadius * 1.2);
  mark.add(new THREE.Mesh(
    new THREE.RingBufferGeometry(0.13, 0.155, 32),
    new THREE.MeshBasicMaterial({ color: '#ffffff', transparent: true, opacity: 0.75, depthWrite: false })));
  return mark;
}
