#include "tests/support/OutputCapture.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <iostream>
#include <stdexcept>

namespace {

void flushAll() {
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);
}

}  // namespace

OutputCapture::OutputCapture(Stream stream)
    : target_(static_cast<int>(stream)), memory_(::memfd_create("output", MFD_CLOEXEC)) {
  flushAll();
  saved_ = ::dup(target_);
  if (memory_ < 0 || saved_ < 0 || ::dup2(memory_, target_) < 0) {
    throw std::runtime_error("cannot redirect descriptor " + std::to_string(target_));
  }
}

OutputCapture::~OutputCapture() {
  restore();
  ::close(memory_);
}

std::string OutputCapture::text() {
  restore();
  std::string result;
  std::array<char, 4096> piece{};
  for (;;) {
    const ssize_t got =
        ::pread(memory_, piece.data(), piece.size(), static_cast<off_t>(result.size()));
    if (got <= 0) {
      return result;
    }
    result.append(piece.data(), static_cast<std::size_t>(got));
  }
}

void OutputCapture::restore() {
  if (saved_ < 0) {
    return;
  }
  flushAll();
  ::dup2(saved_, target_);
  ::close(saved_);
  saved_ = -1;
}
