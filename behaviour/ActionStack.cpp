/// Agent: the stack of actions and its executor.

#include "behaviour/Agent.h"

#include <algorithm>
#include <iostream>
#include <vector>

namespace {

using Stack = std::stack<actionStruct, std::deque<actionStruct>>;

/// Takes STATE out from wherever it stands; the others keep their order. False when it's absent.
bool removeFrom(Stack& stack, MyState state) {
  std::vector<actionStruct> above;
  bool found = false;
  while (!stack.empty() && !found) {
    found = stack.top().state == state;
    if (!found) {
      above.push_back(stack.top());
    }
    stack.pop();
  }
  std::for_each(above.rbegin(), above.rend(), [&](const actionStruct& e) { stack.push(e); });
  return found;
}

bool contains(Stack stack, MyState state) {
  return removeFrom(stack, state);
}

void clear(Stack& stack) {
  stack = Stack();
}

}  // namespace

void Agent::pushActionToStack(MyState state) {
  if (!contains(actionStack, state)) {
    if (!actionStack.empty() && actionStack.top().state == walk_state) {
      actionStack.pop();
    }
    actionStack.push({state, ballOwner});
  } else if (state == walk_state) {
    removeFrom(actionStack, walk_state);
    actionStack.push({walk_state, ballOwner});
  } else {
    std::cout << "pushed nothing " << state << std::endl;
  }
}

bool Agent::popIfOnTop(MyState state) {
  if (actionStack.empty() || actionStack.top().state != state) {
    return false;
  }
  actionStack.pop();
  return true;
}

void Agent::doAction() {
  if (actionStack.empty()) {
    return;
  }
  const actionStruct action = actionStack.top();
  actionStack.pop();
  if (action.owner != ballOwner) {
    clear(actionStack);
    std::cout << "stack cleared by doACtion\n";
    return;
  }
  std::cout << action.state << std::endl;
  switch (action.state) {
    case goBehindBall_state:
      pushActionToStack(goBehindBall_state);
      goBehindBall();
      break;
    case kickR_state:
      pushActionToStack(kickR_state);
      kickR();
      break;
    case kickL_state:
      pushActionToStack(kickL_state);
      kickL();
      break;
    case walk_state:
      walk();
      break;
    case goToPos_state:
      std::cout << "doAction -> goToPos_state\n";
      pushActionToStack(goToPos_state);
      goToPos(*walkDest);
      break;
    case turnR15_state:
      doActionFile4("turnR15");
      break;
    case turnL15_state:
      doActionFile4("turnL15");
      break;
    case turnR9_state:
      doActionFile4("turnR9");
      break;
    case turnL9_state:
      doActionFile4("turnL9");
      break;
    case turnR40_state:
      doActionFile4("turnR40");
      break;
    case turnL40_state:
      doActionFile4("turnL40");
      break;
    case turnL180_state:
      doActionFile4("turnL180");
      break;
    case turnR180_state:
      doActionFile4("turnR180");
      break;
    case turnL60_state:
      doActionFile4("turnL60");
      break;
    case turnR60_state:
      doActionFile4("turnR60");
      break;
    case sideStepR_state:
      sideStepRToPos(sideStepDest);
      break;
    case sideStepL_state:
      sideStepLToPos(sideStepDest);
      break;
    case backward_state:
      doActionFile4("backward");
      break;
    case jumpR_state:
      JumpR();
      break;
    case jumpL_state:
      JumpL();
      break;
    case faceBall_state:
      faceBall();
      break;
    case turnToDeg_state:
      pushActionToStack(turnToDeg_state);
      turnToDeg(turnDest);
      break;
    case reserved3_state:
    case reserved6_state:
    default:
      break;
  }
}

void Agent::continueSlowFunction() {
  if (slowFunction == 1) {
    kickR();
    std::cout << "kickR slow\n";
  }
  if (slowFunction == 2) {
    kickL();
    std::cout << "kickL slow\n";
  }
}
