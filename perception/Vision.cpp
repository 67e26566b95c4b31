/// SLangParser: what the camera sees. Ball and players are placed at once, with the pose that the
/// previous cycle left, and reported to the team from within their decoders.

#include "perception/SLangParser.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>

#include "behaviour/Agent.h"
#include "math/Geometry.h"
#include "perception/Tokenizer.h"
#include "perception/WorldModel.h"

namespace {

constexpr double kCycleSeconds = 0.02;
constexpr int kTeamSize = 6;
/// The ball goes unreported in cycles divisible by this.
constexpr int kSilentCycle = 21;

/// Distance, horizontal angle and elevation as they stand in "pol d a e))".
struct Polar {
  double distance;
  double angle;
  double elevation;
};

/// What is short or garbled reads as zero.
Polar readPolar(const std::string& group) {
  Tokenizer words(group, " ");
  words.next();
  Polar polar{};
  polar.distance = std::strtod(words.next().c_str(), nullptr);
  polar.angle = std::strtod(words.next().c_str(), nullptr);
  polar.elevation = std::strtod(words.next().c_str(), nullptr);
  return polar;
}

std::string withoutTail(std::string text, std::size_t length) {
  text.resize(text.size() - std::min(text.size(), length));
  return text;
}

/// The polar group of a landmark or of the ball, less the parentheses that close it.
Polar readOnlyPolar(const std::string& group) {
  return readPolar(withoutTail(group, 2));
}

/// A sight on the ground plane of the field, by the player's place and heading; ELEVATION is the
/// angle that counts for this kind of object.
VecPosition place(double distance, double angle, double elevation) {
  Agent* const agent = Agent::getSingleton();
  const double direction = angle + agent->findJoint("hj1")->angle + agent->myDegree;
  return {agent->myPos.x + cosDeg(direction) * distance * cosDeg(elevation),
          agent->myPos.y + sinDeg(direction) * distance * cosDeg(elevation), 0.0};
}

struct NamedFlag {
  const char* name;
  PolarInfo visionInfo::*flag;
};

constexpr std::array<NamedFlag, 8> kFlags{{{"F1L", &visionInfo::F1L},
                                           {"F2L", &visionInfo::F2L},
                                           {"F1R", &visionInfo::F1R},
                                           {"F2R", &visionInfo::F2R},
                                           {"G1L", &visionInfo::G1L},
                                           {"G2L", &visionInfo::G2L},
                                           {"G1R", &visionInfo::G1R},
                                           {"G2R", &visionInfo::G2R}}};

void reportBall(int unum, const VecPosition& position, double distance) {
  std::ostringstream text;
  text << std::fixed;
  text.precision(2);
  text << "|," << unum << "," << position.x << "," << position.y << "," << distance;
  Agent::getSingleton()->sendSay(text.str());
}

void reportOpponent(int number, const VecPosition& position) {
  std::ostringstream text;
  text << "~," << number << "," << position.x << "," << position.y;
  Agent::getSingleton()->sendSay(text.str());
}

}  // namespace

int SLangParser::updateFromSeeMessage(const std::string& text) {
  WorldModel* const world = WorldModel::getSingleton();
  // Even an element that can't be split counts as vision for this cycle.
  world->lastSeeCycle = world->cycle;
  std::vector<std::string> elements;
  if (!parseSExpression(text, elements)) {
    return 1;
  }
  int notUnderstood = 0;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    switch (elements[i][1]) {
      case 'B':
        notUnderstood += parseBallInfo(elements[i]);
        break;
      case 'F':
      case 'G':
        notUnderstood += parseFlagInfo(elements[i]);
        break;
      case 'P':
        notUnderstood += parsePlayerInfo(elements[i]);
        break;
      default:
        ++notUnderstood;
        break;
    }
  }
  return notUnderstood;
}

int SLangParser::parseFlagInfo(const std::string& text) {
  Tokenizer groups(text, "(");
  const std::string name = withoutTail(groups.next(), 1);
  for (const NamedFlag& candidate : kFlags) {
    if (name == candidate.name) {
      const Polar polar = readOnlyPolar(groups.next());
      PolarInfo& flag = WorldModel::getSingleton()->vision.*candidate.flag;
      flag.distance = polar.distance;
      flag.angle = polar.angle;
      flag.elevation = polar.elevation;
      flag.seen = true;
      return 0;
    }
  }
  return 1;
}

int SLangParser::parseBallInfo(const std::string& text) {
  WorldModel* const world = WorldModel::getSingleton();
  PolarInfo& ball = world->vision.ball;
  ball.seen = true;

  Tokenizer groups(text, "(");
  groups.next();
  const Polar polar = readOnlyPolar(groups.next());
  ball.distance = polar.distance;
  ball.angle = polar.angle;
  ball.elevation = polar.elevation;

  // The head's tilt is left out for the ball, and only for the ball.
  const VecPosition position = place(ball.distance, ball.angle, ball.elevation);
  // Two sights in a cycle make this infinite or no number at all, which nothing minds.
  world->ballSpeed = world->ballPos.getDistanceTo(position) /
                     ((world->cycle - ball.lastSeenCycle) * kCycleSeconds);
  ball.lastSeenCycle = world->cycle;

  const int unum = Agent::getSingleton()->uNum;
  if (world->cycle % kSilentCycle != 0) {
    reportBall(unum, position, ball.distance);
  }
  // A number that the server shouldn't have given has no record.
  if (unum >= 1 && unum <= kTeamSize) {
    PolarInfo& own = world->teamBall[static_cast<std::size_t>(unum - 1)];
    own.seen = true;
    own.lastSeenCycle = world->cycle;
    own.position.x = position.x;
    own.position.y = position.y;
    own.distance = ball.distance;
  }
  return 0;
}

int SLangParser::parsePlayerInfo(const std::string& text) {
  WorldModel* const world = WorldModel::getSingleton();
  Tokenizer groups(text, "(");
  groups.next();
  // "team Foo) " and "id 3) ": the layout is fixed, and an element too short to cut is fatal.
  const std::string teamGroup = groups.next();
  const std::string team = teamGroup.substr(5, teamGroup.size() - 7);
  const std::string idGroup = groups.next();
  const std::string id = idGroup.substr(3, idGroup.size() - 4);
  groups.next();
  const Polar polar = readPolar(groups.next());

  seenPlayer player;
  player.isOpponent = team == world->teamName ? 0 : 1;
  player.unum = static_cast<int>(std::strtol(id.c_str(), nullptr, 10));
  player.polar.distance = polar.distance;
  player.polar.angle = polar.angle;
  player.polar.elevation = polar.elevation + Agent::getSingleton()->findJoint("hj2")->angle;
  player.polar.seen = true;
  player.polar.lastSeenCycle = world->cycle;
  player.polar.position = place(polar.distance, polar.angle, player.polar.elevation);

  // Unsigned in between: a number of any size may come from the wire.
  const int number = static_cast<int>(static_cast<unsigned int>(player.isOpponent * kTeamSize) +
                                      static_cast<unsigned int>(player.unum));
  if (number >= 1 && number <= static_cast<int>(world->vision.players.size())) {
    world->vision.players[static_cast<std::size_t>(number - 1)] = player;
  }
  if (number > kTeamSize) {
    reportOpponent(number, player.polar.position);
  }
  return 0;
}
