#include "workshop/main/ProgressBar.h"

#include <unistd.h>

#include <iostream>
#include <string>

namespace workshop {
namespace {

constexpr std::size_t kWidth = 40;

}  // namespace

ProgressBar::ProgressBar() : shown_(::isatty(STDERR_FILENO) == 1) {}

void ProgressBar::show(std::size_t done, std::size_t all) {
  if (!shown_ || done == lastDone_) return;
  lastDone_ = done;
  const std::size_t filled = all > 0 ? done * kWidth / all : kWidth;
  std::cerr << "\r[" << std::string(filled, '#') << std::string(kWidth - filled, ' ') << "] "
            << done << " of " << all << std::flush;
}

void ProgressBar::clear() {
  if (shown_) std::cerr << "\r\x1b[K" << std::flush;
}

}  // namespace workshop
