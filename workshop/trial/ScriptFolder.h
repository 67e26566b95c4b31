#pragma once

/// A folder of scripts for a trial of something that isn't on the shelf yet: a copy of an existing
/// folder in a temporary place, in which single scripts are replaced. Gone with the object.

#include <filesystem>
#include <string_view>

namespace workshop {

class ScriptFolder {
 public:
  /// Empty, or with the *.txt files of BASE. Throws std::system_error.
  ScriptFolder();
  explicit ScriptFolder(const std::filesystem::path& base);
  ScriptFolder(const ScriptFolder&) = delete;
  ScriptFolder& operator=(const ScriptFolder&) = delete;
  ~ScriptFolder();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  /// Writes or replaces the script FILE. Throws std::system_error.
  void write(std::string_view file, std::string_view text) const;

 private:
  std::filesystem::path path_;
};

}  // namespace workshop
