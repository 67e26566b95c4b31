// What the numbers that a player prints about its plan stand for.

export const ACTIONS = [
  'go behind the ball', 'kick, right foot', 'kick, left foot', '(reserved)', 'walk', 'go to a place',
  '(reserved)', 'turn right 15', 'turn left 15', 'turn right 9', 'turn left 9', 'turn right 40',
  'turn left 40', 'turn left 180', 'turn right 180', 'turn left 60', 'turn right 60',
  'side step right', 'side step left', 'step back', 'dive right', 'dive left', 'face the ball',
  'turn to a heading',
];
