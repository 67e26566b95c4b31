#include "tests/support/FixedTime.h"

#include <cstdlib>
#include <string>

FixedTime::FixedTime(long long seconds) {
  setenv("FIXED_TIME", std::to_string(seconds).c_str(), 1);
  setenv("LD_PRELOAD", PITCH_PRELOAD, 1);
  // The C library's sine and its like exist in several variants that differ in the last bit;
  // without this the processor would choose.
  setenv("GLIBC_TUNABLES", "glibc.cpu.hwcaps=-AVX2,-AVX,-FMA,-FMA4", 1);
}

FixedTime::~FixedTime() {
  unsetenv("GLIBC_TUNABLES");
  unsetenv("LD_PRELOAD");
  unsetenv("FIXED_TIME");
}
