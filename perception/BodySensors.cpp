/// SLangParser: gyroscope, accelerometer, joint angles, foot forces.
///
/// A decoder that gives an element up stores nothing of it and counts one more complaint.

#include "behaviour/Agent.h"
#include "math/Geometry.h"
#include "perception/Decoders.h"
#include "perception/Elements.h"
#include "perception/NumberReaders.h"
#include "perception/SLangParser.h"

namespace {

constexpr std::size_t kNamed = 2;   ///< tokens of "(n torso)"
constexpr std::size_t kVector = 4;  ///< tokens of "(rt x y z)"

VecPosition readVector(const TokenViews& tokens) {
  return {firstDouble(tokens[1]), firstDouble(tokens[2]), firstDouble(tokens[3])};
}

}  // namespace

int decodeGyro(std::string_view text) {
  TokenViews elements;
  if (!splitList(text, elements)) {
    return 1;
  }
  int complaints = 0;
  std::string_view name;
  VecPosition rate;
  TokenViews tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string_view element = elements[i];
    if (element.starts_with("(n")) {
      if (!splitInto(element, kNamed, tokens)) {
        return complaints + 1;
      }
      name = tokens[1];
    } else if (element.starts_with("(rt")) {
      if (!splitInto(element, kVector, tokens)) {
        return complaints + 1;
      }
      rate = readVector(tokens);
    } else {
      ++complaints;
    }
  }
  Agent::getSingleton()->gyroName = name;
  Agent::getSingleton()->gyroRate = rate;
  return complaints;
}

int decodeAcceleration(std::string_view text) {
  // Blind on purpose: the third group is the reading, in whatever element has come here.
  Pieces groups(text, '(');
  groups.next();
  groups.next();
  Pieces words(groups.next(), ' ');
  words.next();
  VecPosition reading;
  reading.x = decimalAtFront(words.next());
  reading.y = decimalAtFront(words.next());
  reading.z = decimalAtFront(words.next());
  Agent::getSingleton()->accel = reading;
  return 1;
}

int decodeHingeJoint(std::string_view text) {
  TokenViews elements;
  if (!splitList(text, elements)) {
    return 1;
  }
  int complaints = 0;
  std::string_view name;
  double value = kMissingNumber;
  TokenViews tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string_view element = elements[i];
    if (element.starts_with("(n")) {
      if (!splitInto(element, kNamed, tokens)) {
        return complaints + 1;
      }
      name = tokens[1];
    } else if (element.starts_with("(ax")) {
      if (!splitInto(element, kNamed, tokens)) {
        return complaints + 1;
      }
      value = firstDouble(tokens[1]);
    } else if (element.starts_with("(rt")) {
      // The joint's rate has no use here; only its form is looked at.
      if (!splitInto(element, kNamed, tokens)) {
        ++complaints;
      }
    } else {
      ++complaints;
    }
  }
  HingJoint* const joint = Agent::getSingleton()->findJoint(std::string(name));
  if (joint == nullptr) {
    return complaints + 1;
  }
  if (value == kMissingNumber) {
    value = 0.0;
    ++complaints;
  }
  joint->angle = value;
  return complaints;
}

int decodeFootForce(std::string_view text) {
  TokenViews elements;
  if (!splitList(text, elements)) {
    return 1;
  }
  int complaints = 0;
  std::string_view name;
  VecPosition centre = UnknownPosition;
  VecPosition force = UnknownPosition;
  TokenViews tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string_view element = elements[i];
    if (element.starts_with("(n")) {
      if (!splitInto(element, kNamed, tokens)) {
        return complaints + 1;
      }
      name = tokens[1];
    } else if (element.starts_with("(c") || element.starts_with("(f")) {
      if (!splitInto(element, kVector, tokens)) {
        return complaints + 1;
      }
      (element[1] == 'c' ? centre : force) = readVector(tokens);
    } else {
      ++complaints;
    }
  }
  Agent* const agent = Agent::getSingleton();
  if (name == "rf") {
    agent->rightFootForceCentre = centre;
    agent->rightFootForce = force;
  } else if (name == "lf") {
    agent->leftFootForceCentre = centre;
    agent->leftFootForce = force;
  }
  return complaints;
}

int SLangParser::parseGyroInfo(const std::string& text) {
  return decodeGyro(text);
}

int SLangParser::parseACCInfo(const std::string& text) {
  return decodeAcceleration(text);
}

int SLangParser::parseHingeJointInfo(const std::string& text) {
  return decodeHingeJoint(text);
}

int SLangParser::parseFRPInfo(const std::string& text) {
  return decodeFootForce(text);
}
