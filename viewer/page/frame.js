// One cycle as it comes over the stream; viewer/server/Frame.h draws the layout.

const FRAME_KIND = 1;
const HEAD_BYTES = 24;
const PLAYER_BYTES = 64;
export const JOINTS = 22;
const BALL_SHOWN = 1 << 8;

const triple = (view, at) =>
  [view.getInt16(at, true) / 1000, view.getInt16(at + 2, true) / 1000, view.getInt16(at + 4, true) / 1000];

function decodePlayer(view, at) {
  const shirt = view.getUint8(at + 1);
  const bits = view.getUint8(at + 2);
  const shown = view.getUint16(at + 4, true);
  const attitude = [0, 1, 2, 3].map((i) => view.getInt16(at + 12 + 2 * i, true) / 32767);
  const length = Math.hypot(...attitude) || 1;
  const joints = new Float32Array(JOINTS);
  for (let i = 0; i < JOINTS; ++i) {
    joints[i] = view.getInt16(at + 20 + 2 * i, true) / 100 * Math.PI / 180;
  }
  return {
    slot: view.getUint8(at),
    side: shirt > 8 ? 'right' : 'left',
    number: shirt > 8 ? shirt - 8 : shirt, // 0: no shirt yet
    stands: (bits & 1) !== 0,
    touched: (bits & 2) !== 0,
    landmarks: shown & (BALL_SHOWN - 1), // bits, rows of the hello's list
    ballShown: (shown & BALL_SHOWN) !== 0,
    position: triple(view, at + 6), // [m] field frame
    attitude: attitude.map((part) => part / length), // w x y z
    joints, // [rad]
  };
}

// Returns null for anything that is no whole frame.
export function decodeFrame(buffer) {
  const view = new DataView(buffer);
  if (buffer.byteLength < HEAD_BYTES || view.getUint8(0) !== FRAME_KIND) return null;
  const count = view.getUint8(1);
  if (buffer.byteLength !== HEAD_BYTES + count * PLAYER_BYTES) return null;
  const players = new Map();
  for (let i = 0; i < count; ++i) {
    const player = decodePlayer(view, HEAD_BYTES + i * PLAYER_BYTES);
    players.set(player.slot, player);
  }
  return {
    mode: view.getUint8(2),
    half: view.getUint8(3),
    cycle: view.getUint32(4, true),
    clock: view.getUint32(8, true) / 100, // [s]
    score: [view.getUint8(12), view.getUint8(13)],
    ball: triple(view, 16),
    players,
  };
}

// [deg] from +x towards +y: where a torso's forward axis, its y, points.
export function headingOf(player) {
  const [w, x, y, z] = player.attitude;
  return Math.atan2(1 - 2 * (x * x + z * z), 2 * (x * y - w * z)) * 180 / Math.PI;
}

export const nameOf = (player) => (player.number ? `${player.side} ${player.number}` : `slot ${player.slot}`);
