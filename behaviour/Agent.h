#pragma once

/// The player: BasicAgent with the layer that decides on top. The run loop calls agentLoop once
/// per server message. Decisions only push actions on a stack; doAction takes the top one off and
/// runs it, one a cycle. A long action puts itself back before it runs and takes itself off at its
/// goal. Each group of operations has a source file of its own.
///
/// | members                          | written by                                       |
/// |----------------------------------|--------------------------------------------------|
/// | lastPlayMode                     | agentLoop                                        |
/// | ballOwner, closest*              | whoseBall                                        |
/// | walkDest, ownWalkDest            | setwalkDest, followBall                          |
/// | turnDest, sideStepDest           | whoever pushes the action that reads them        |
/// | actionStack                      | pushActionToStack, doAction, actions at the goal |
/// | walkdestAccuracy                 | kickHandler, goalHandler                         |
/// | shallWalk, isWalking             | the walk and what starts or stops it             |

#include <deque>
#include <memory>
#include <stack>
#include <string>

#include "behaviour/MyState.h"
#include "body/BasicAgent.h"

class Agent : public BasicAgent {
 public:
  std::string lastPlayMode;        ///< play mode of the cycle before; empty at the start
  int ballOwner = mateBall;        ///< a BallOwner
  double closestMateDist = 0;      ///< [m] nearest team mate's reported distance to the ball
  double closestOpponentDist = 0;  ///< [m] nearest recently seen opponent's distance to the ball
  int closestMateIndex = 0;        ///< shirt number - 1, or -1
  int closestOpponentIndex = 0;    ///< into vision.players, or -1
  /// [m] where goToPos goes: the world model's ballPos, so that it moves with the ball, or
  /// ownWalkDest.
  VecPosition* walkDest;
  double turnDest = 0;      ///< [deg] target of turnToDeg
  double sideStepDest = 0;  ///< [m] length of the side step asked for
  std::stack<actionStruct, std::deque<actionStruct>> actionStack;  ///< each state at most once
  double walkdestAccuracy;                   ///< [m] 0.4 far from the ball, 0.12 near it
  bool shallWalk = false;                    ///< the walk is wanted
  bool isWalking = false;                    ///< a chain of walk scripts is under way
  std::unique_ptr<VecPosition> ownWalkDest;  ///< [m] a destination of the player's own

  Agent();

  static Agent* m_Instance;
  static Agent* getSingleton();
  static void freeSingleton();

  // --- Agent.cpp: the cycle
  void agentLoop();
  /// Abandons everything: upright, no script open, no kick, an empty stack.
  void restoreState();

  // --- ActionStack.cpp
  /// Asks for an action. One that stands in the stack keeps its place; only a walk moves to the
  /// top, and a walk on top gives way to any other action.
  void pushActionToStack(MyState state);
  /// Runs the top action, unless the ball has changed hands since its push: then the stack goes.
  void doAction();
  /// The step that advances a running kick.
  void continueSlowFunction();

  // --- PlayModes.cpp: the decision of one cycle
  void updateState();
  /// False: this cycle's decision is over.
  bool checkPlayModeEvent();

  // --- Walking.cpp
  /// Starts a script, unless one is running.
  void doActionFile4(std::string name);
  /// One step of the chain of walk scripts.
  void walk();
  void setwalkDest(VecPosition& dest);
  /// One step of the walk to DEST [m].
  void goToPos(VecPosition dest);

  // --- Turning.cpp
  /// True when the heading to DEST was off and a turn has been pushed.
  bool turnToPos(VecPosition dest);
  /// One step of a turn to the heading DEG [deg].
  void turnToDeg(double deg);
  void sideStepLToPos(double dist);
  void sideStepRToPos(double dist);
  /// Turns the head to the ball.
  void faceBall();
  /// Does nothing: the backward action plays its script directly.
  void backward();

  // --- BallApproach.cpp
  void goBehindBall();
  [[nodiscard]] bool isBehindBall() const;

  // --- Kick.cpp
  void kickHandler();
  void kickFull();
  void kickL();
  void kickR();

  // --- BallOwnership.cpp
  void whoseBall();
  /// False: this player gives way.
  bool collisionHandler();
  /// Which side the keeper dives to.
  bool isRightSideGK(PolarInfo ball);
  void sendMyInfo();

  // --- Roles.cpp
  /// Shirt number 1.
  void goalkeeper();
  /// Shirt numbers 5 and 6.
  void goalHandler();

  /// From now on walkDest is the ball, wherever it goes.
  void followBall();
  /// Takes STATE off the top of the stack. False, and nothing changes, when it isn't there.
  bool popIfOnTop(MyState state);
};
