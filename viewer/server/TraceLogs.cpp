#include "viewer/server/TraceLogs.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace arena::view {
namespace {

constexpr int kNumbers = 6;
constexpr long kCyclesBetweenTries = 50;
constexpr std::size_t kLongestLine = 4096;

std::size_t rowOf(const Shirt& shirt) {
  const int row = (shirt.side == Side::kRight ? kNumbers : 0) + shirt.number - 1;
  return static_cast<std::size_t>(row);
}

}  // namespace

TraceLogs::TraceLogs(std::string folder) : folder_(std::move(folder)) {}

TraceLogs::~TraceLogs() {
  for (const Log& log : logs_) {
    if (log.file >= 0) ::close(log.file);
  }
}

void TraceLogs::open(Log& log, const Shirt& shirt) const {
  const std::string ending = "-" + std::to_string(shirt.number) + ".log";
  const std::string side(nameOf(shirt.side));
  log.file = ::open((folder_ + "/" + side + ending).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (log.file < 0 && shirt.side == Side::kLeft) {
    log.file = ::open((folder_ + "/player" + ending).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  }
}

std::vector<std::string> TraceLogs::newLines(Log& log) {
  struct stat status {};
  if (::fstat(log.file, &status) == 0 && status.st_size < log.place) {
    log.place = 0;
    log.unfinished.clear();
  }
  std::array<char, 4096> piece{};
  const ssize_t got = ::pread(log.file, piece.data(), piece.size(), log.place);
  if (got <= 0) return {};
  log.place += got;
  log.unfinished.append(piece.data(), static_cast<std::size_t>(got));

  std::vector<std::string> lines;
  std::size_t start = 0;
  for (auto end = log.unfinished.find('\n'); end != std::string::npos;
       end = log.unfinished.find('\n', start)) {
    lines.push_back(log.unfinished.substr(start, end - start));
    start = end + 1;
  }
  log.unfinished.erase(0, start);
  if (log.unfinished.size() > kLongestLine) log.unfinished.clear();
  return lines;
}

void TraceLogs::addTo(CycleRecord& record) {
  for (PlayerRecord& player : record.players) {
    const auto& shirt = player.shirt;
    if (!shirt || shirt->number < 1 || shirt->number > kNumbers) continue;
    Log& log = logs_.at(rowOf(*shirt));
    if (log.file < 0) {
      if (record.cycle < log.nextTry) continue;
      log.nextTry = record.cycle + kCyclesBetweenTries;
      open(log, *shirt);
      if (log.file < 0) continue;
    }
    player.traced = newLines(log);
  }
}

}  // namespace arena::view
