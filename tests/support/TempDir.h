#pragma once

/// A directory of a test's own, gone with the object. A test whose subject reads files from the
/// working directory enters it; the working directory is put back too.

#include <filesystem>
#include <string>
#include <string_view>

class TempDir {
 public:
  TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  ~TempDir();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  /// Writes a file, byte by byte as given, and returns its path.
  std::string write(std::string_view name, std::string_view content) const;
  /// Makes this the working directory until the object goes.
  void enter();

 private:
  std::filesystem::path path_;
  std::filesystem::path previous_;  ///< working directory to go back to; empty unless entered
};
