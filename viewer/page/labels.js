// Texts in the scene: sprites that always face the camera.

import * as THREE from './three.module.js';

export const COLOURS = { left: '#9ecbff', right: '#ffb347', none: '#d0d6d2' };

// A picture of TEXT. The team shows in the shape too: left a disc, right a square.
function textureOf(text, { colour, back, shape }) {
  const canvas = document.createElement('canvas');
  canvas.width = canvas.height = 128;
  const pen = canvas.getContext('2d');
  pen.fillStyle = back;
  if (shape === 'disc') {
    pen.beginPath();
    pen.arc(64, 64, 60, 0, 2 * Math.PI);
    pen.fill();
  } else if (shape === 'square') {
    pen.fillRect(6, 6, 116, 116);
  }
  pen.fillStyle = colour;
  pen.font = `bold ${text.length > 1 ? 52 : 92}px sans-serif`;
  pen.textAlign = 'center';
  pen.textBaseline = 'middle';
  pen.fillText(text, 64, 69);
  return new THREE.CanvasTexture(canvas);
}

// SIZE in metres.
export function makeLabel(text, { size = 0.3, colour = '#fff', back = 'transparent', shape = 'none' }) {
  const map = textureOf(text, { colour, back, shape });
  const sprite = new THREE.Sprite(new THREE.SpriteMaterial({ map, depthTest: false }));
  sprite.scale.set(size, size, 1);
  return sprite;
}

export function makeNumber(player) {
  const side = player.number ? player.side : 'none';
  return makeLabel(player.number ? String(player.number) : '?', {
    size: 0.2, colour: '#0b1710', back: COLOURS[side], shape: side === 'right' ? 'square' : 'disc',
  });
}

export function dispose(object) {
  object.traverse((part) => {
    if (part.material) {
      if (part.material.map) part.material.map.dispose();
      part.material.dispose();
    }
    if (part.geometry && !part.isSprite) part.geometry.dispose();
  });
}
