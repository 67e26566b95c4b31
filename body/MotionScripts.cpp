/// BasicAgent: the two readers of motion scripts. A script is a run of pairs of a word and a
/// number; a word that a reader doesn't know is skipped with its number.

#include <array>
#include <iostream>
#include <istream>
#include <string>
#include <string_view>

#include "body/BasicAgent.h"
#include "perception/WorldModel.h"

namespace {

using Setter = void (BasicAgent::*)(long double);

struct Keyword {
  std::string_view word;
  Setter setter;
};

using B = BasicAgent;

constexpr std::array<Keyword, 14> kActionKeywords{{
    {"LShoulderPitchCommand", &B::LShoulderPitchCommand},
    {"RShoulderPitchCommand", &B::RShoulderPitchCommand},
    {"RHipPitchCommand", &B::RHipPitchCommand},
    {"LHipPitchCommand", &B::LHipPitchCommand},
    {"RKneePitchCommand", &B::RKneePitchCommand},
    {"LKneePitchCommand", &B::LKneePitchCommand},
    {"RAnklePitchCommand", &B::RAnklePitchCommand},
    {"LAnklePitchCommand", &B::LAnklePitchCommand},
    {"LHipRollCommand", &B::LHipRollCommand},
    {"RHipRollCommand", &B::RHipRollCommand},
    {"LHipYawPitchCommand", &B::LHipYawPitchCommand},
    {"RHipYawPitchCommand", &B::RHipYawPitchCommand},
    {"RAnkleRollCommand", &B::RAnkleRollCommand},
    {"LAnkleRollCommand", &B::LAnkleRollCommand},
}};

constexpr std::array<Keyword, 20> kPoseKeywords{{
    {"LSP", &B::LShoulderPitchCommand}, {"RSP", &B::RShoulderPitchCommand},
    {"LSR", &B::LShoulderRollCommand},  {"RSR", &B::RShoulderRollCommand},
    {"RHP", &B::RHipPitchCommand},      {"LHP", &B::LHipPitchCommand},
    {"RKP", &B::RKneePitchCommand},     {"LKP", &B::LKneePitchCommand},
    {"LHR", &B::LHipRollCommand},       {"RHR", &B::RHipRollCommand},
    {"LHY", &B::LHipYawPitchCommand},   {"RHY", &B::RHipYawPitchCommand},
    {"RAP", &B::RAnklePitchCommand},    {"LAP", &B::LAnklePitchCommand},
    {"RAR", &B::RAnkleRollCommand},     {"LAR", &B::LAnkleRollCommand},
    {"RER", &B::RElbowRollCommand},     {"REY", &B::RElbowYawCommand},
    {"LER", &B::LElbowRollCommand},     {"LEY", &B::LElbowYawCommand},
}};

constexpr std::string_view kEndOfActionBlock = "move";
constexpr std::string_view kEndOfPose = "MOVE";
constexpr double kActionBlockSeconds = 0.04;
/// No block is read in this many cycles after a pose script, which needs them to settle.
constexpr int kPoseRest = 29;

template <std::size_t N>
void applyKeyword(BasicAgent& agent, const std::array<Keyword, N>& keywords,
                  const std::string& word, double number) {
  for (const Keyword& keyword : keywords) {
    if (keyword.word == word) {
      (agent.*keyword.setter)(number);
      return;
    }
  }
}

/// A number that can't be read counts as 0, and the stream fails at the next word.
double readNumber(std::istream& in) {
  double number = 0.0;
  return in >> number ? number : 0.0;
}

}  // namespace

void BasicAgent::loadMoveFromFile() {
  if (slowFunction != 0 || lastLoadTime + kPoseRest >= WorldModel::getSingleton()->cycle ||
      bodyState != 0) {
    return;
  }
  Kp = 0.14;
  Ki = 0.5;
  Kd = 0.0;
  std::string word;
  while (myACtionFile >> word) {
    const double number = readNumber(myACtionFile);
    if (word == kEndOfActionBlock) {
      initMove(kActionBlockSeconds);
      return;
    }
    applyKeyword(*this, kActionKeywords, word, number);
    word.clear();
  }
  std::cout << actionName << "  Clooooooooooooooooooooooooooooooosed\n";
  actionFileOpen = false;
  myACtionFile.close();
}

bool BasicAgent::loadMoveFromFile(const char* fileName) {
  if (myACtionFile.is_open()) {
    std::cout << "loadmovefromFile1 says: myACtionFile is open: " << actionName << std::endl;
  }
  lastLoadTime = WorldModel::getSingleton()->cycle;
  Kp = 1.0;
  Ki = 0.0;
  Kd = 0.0;
  // One letter decides: it gives the get-up poses, back and front, the firm gains.
  if (fileName[0] == 'b' || fileName[0] == 'f') {
    Kp = 1.53;
    Ki = 0.002;
    Kd = 0.0098;
  }
  moveFile.open(fileName);
  std::string word;
  while (moveFile >> word) {
    const double number = readNumber(moveFile);
    if (word == kEndOfPose) {
      initMove(number);
      break;
    }
    applyKeyword(*this, kPoseKeywords, word, number);
    word.clear();
  }
  moveFile.close();
  return true;
}
