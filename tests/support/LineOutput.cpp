// Standard output of the process that this library is loaded into leaves line by line, so that a
// test can tell which message a trace line belongs to.

#include <cstdio>

namespace {

[[gnu::constructor]] void WriteLineByLine() {
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
}

}  // namespace
