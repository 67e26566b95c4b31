/// BasicAgent: the head's sweep from side to side, open loop, whatever the body is doing.

#include <array>

#include "body/BasicAgent.h"
#include "perception/WorldModel.h"

namespace {

/// Actions during which the head is left alone.
constexpr int kFacingBall = 22;
constexpr int kKickingRight = 1;

/// One command each second cycle [rad/s], sent as it stands. Within a sweep the speed follows
/// C m^-0.4 with m falling towards the sweep's end, so the head speeds up; each sweep ends in a
/// burst of 10. A round doesn't add up to zero: the end of the joint's range stops the head.
constexpr std::array<const char*, 110> kSweep{{
    "(he1 1.28026)",  "(he1 1.30695)",  "(he1 1.33479)",  "(he1 1.60281)",  "(he1 1.62081)",
    "(he1 1.63937)",  "(he1 1.67902)",  "(he1 1.70008)",  "(he1 1.72214)",  "(he1 1.74511)",
    "(he1 1.79471)",  "(he1 1.82143)",  "(he1 1.84974)",  "(he1 1.87941)",  "(he1 1.94421)",
    "(he1 1.97982)",  "(he1 2.01771)",  "(he1 2.0582)",   "(he1 10)",       "(he1 -1.30407)",
    "(he1 -1.27796)", "(he1 -1.28396)", "(he1 -1.28916)", "(he1 -1.3003)",  "(he1 -1.30597)",
    "(he1 -1.31175)", "(he1 -1.3176)",  "(he1 -1.32959)", "(he1 -1.33573)", "(he1 -1.34194)",
    "(he1 -1.34831)", "(he1 -1.3613)",  "(he1 -1.36799)", "(he1 -1.37473)", "(he1 -1.38163)",
    "(he1 -1.39582)", "(he1 -1.40312)", "(he1 -1.41054)", "(he1 -1.41809)", "(he1 -1.43358)",
    "(he1 -1.54126)", "(he1 -1.5516)",  "(he1 -1.57297)", "(he1 -1.58403)", "(he1 -1.59538)",
    "(he1 -1.60705)", "(he1 -1.63129)", "(he1 -1.6438)",  "(he1 -1.65679)", "(he1 -1.67008)",
    "(he1 -1.69786)", "(he1 -1.7123)",  "(he1 -1.72735)", "(he1 -1.7427)",  "(he1 -1.77504)",
    "(he1 -1.79197)", "(he1 -1.80958)", "(he1 -1.82766)", "(he1 -1.86608)", "(he1 -1.88625)",
    "(he1 -1.90737)", "(he1 -1.92922)", "(he1 -1.97571)", "(he1 -2.00052)", "(he1 -2.02637)",
    "(he1 -2.05357)", "(he1 -2.11195)", "(he1 -2.14323)", "(he1 -2.17645)", "(he1 -10)",
    "(he1 1.29058)",  "(he1 1.26434)",  "(he1 1.2703)",   "(he1 1.32768)",  "(he1 1.33393)",
    "(he1 1.34677)",  "(he1 1.38814)",  "(he1 1.39551)",  "(he1 1.40292)",  "(he1 1.41836)",
    "(he1 1.42625)",  "(he1 1.43429)",  "(he1 1.44256)",  "(he1 1.4595)",   "(he1 1.46827)",
    "(he1 1.47714)",  "(he1 1.48628)",  "(he1 1.50518)",  "(he1 1.51486)",  "(he1 1.52486)",
    "(he1 1.53502)",  "(he1 1.55619)",  "(he1 1.56714)",  "(he1 1.77296)",  "(he1 1.79024)",
    "(he1 1.80824)",  "(he1 1.84619)",  "(he1 1.86625)",  "(he1 1.88697)",  "(he1 1.9087)",
    "(he1 1.95475)",  "(he1 1.97924)",  "(he1 2.00492)",  "(he1 2.03176)",  "(he1 2.08936)",
    "(he1 2.1204)",   "(he1 2.15316)",  "(he1 2.50105)",  "(he1 2.56029)",  "(he1 10)",
}};

/// The entry behind this one is never sent.
constexpr std::size_t kLastSent = 108;

}  // namespace

void BasicAgent::headYawDasti() {
  static std::size_t index = 0;
  if (headState == kFacingBall || headState == kKickingRight) {
    return;
  }
  if (index > kLastSent) {
    index = 0;
  }
  if (WorldModel::getSingleton()->cycle % 2 != 0) {
    return;
  }
  sendCommand(kSweep[index]);
  ++index;
}
