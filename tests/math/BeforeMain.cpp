#include "tests/math/BeforeMain.h"

namespace {

// No constant can be told at compile time, so these are run at start.
const BeforeMain kSeen;

}  // namespace

const BeforeMain& beforeMain() {
  return kSeen;
}
