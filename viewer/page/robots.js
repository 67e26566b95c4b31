// The robots: each a body of 22 joints, built from the table that makes the physics model.

import * as THREE from './three.module.js';
import { COLOURS, dispose, makeNumber } from './labels.js';
import { makeShadow } from './field.js';
import { mix } from './motion.js';

const SKIN = '#e8ebe9';
const DARK = '#3a4440';

function geometryOf(shape, [x, y, z]) {
  return shape === 'box' ? new THREE.BoxBufferGeometry(x, y, z) : new THREE.SphereBufferGeometry(x / 2, 14, 10);
}

// The shapes, one geometry each for all robots.
export function makeParts(body) {
  return {
    torso: geometryOf('box', body.torso),
    visor: new THREE.BoxBufferGeometry(0.09, 0.03, 0.03),
    links: body.links.map((link) => geometryOf(link.shape, link.extents)),
  };
}

export class Robot {
  constructor(body, parts, player) {
    this.key = keyOf(player);
    this.body = body;
    this.group = new THREE.Group();
    const shirt = new THREE.MeshLambertMaterial({ color: player.number ? COLOURS[player.side] : COLOURS.none });
    const skin = new THREE.MeshLambertMaterial({ color: SKIN });
    const dark = new THREE.MeshLambertMaterial({ color: DARK });

    this.torso = new THREE.Group();
    this.torso.add(new THREE.Mesh(parts.torso, shirt));
    this.group.add(this.torso);
    // A joint turns about its anchor; the link hangs from there.
    this.links = [];
    this.joints = body.links.map((link, row) => {
      const joint = new THREE.Group();
      joint.position.set(...link.offset).add(new THREE.Vector3(...link.anchor));
      const hung = new THREE.Group();
      hung.position.set(...link.anchor).negate();
      const material = link.shape === 'small' ? dark : /Thigh|UpperArm/.test(link.link) ? shirt : skin;
      hung.add(new THREE.Mesh(parts.links[row], material));
      joint.add(hung);
      (link.parent < 0 ? this.torso : this.links[link.parent]).add(joint);
      this.links.push(hung);
      return { group: joint, axis: new THREE.Vector3(...link.axis).normalize() };
    });
    this.head = this.links[body.links.findIndex((link) => link.link === 'Head')];
    const visor = new THREE.Mesh(parts.visor, dark);
    visor.position.set(0, 0.055, 0.012);
    this.head.add(visor);

    this.label = makeNumber(player);
    this.shadow = makeShadow(0.16);
    this.group.add(this.label, this.shadow);
    this.turn = new THREE.Quaternion();
  }

  // The pose SHARE of the way from one record of the player to the next.
  pose(from, to, share) {
    const at = to.position.map((end, i) => mix(from.position[i], end, share));
    this.torso.position.set(...at);
    const [w, x, y, z] = from.attitude;
    const [w2, x2, y2, z2] = to.attitude;
    this.torso.quaternion.set(x, y, z, w).slerp(this.turn.set(x2, y2, z2, w2), share);
    for (let i = 0; i < this.joints.length; ++i) {
      const { group, axis } = this.joints[i];
      group.quaternion.setFromAxisAngle(axis, mix(from.joints[i], to.joints[i], share));
    }
    this.label.position.set(at[0], at[1], at[2] + 0.36);
    this.shadow.position.x = at[0];
    this.shadow.position.y = at[1];
  }
}

// A player that changes its shirt gets another body.
const keyOf = (player) => `${player.slot} ${player.side} ${player.number}`;

export class Robots {
  constructor(scene, body) {
    this.scene = scene;
    this.body = body;
    this.parts = makeParts(body);
    this.bySlot = new Map();
  }

  draw({ from, to, share }) {
    for (const [slot, robot] of this.bySlot) {
      const player = to.players.get(slot);
      if (!player || keyOf(player) !== robot.key) this.remove(slot);
    }
    for (const [slot, player] of to.players) {
      let robot = this.bySlot.get(slot);
      if (!robot) {
        robot = new Robot(this.body, this.parts, player);
        this.bySlot.set(slot, robot);
        this.scene.add(robot.group);
      }
      const before = from.players.get(slot) ?? player;
      const jumped = Math.hypot(...player.position.map((part, i) => part - before.position[i])) > 0.5;
      robot.pose(jumped ? player : before, player, share);
    }
  }

  remove(slot) {
    const { group, label, shadow } = this.bySlot.get(slot);
    this.scene.remove(group);
    dispose(label);
    dispose(shadow);
    this.bySlot.delete(slot);
  }
}
