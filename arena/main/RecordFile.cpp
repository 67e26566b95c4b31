#include "arena/main/RecordFile.h"

#include <cerrno>
#include <cstring>
#include <iostream>

#include "arena/main/Options.h"

namespace arena {
namespace {

std::ifstream openedRecord(const std::string& command, const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file) throw UsageError(command + " " + name + ": " + std::strerror(errno));
  return file;
}

RecordReader readerOf(std::istream& file, const std::string& name) {
  try {
    return RecordReader(file);
  } catch (const RecordError& error) {
    throw RecordError(name + ": " + error.what());
  }
}

}  // namespace

RecordFile::RecordFile(const std::string& command, const std::string& file)
    : name_(file), file_(openedRecord(command, file)), reader_(readerOf(file_, file)) {}

int RecordFile::close() const {
  if (!reader_.fault()) return 0;
  std::cerr << "pitcharena: " << name_ << ": " << *reader_.fault() << std::endl;
  return 1;
}

}  // namespace arena
