#include "tests/support/TempDir.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "pitch-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("cannot make a directory like " + pattern);
  }
  path_ = pattern;
}

TempDir::~TempDir() {
  std::error_code ignored;
  if (!previous_.empty()) {
    std::filesystem::current_path(previous_, ignored);
  }
  std::filesystem::remove_all(path_, ignored);
}

std::string TempDir::write(std::string_view name, std::string_view content) const {
  const std::filesystem::path file = path_ / name;
  std::ofstream out(file, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  out.close();
  if (!out) {
    throw std::runtime_error("cannot write " + file.string());
  }
  return file.string();
}

void TempDir::enter() {
  if (previous_.empty()) {
    previous_ = std::filesystem::current_path();
  }
  std::filesystem::current_path(path_);
}
