#include "workshop/trial/Job.h"

#include <utility>

namespace workshop {

Step playScript(std::string action) {
  return {.kind = Step::Kind::kScript, .name = std::move(action)};
}

Step walkFor(int cycles, std::string endedBy) {
  return {.kind = Step::Kind::kWalk, .name = std::move(endedBy), .cycles = cycles};
}

Step walkLoops(int loops, std::string endedBy) {
  return {.kind = Step::Kind::kWalk, .name = std::move(endedBy), .loops = loops};
}

Step walkInto(int cycles) {
  return {.kind = Step::Kind::kWalk, .cycles = cycles, .leaveOpen = true};
}

Step kickWith(Foot foot) {
  return {.kind = Step::Kind::kKick, .foot = foot};
}

Step playPose(std::string file, int rest) {
  return {.kind = Step::Kind::kPose, .name = std::move(file), .cycles = rest};
}

Step diveTo(Foot side) {
  return {.kind = Step::Kind::kDive, .foot = side};
}

Step getUp() {
  return {.kind = Step::Kind::kGetUp};
}

Step standFor(int cycles) {
  return {.kind = Step::Kind::kStand, .cycles = cycles};
}

}  // namespace workshop
