/// SLangParser: gyroscope, accelerometer, joint angles, foot forces.
///
/// A decoder that gives an element up stores nothing of it and counts one more complaint.

#include "perception/SLangParser.h"

#include <cstdlib>

#include "behaviour/Agent.h"
#include "math/Geometry.h"
#include "perception/Elements.h"
#include "perception/Tokenizer.h"

namespace {

constexpr std::size_t kNamed = 2;   ///< tokens of "(n torso)"
constexpr std::size_t kVector = 4;  ///< tokens of "(rt x y z)"

VecPosition readVector(const std::vector<std::string>& tokens) {
  return {SLangParser::parseFirstDouble(tokens[1]), SLangParser::parseFirstDouble(tokens[2]),
          SLangParser::parseFirstDouble(tokens[3])};
}

}  // namespace

int SLangParser::parseGyroInfo(const std::string& text) {
  std::vector<std::string> elements;
  if (!parseSExpression(text, elements)) {
    return 1;
  }
  int complaints = 0;
  std::string name;
  VecPosition rate;
  std::vector<std::string> tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string& element = elements[i];
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

int SLangParser::parseACCInfo(const std::string& text) {
  // Blind on purpose: the third group is the reading, in whatever element has come here.
  Tokenizer groups(text, "(");
  groups.next();
  groups.next();
  Tokenizer words(groups.next(), " ");
  words.next();
  VecPosition reading;
  reading.x = std::strtod(words.next().c_str(), nullptr);
  reading.y = std::strtod(words.next().c_str(), nullptr);
  reading.z = std::strtod(words.next().c_str(), nullptr);
  Agent::getSingleton()->accel = reading;
  return 1;
}

int SLangParser::parseHingeJointInfo(const std::string& text) {
  std::vector<std::string> elements;
  if (!parseSExpression(text, elements)) {
    return 1;
  }
  int complaints = 0;
  std::string name;
  double value = kMissingNumber;
  std::vector<std::string> tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string& element = elements[i];
    if (element.starts_with("(n")) {
      if (!splitInto(element, kNamed, tokens)) {
        return complaints + 1;
      }
      name = tokens[1];
    } else if (element.starts_with("(ax")) {
      if (!splitInto(element, kNamed, tokens)) {
        return complaints + 1;
      }
      value = parseFirstDouble(tokens[1]);
    } else if (element.starts_with("(rt")) {
      // The joint's rate has no use here; only its form is looked at.
      if (!splitInto(element, kNamed, tokens)) {
        ++complaints;
      }
    } else {
      ++complaints;
    }
  }
  HingJoint* const joint = Agent::getSingleton()->findJoint(name);
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

int SLangParser::parseFRPInfo(const std::string& text) {
  std::vector<std::string> elements;
  if (!parseSExpression(text, elements)) {
    return 1;
  }
  int complaints = 0;
  std::string name;
  VecPosition centre = UnknownPosition;
  VecPosition force = UnknownPosition;
  std::vector<std::string> tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string& element = elements[i];
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
