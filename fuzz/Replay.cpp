/// Gives a fuzz target the inputs that are kept: a main for builds without libFuzzer. A finding
/// ends the process as it would end the fuzzer's; the input at work is told first.
///
/// usage: fuzz_TARGET FILE-OR-FOLDER...

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/Input.h"

/// A target may have something to make ready.
extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

namespace fs = std::filesystem;

/// Absolute, since a target may change the working directory.
std::vector<fs::path> filesOf(const fs::path& place) {
  std::vector<fs::path> files;
  if (fs::is_regular_file(place)) files.push_back(fs::absolute(place));
  if (fs::is_directory(place)) {
    for (const auto& entry : fs::recursive_directory_iterator(place)) {
      if (entry.is_regular_file()) files.push_back(fs::absolute(entry.path()));
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::uint8_t> contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

int replay(int argc, char** argv) {
  std::vector<fs::path> files;
  for (int i = 1; i < argc; ++i) {
    const auto more = filesOf(argv[i]);
    files.insert(files.end(), more.begin(), more.end());
  }
  if (files.empty()) throw std::runtime_error("no inputs to replay");
  if (LLVMFuzzerInitialize != nullptr) LLVMFuzzerInitialize(&argc, &argv);
  for (const fs::path& file : files) {
    std::fprintf(stderr, "%s\n", file.c_str());
    const std::vector<std::uint8_t> content = contentOf(file);
    LLVMFuzzerTestOneInput(content.data(), content.size());
  }
  std::fprintf(stderr, "%zu inputs replayed\n", files.size());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return replay(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  } catch (...) {
    std::fprintf(stderr, "something was thrown that is no exception\n");
  }
  return 1;
}
