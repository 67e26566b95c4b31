#include "fuzz/StagedPlayer.h"

#include <gsl/gsl_rng.h>
#include <sys/select.h>
#include <sys/types.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <csignal>
#include <cstring>
#include <ctime>
#include <iostream>
#include <stdexcept>
#include <streambuf>

#include "arena/link/Frames.h"
#include "arena/link/Lists.h"
#include "behaviour/Agent.h"
#include "fuzz/Input.h"
#include "perception/WorldModel.h"
#include "runtime/Connection.h"
#include "runtime/RunLoop.h"
#include "tests/support/LinkCapture.h"

namespace {

constexpr int kIntroductionCycle = 10;
constexpr double kCycleSeconds = 0.02;
constexpr std::time_t kFixedTime = 1'700'000'000;

/// Both directions of the link, and what the player never gives back.
struct Outside {
  std::string toPlayer{};
  std::size_t taken = 0;      ///< bytes of toPlayer that have been read
  std::size_t lastFrame = 0;  ///< where in toPlayer the last one begins
  std::string fromPlayer{};
  std::vector<gsl_rng*> generators{};
};

Outside& outside() {
  static Outside instance;
  return instance;
}

/// While it lives, standard output's stream goes here.
class Nowhere : public std::streambuf {
 public:
  Nowhere() : before_(std::cout.rdbuf(this)) {}
  Nowhere(const Nowhere&) = delete;
  Nowhere& operator=(const Nowhere&) = delete;
  ~Nowhere() override { std::cout.rdbuf(before_); }

 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char* /*text*/, std::streamsize count) override { return count; }

 private:
  std::streambuf* before_;
};

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The number at the front of TEXT, which begins with a digit or a point.
bool isHuge(std::string_view text) {
  constexpr std::size_t kMostDigits = 7;
  std::size_t i = std::min(text.find_first_not_of('0'), text.size());
  const std::size_t digits = std::min(text.find_first_not_of("0123456789", i), text.size()) - i;
  if (digits > kMostDigits) return true;
  i = std::min(text.find_first_not_of("0123456789.", i + digits), text.size());
  if (i == text.size() || (text[i] != 'e' && text[i] != 'E')) return false;
  // Only a small exponent, written plainly: one reader goes on to the next digit wherever it is.
  std::string_view exponent = text.substr(i + 1);
  const bool isSigned = exponent.starts_with('+') || exponent.starts_with('-');
  if (isSigned) exponent.remove_prefix(1);
  if (exponent.empty() || !isDigit(exponent.front())) return isSigned;
  if (exponent.front() == '0') exponent.remove_prefix(1);
  if (exponent.empty()) return false;
  return exponent.front() > '4' || (exponent.size() > 1 && isDigit(exponent[1]));
}

}  // namespace

// The linker prescribes these names.
// NOLINTBEGIN(clang-diagnostic-reserved-identifier)
extern "C" {

ssize_t __wrap_send(int /*fd*/, const void* bytes, std::size_t count, int /*flags*/) {
  outside().fromPlayer.append(static_cast<const char*>(bytes), count);
  return static_cast<ssize_t>(count);
}

ssize_t __wrap_recv(int /*fd*/, void* bytes, std::size_t count, int /*flags*/) {
  Outside& link = outside();
  // At the end of the stream the player would ask for ever.
  fuzz::demand(link.taken < link.toPlayer.size(), "the player reads whole frames only");
  const std::size_t got = link.toPlayer.copy(static_cast<char*>(bytes), count, link.taken);
  link.taken += got;
  return static_cast<ssize_t>(got);
}

int __wrap_select(int /*count*/, fd_set* /*readable*/, fd_set* /*writable*/, fd_set* /*failed*/,
                  timeval* /*patience*/) {
  // The user's Ctrl-C comes while it waits for the last message, so that one is played and no more.
  if (outside().taken == outside().lastFrame) handler(SIGINT);
  return 1;
}

std::time_t __wrap_time(std::time_t* where) {
  if (where != nullptr) *where = kFixedTime;
  return kFixedTime;
}

gsl_rng* __real_gsl_rng_alloc(const gsl_rng_type* type);

gsl_rng* __wrap_gsl_rng_alloc(const gsl_rng_type* type) {
  outside().generators.push_back(__real_gsl_rng_alloc(type));
  return outside().generators.back();
}

}  // extern "C"
// NOLINTEND(clang-diagnostic-reserved-identifier)

namespace fuzz {

StagedPlayer::StagedPlayer(int shirtNumber, int cycle) {
  WorldModel* const world = WorldModel::getSingleton();
  Agent* const agent = Agent::getSingleton();
  agent->uNum = shirtNumber;
  world->cycle = cycle;
  world->serverTime = cycle * kCycleSeconds;
  if (cycle >= kIntroductionCycle) agent->sendPlayerInfo();
}

StagedPlayer::~StagedPlayer() {
  Agent::freeSingleton();
  WorldModel::freeSingleton();
  Connection::freeSingleton();
  for (gsl_rng* generator : outside().generators) gsl_rng_free(generator);
  outside() = {};
}

bool StagedPlayer::play(const std::vector<std::string>& messages) {
  Outside& link = outside();
  link.toPlayer.clear();
  link.taken = 0;
  for (const std::string& message : messages) {
    link.lastFrame = link.toPlayer.size();
    link.toPlayer += arena::framed(message);
  }
  if (messages.empty()) return true;
  try {
    run();
  } catch (const std::out_of_range&) {
    return false;
  }
  return true;
}

std::vector<std::string> StagedPlayer::sent() {
  arena::FrameReader reader;
  reader.feed(outside().fromPlayer);
  std::vector<std::string> frames;
  std::size_t bytes = 0;
  std::vector<std::string_view> parts;
  while (auto frame = reader.next()) {
    bytes += 4 + frame->size();
    demand(frame->starts_with(kZeroSpeeds), "a frame begins with the standing zeros");
    demand(arena::splitLevel(*frame, parts), "a frame is balanced");
    frames.push_back(std::move(*frame));
  }
  demand(bytes == outside().fromPlayer.size(), "frames are sent whole");
  outside().fromPlayer.clear();
  return frames;
}

bool holdsHugeNumber(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool startsNumber = isDigit(text[i]) || text[i] == '.';
    const bool insideOne = i > 0 && (isDigit(text[i - 1]) || text[i - 1] == '.');
    if (startsNumber && !insideOne && isHuge(text.substr(i))) return true;
    // Hexadecimal, and infinity in any case of its letters.
    if (text[i] == '0' && i + 1 < text.size() && (text[i + 1] == 'x' || text[i + 1] == 'X')) {
      return true;
    }
    constexpr std::string_view kInfinity = "inf";
    if (text.size() - i >= kInfinity.size() &&
        std::equal(kInfinity.begin(), kInfinity.end(), text.begin() + static_cast<long>(i),
                   [](char wanted, char c) {
                     return wanted == std::tolower(static_cast<unsigned char>(c));
                   })) {
      return true;
    }
  }
  return false;
}

void silencePlayer() {
  static const Nowhere nowhere;
}

}  // namespace fuzz
