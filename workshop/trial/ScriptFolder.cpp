#include "workshop/trial/ScriptFolder.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <string>
#include <system_error>

namespace workshop {

ScriptFolder::ScriptFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "pitchmotion-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), "can't make " + pattern);
  }
  path_ = pattern;
}

ScriptFolder::ScriptFolder(const std::filesystem::path& base) : ScriptFolder() {
  for (const auto& entry : std::filesystem::directory_iterator(base)) {
    if (entry.path().extension() == ".txt") {
      std::filesystem::copy_file(entry.path(), path_ / entry.path().filename());
    }
  }
}

ScriptFolder::~ScriptFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void ScriptFolder::write(std::string_view file, std::string_view text) const {
  const std::filesystem::path path = path_ / file;
  std::ofstream out(path, std::ios::binary);
  out << text;
  out.close();
  if (!out) throw std::system_error(EIO, std::generic_category(), "can't write " + path.string());
}

}  // namespace workshop
