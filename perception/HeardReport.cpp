#include "perception/HeardReport.h"

#include <cstdlib>

#include "behaviour/Agent.h"
#include "perception/Tokenizer.h"
#include "perception/WorldModel.h"

namespace {

constexpr int kOutOfRange = 102;
/// One below the highest number that a speaker sends: the last opponent's reports are refused.
constexpr unsigned int kLastOpponent = 11;
constexpr unsigned int kLastMate = 6;

int nextInt(Tokenizer& words) {
  return static_cast<int>(std::strtol(words.next().c_str(), nullptr, 10));
}

double nextDouble(Tokenizer& words) {
  return std::strtod(words.next().c_str(), nullptr);
}

int applyOpponentReport(const std::string& text) {
  Tokenizer words(text, ",");
  words.next();
  const int number = nextInt(words);
  if (static_cast<unsigned int>(number) > kLastOpponent) {
    return kOutOfRange;
  }
  const double x = nextDouble(words);
  const double y = nextDouble(words);
  if (number == Agent::getSingleton()->uNum || number == 0) {
    return 0;
  }
  WorldModel* const world = WorldModel::getSingleton();
  PolarInfo& polar = world->vision.players[static_cast<std::size_t>(number - 1)].polar;
  polar.position.x = x;
  polar.position.y = y;
  polar.seen = true;
  polar.lastSeenCycle = world->cycle;
  return 0;
}

int applyBallReport(const std::string& text) {
  Tokenizer words(text, ",");
  words.next();
  const int number = nextInt(words);
  if (static_cast<unsigned int>(number) > kLastMate) {
    return kOutOfRange;
  }
  const double x = nextDouble(words);
  const double y = nextDouble(words);
  const double distance = nextDouble(words);
  if (number == Agent::getSingleton()->uNum || number == 0) {
    return 0;
  }
  WorldModel* const world = WorldModel::getSingleton();
  PolarInfo& ball = world->teamBall[static_cast<std::size_t>(number - 1)];
  ball.seen = true;
  ball.lastSeenCycle = world->cycle;
  ball.position = {x, y, 0.0};
  ball.distance = distance;
  return 0;
}

}  // namespace

int applyHeardReport(const std::string& text) {
  if (text.starts_with("~,")) {
    return applyOpponentReport(text);
  }
  if (text.starts_with("|,")) {
    return applyBallReport(text);
  }
  return 0;
}
