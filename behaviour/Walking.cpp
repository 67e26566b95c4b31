/// Agent: the gate through which every action script goes, and the chain of walk scripts.

#include "behaviour/Agent.h"

#include <array>
#include <iostream>
#include <string_view>

#include "perception/WorldModel.h"

namespace {

enum class Pose { None, Initial, InitialForWalk };

struct ActionScript {
  std::string_view action;
  const char* file;
  Pose pose;
  bool partOfWalk;
};

constexpr std::array<ActionScript, 22> kScripts{{
    {"backward", "back.txt", Pose::Initial, false},
    {"shoot", "shoot.txt", Pose::Initial, false},
    {"turnL40", "turnL40.txt", Pose::Initial, false},
    {"turnR40", "turnR40.txt", Pose::Initial, false},
    {"turnL180", "turnL180.txt", Pose::Initial, false},
    {"turnR180", "turnR180.txt", Pose::Initial, false},
    {"turnR60", "turnR60.txt", Pose::Initial, false},
    {"turnL60", "turnL60.txt", Pose::Initial, false},
    {"turnL15", "turnL15.txt", Pose::Initial, false},
    {"turnR15", "turnR15.txt", Pose::Initial, false},
    {"turnL9", "turnL9.txt", Pose::Initial, false},
    {"turnR9", "turnR9.txt", Pose::Initial, false},
    {"sideR", "sideR.txt", Pose::Initial, false},
    {"sideL", "sideL.txt", Pose::Initial, false},
    {"sideRm", "sideRm.txt", Pose::Initial, false},
    {"sideLm", "sideLm.txt", Pose::Initial, false},
    {"walkstart", "walkstart.txt", Pose::InitialForWalk, true},
    {"walkloop1", "walkloop1.txt", Pose::None, true},
    {"walkloop2", "walkloop2.txt", Pose::None, true},
    {"walkloop3", "walkloop3.txt", Pose::None, true},
    {"walkloop4", "walkloop4.txt", Pose::None, true},
    {"walkend", "walkend.txt", Pose::None, true},
}};

/// A name outside the table has no file, so that its opening fails.
constexpr ActionScript kUnknownScript{"", "", Pose::None, false};

const ActionScript& scriptOf(const std::string& action) {
  for (const ActionScript& script : kScripts) {
    if (script.action == action) {
      return script;
    }
  }
  return kUnknownScript;
}

}  // namespace

void Agent::doActionFile4(std::string name) {
  if (myACtionFile.is_open()) {
    return;
  }
  actionName = name;
  const ActionScript& script = scriptOf(name);
  if (script.pose == Pose::InitialForWalk) {
    loadMoveFromFile("initialstateforwalk.txt");
  }
  if (!script.partOfWalk && shallWalk) {
    // The walk ends first: it opens its own last script, so that the opening below fails and the
    // action has to be asked for again.
    shallWalk = false;
    walk();
  }
  actionFileOpen = true;
  actionFileStartTime = WorldModel::getSingleton()->cycle;
  myACtionFile.open(script.file);
  if (script.pose == Pose::Initial) {
    loadMoveFromFile("initialstate.txt");
  }
}

void Agent::walk() {
  // Scripts not yet played in this walk. They outlive a restore: a walk that was cut off goes on
  // with the script at which it stopped.
  static bool f1 = true;
  static bool f2 = true;
  static bool f3 = true;
  static bool f4 = true;
  static bool f5 = true;
  static bool f6 = true;

  if (myACtionFile.is_open()) {
    pushActionToStack(walk_state);
    shallWalk = true;
    return;
  }
  if (!shallWalk) {
    if (f1) {
      f1 = f2 = f3 = f4 = f5 = f6 = true;
      std::cout << "!shallwalk start cancelled\n";
      isWalking = false;
      return;
    }
    if (f2 || f3 || f4 || f5) {
      f1 = f2 = f3 = f4 = f5 = false;
      f6 = true;
      std::cout << "!shalwalk is walking\n";
    } else {
      f1 = f2 = f3 = f4 = f5 = f6 = true;
      std::cout << "!shalwalk none\n";
      isWalking = false;
    }
  }
  if (f1) {
    doActionFile4("walkstart");
    f1 = false;
    isWalking = true;
  } else if (f2) {
    doActionFile4("walkloop1");
    f2 = false;
    isWalking = true;
  } else if (f3) {
    doActionFile4("walkloop2");
    f3 = false;
    isWalking = true;
  } else if (f4) {
    doActionFile4("walkloop3");
    f4 = false;
    isWalking = true;
  } else if (f5) {
    doActionFile4("walkloop4");
    f2 = f3 = f4 = f5 = true;
    isWalking = true;
  } else if (f6) {
    doActionFile4("walkend");
    f1 = f2 = f3 = f4 = f5 = f6 = true;
    isWalking = false;
    shallWalk = false;
  }
}

void Agent::setwalkDest(VecPosition& dest) {
  if (dest == WorldModel::getSingleton()->ballPos) {
    followBall();
    return;
  }
  ownWalkDest = std::make_unique<VecPosition>(dest);
  walkDest = ownWalkDest.get();
}

void Agent::followBall() {
  walkDest = &WorldModel::getSingleton()->ballPos;
  ownWalkDest.reset();
}

void Agent::goToPos(VecPosition dest) {
  if (turnToPos(dest)) {
    return;
  }
  std::cout << "gotoPos function!!!\n";
  const double d = myPos.getDistanceTo(dest);
  if (walkdestAccuracy <= d) {
    std::cout << "gotopos starting walk\n";
    shallWalk = true;
    pushActionToStack(walk_state);
    return;
  }
  if (!popIfOnTop(goToPos_state)) {
    std::cout << "eror action not compatible in goToPos function\n";
  }
  if (shallWalk) {
    shallWalk = false;
    pushActionToStack(walk_state);
  }
}
