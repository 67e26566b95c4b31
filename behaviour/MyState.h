#pragma once

/// The actions that may stand on the player's stack, and whose ball it is. The numbers are printed
/// in the log, so they stay.

enum MyState : int {
  goBehindBall_state = 0,
  kickR_state = 1,
  kickL_state = 2,
  reserved3_state = 3,
  walk_state = 4,
  goToPos_state = 5,
  reserved6_state = 6,
  turnR15_state = 7,
  turnL15_state = 8,
  turnR9_state = 9,
  turnL9_state = 10,
  turnR40_state = 11,
  turnL40_state = 12,
  turnL180_state = 13,
  turnR180_state = 14,
  turnL60_state = 15,
  turnR60_state = 16,
  sideStepR_state = 17,
  sideStepL_state = 18,
  backward_state = 19,
  jumpR_state = 20,
  jumpL_state = 21,
  faceBall_state = 22,
  turnToDeg_state = 23
};

enum BallOwner : int {
  mateBall = 0,           ///< a team mate is clearly nearer than any opponent
  opponentBall = 1,       ///< an opponent is nearer
  myBall = 2,             ///< as mateBall, and this player is that mate
  freeBall = 3,           ///< nobody is within 3 m of the ball
  contestedMateBall = 4,  ///< neither clearly; the nearest of the team is another player
  contestedMyBall = 5     ///< neither clearly; the nearest of the team is this player
};

/// An entry of the stack.
struct actionStruct {
  MyState state;
  int owner;  ///< ballOwner at the moment of the push
};
