/// BasicAgent: saying who the player is and where it wants to stand. Everything is keyed by the
/// shirt number alone; one table serves both sides of the field.

#include <array>
#include <cstdlib>
#include <iostream>

#include "body/BasicAgent.h"
#include "perception/WorldModel.h"

namespace {

constexpr int kTeamSize = 6;
constexpr const char* kTeamName = "Kolu-Otters";
constexpr const char* kAttackDirection = "-0";  ///< [deg] straight at the goal

/// The texts go on the wire as they stand.
struct BeamRow {
  const char* x;
  const char* y;
};
constexpr std::array<BeamRow, kTeamSize> kBeams{{{"-8.6", "0"},
                                                 {"-6.15", "-0.50"},
                                                 {"-6.15", "0.50"},
                                                 {"-3", "3"},
                                                 {"-.28", "2.0"},
                                                 {"-.15", "0.05"}}};

struct Place {
  double x, y;  ///< [m]
};
constexpr std::array<Place, kTeamSize> kStartPlaces{
    {{-8.7, 0.0}, {-6.0, -1.5}, {-6.0, 1.5}, {0.0, 0.0}, {4.0, -1.0}, {2.0, 2.0}}};

bool isShirtNumber(int number) {
  return number >= 1 && number <= kTeamSize;
}

std::size_t rowOf(int shirtNumber) {
  return static_cast<std::size_t>(shirtNumber - 1);
}

}  // namespace

void BasicAgent::sendPlayerInfo() {
  WorldModel::getSingleton()->teamName = kTeamName;
  const std::string number = isShirtNumber(uNum) ? std::to_string(uNum) : "";
  sendCommand("(init (unum " + number + ")(teamname " + kTeamName + "))");
}

void BasicAgent::sendBeamInfo() {
  BeamRow row{"", ""};
  if (isShirtNumber(uNum)) {
    row = kBeams[rowOf(uNum)];
  }
  // The two forwards' filters start on another spot than the one they beam to, by design.
  if (uNum == 5) {
    beamX = 1.5;
    beamY = 0.15;
  } else if (uNum == 6) {
    beamX = 1.5;
    beamY = -0.15;
  } else if (isShirtNumber(uNum)) {
    beamX = std::strtod(row.x, nullptr);
    beamY = std::strtod(row.y, nullptr);
  }
  beamAngle = std::strtod(kAttackDirection, nullptr);
  // A number that the server shouldn't have given may have no filter.
  if (uNum >= 1 && uNum <= kFilterCount) {
    particleFilters[rowOf(uNum)].initDistribution(beamX, beamY, 0.0);
  }
  const std::string beam =
      std::string("(beam ") + row.x + " " + row.y + " " + kAttackDirection + ")";
  sendCommand(beam);
  std::cout << "BEAAM " << beam << std::endl;
}

void BasicAgent::setStartPos() {
  if (isShirtNumber(uNum)) {
    beamX = kStartPlaces[rowOf(uNum)].x;
    beamY = kStartPlaces[rowOf(uNum)].y;
  }
}
