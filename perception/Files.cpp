/// SLangParser: files and folders.

#include "perception/SLangParser.h"

#include <dirent.h>
#include <sys/stat.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>

namespace {

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
using Entry = std::unique_ptr<dirent, FreeDeleter>;
using EntryList = std::unique_ptr<dirent*[], FreeDeleter>;

constexpr std::size_t kLineBuffer = 4096;

}  // namespace

bool SLangParser::fileExists(std::string path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0;
}

int SLangParser::getFolderContents(const std::string& path, std::vector<std::string>& out) {
  out.clear();
  dirent** raw = nullptr;
  const int count = ::scandir(path.c_str(), &raw, nullptr, ::alphasort);
  if (count < 0) {
    std::perror("scandir");
    return count;
  }
  const EntryList entries(raw);
  for (int i = count - 1; i >= 0; --i) {
    const Entry entry(entries[static_cast<std::size_t>(i)]);
    const std::string name = entry->d_name;
    if (name != "." && name != "..") {
      out.push_back(name);
    }
  }
  return count;
}

bool SLangParser::loadFile(const std::string& path, std::string& out) {
  std::ifstream file(path);
  if (!file.is_open()) {
    return false;
  }
  std::array<char, kLineBuffer> line{};
  // Only the end of the file ends this: a line that doesn't fit leaves the stream failed for good.
  while (!file.eof()) {
    file.getline(line.data(), line.size());
    out += line.data();
    out += '\n';
  }
  return true;
}
