#include "arena/main/OutputFile.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "arena/main/Options.h"

namespace arena {

std::ofstream openedFor(const std::string& option, const std::string& name) {
  std::ofstream file;
  if (name.empty()) return file;
  file.open(name);
  if (!file) throw UsageError(option + " " + name + ": " + std::strerror(errno));
  return file;
}

void writeSummary(std::ofstream& file, const Summary& summary) {
  if (!file.is_open()) return;
  file << jsonTextOf(summary) << std::flush;
  if (!file) throw std::runtime_error("the summary file can't be written");
}

}  // namespace arena
