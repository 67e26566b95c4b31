#include "data/DataFolder.h"

#include <cstdlib>
#include <system_error>

namespace data {

std::filesystem::path folder() {
  std::error_code ignored;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  return folderFor(program, std::getenv(kVariable));
}

std::filesystem::path folderFor(const std::filesystem::path& program, const char* chosen) {
  if (chosen != nullptr && *chosen != '\0') return chosen;
  return (program.parent_path() / PITCH_DATA_FROM_PROGRAM).lexically_normal();
}

std::string nearest(const std::string& name, const std::filesystem::path& folder) {
  std::error_code ignored;
  return std::filesystem::exists(name, ignored) ? name : (folder / name).string();
}

}  // namespace data
