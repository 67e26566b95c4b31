/// SLangParser: what the camera sees. Ball and players are placed at once, with the pose that the
/// previous cycle left, and reported to the team from within their decoders.

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "behaviour/Agent.h"
#include "math/Geometry.h"
#include "math/NumberText.h"
#include "perception/Decoders.h"
#include "perception/ListView.h"
#include "perception/NumberReaders.h"
#include "perception/SLangParser.h"
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
Polar readPolar(std::string_view group) {
  Pieces words(group, ' ');
  words.next();
  Polar polar{};
  polar.distance = decimalAtFront(words.next());
  polar.angle = decimalAtFront(words.next());
  polar.elevation = decimalAtFront(words.next());
  return polar;
}

std::string_view withoutTail(std::string_view text, std::size_t length) {
  return text.substr(0, text.size() - std::min(text.size(), length));
}

/// The polar group of a landmark or of the ball, less the parentheses that close it.
Polar readOnlyPolar(std::string_view group) {
  return readPolar(withoutTail(group, 2));
}

/// LENGTH characters from FROM on, or what there is of them. A text that ends before FROM is an
/// error, the one of a string.
std::string_view cutOut(std::string_view text, std::size_t from, std::size_t length) {
  if (from > text.size()) {
    static_cast<void>(std::string(text).substr(from, length));
  }
  return text.substr(from, length);
}

/// A sight on the ground plane of the field, by the player's place and heading; ELEVATION is the
/// angle that counts for this kind of object.
VecPosition place(double distance, double angle, double elevation) {
  Agent* const agent = Agent::getSingleton();
  const double direction = angle + agent->findJoint("hj1")->angle + agent->myDegree;
  // Not worked out once for both: where several factors are NaN their order would change, and so
  // the sign of the NaN that is told the team.
  return {agent->myPos.x + cosDeg(direction) * distance * cosDeg(elevation),
          agent->myPos.y + sinDeg(direction) * distance * cosDeg(elevation), 0.0};
}

struct NamedFlag {
  std::string_view name;
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
  std::string text = "|," + std::to_string(unum);
  for (const double number : {position.x, position.y, distance}) {
    text += ',';
    appendFixed(text, number, 2);
  }
  Agent::getSingleton()->sendSay(std::move(text));
}

void reportOpponent(int number, const VecPosition& position) {
  std::string text = "~," + std::to_string(number);
  for (const double coordinate : {position.x, position.y}) {
    text += ',';
    appendShort(text, coordinate);
  }
  Agent::getSingleton()->sendSay(std::move(text));
}

int decodeFlag(std::string_view text) {
  Pieces groups(text, '(');
  const std::string_view name = withoutTail(groups.next(), 1);
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

int decodeBall(std::string_view text) {
  WorldModel* const world = WorldModel::getSingleton();
  PolarInfo& ball = world->vision.ball;
  ball.seen = true;

  Pieces groups(text, '(');
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

int decodePlayer(std::string_view text) {
  WorldModel* const world = WorldModel::getSingleton();
  Pieces groups(text, '(');
  groups.next();
  // "team Foo) " and "id 3) ": the layout is fixed, and an element too short to cut is fatal.
  const std::string_view teamGroup = groups.next();
  const std::string_view team = cutOut(teamGroup, 5, teamGroup.size() - 7);
  const std::string_view idGroup = groups.next();
  const std::string_view id = cutOut(idGroup, 3, idGroup.size() - 4);
  groups.next();
  const Polar polar = readPolar(groups.next());

  seenPlayer player;
  player.isOpponent = team == world->teamName ? 0 : 1;
  player.unum = integerAtFront(id);
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

}  // namespace

int decodeSee(std::string_view text) {
  WorldModel* const world = WorldModel::getSingleton();
  // Even an element that can't be split counts as vision for this cycle.
  world->lastSeeCycle = world->cycle;
  TokenViews elements;
  if (!splitList(text, elements)) {
    return 1;
  }
  int notUnderstood = 0;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string_view element = elements[i];
    switch (element.size() > 1 ? element[1] : '\0') {
      case 'B':
        notUnderstood += decodeBall(element);
        break;
      case 'F':
      case 'G':
        notUnderstood += decodeFlag(element);
        break;
      case 'P':
        notUnderstood += decodePlayer(element);
        break;
      default:
        ++notUnderstood;
        break;
    }
  }
  return notUnderstood;
}

int SLangParser::updateFromSeeMessage(const std::string& text) {
  return decodeSee(text);
}

int SLangParser::parseFlagInfo(const std::string& text) {
  return decodeFlag(text);
}

int SLangParser::parseBallInfo(const std::string& text) {
  return decodeBall(text);
}

int SLangParser::parsePlayerInfo(const std::string& text) {
  return decodePlayer(text);
}
