#include <array>
#include <cmath>

#include "tests/body/BodyTest.h"

namespace {

using StartPositions = BodyTest;

TEST_F(StartPositions, InitTellsNumberAndTeam) {
  for (int number = 1; number <= 6; ++number) {
    body.uNum = number;
    body.sendPlayerInfo();
    EXPECT_EQ(player.link.commands(),
              Commands{"(init (unum " + std::to_string(number) + ")(teamname Kolu-Otters))"});
  }
}

TEST_F(StartPositions, InitMakesTheTeamsNameKnown) {
  EXPECT_EQ(world.teamName, "");
  body.sendPlayerInfo();
  EXPECT_EQ(world.teamName, "Kolu-Otters");
}

TEST_F(StartPositions, NumberOutOfRangeIsLeftOutOfTheInit) {
  for (const int number : {0, 7, -1, 12}) {
    body.uNum = number;
    body.sendPlayerInfo();
    EXPECT_EQ(player.link.commands(), Commands{"(init (unum )(teamname Kolu-Otters))"});
  }
}

struct Beam {
  int number;
  const char* text;
  double x;  // [m] what the filter is told, which for 5 and 6 isn't what the server is told
  double y;
};

constexpr std::array<Beam, 6> kBeams{{{1, "(beam -8.6 0 -0)", -8.6, 0},
                                      {2, "(beam -6.15 -0.50 -0)", -6.15, -0.5},
                                      {3, "(beam -6.15 0.50 -0)", -6.15, 0.5},
                                      {4, "(beam -3 3 -0)", -3, 3},
                                      {5, "(beam -.28 2.0 -0)", 1.5, 0.15},
                                      {6, "(beam -.15 0.05 -0)", 1.5, -0.15}}};

TEST_F(StartPositions, EachNumberHasItsBeam) {
  for (const Beam& beam : kBeams) {
    body.uNum = beam.number;
    body.beamX = body.beamY = 99;
    body.beamAngle = 99;
    OutputCapture output;
    body.sendBeamInfo();
    EXPECT_EQ(output.text(),
              "number of distribution particles is: 400\nBEAAM " + std::string(beam.text) + "\n");
    EXPECT_EQ(player.link.commands(), Commands{beam.text});
    EXPECT_EQ(body.beamX, beam.x) << beam.number;
    EXPECT_EQ(body.beamY, beam.y) << beam.number;
    EXPECT_EQ(body.beamAngle, 0);
    EXPECT_TRUE(std::signbit(body.beamAngle)) << "a negative zero, as its text says";
  }
}

TEST_F(StartPositions, BeamSeedsTheFilterOfItsOwnNumberOnly) {
  for (const Beam& beam : kBeams) {
    body.uNum = beam.number;
    for (int i = 0; i < 12; ++i) {
      body.particleFilters[static_cast<std::size_t>(i)].distributionSet = false;
    }
    body.sendBeamInfo();
    for (int i = 0; i < 12; ++i) {
      const Particle_filtering& filter = body.particleFilters[static_cast<std::size_t>(i)];
      EXPECT_EQ(filter.distributionSet, i == beam.number - 1) << i;
    }
    const Particle_filtering& own = body.particleFilters[static_cast<std::size_t>(beam.number - 1)];
    EXPECT_EQ(own.lastPos, VecPosition(beam.x, beam.y, 0));
    EXPECT_EQ(own.currentPos, VecPosition(beam.x, beam.y, 0));
    EXPECT_EQ(own.particles[0].pos, VecPosition(beam.x, beam.y, 0));
    EXPECT_EQ(own.particles[399].pos, VecPosition(beam.x, beam.y, 0));
    EXPECT_FALSE(body.particleFilter.distributionSet);
  }
}

TEST_F(StartPositions, BeamLeavesThePlayersOwnIdeaOfItsPlaceAlone) {
  body.myPos = VecPosition(1, 2, 0);
  body.sendBeamInfo();
  EXPECT_EQ(body.myPos, VecPosition(1, 2, 0));
}

TEST_F(StartPositions, NumberBeyondTheTeamBeamsWithoutACoordinate) {
  body.uNum = 7;
  body.beamX = 1;
  body.beamY = 2;
  OutputCapture output;
  body.sendBeamInfo();
  EXPECT_EQ(output.text(), "number of distribution particles is: 400\nBEAAM (beam   -0)\n");
  EXPECT_EQ(player.link.commands(), Commands{"(beam   -0)"});
  EXPECT_EQ(body.beamX, 1);
  EXPECT_EQ(body.beamY, 2);
  EXPECT_EQ(body.particleFilters[6].lastPos, VecPosition(1, 2, 0));
}

TEST_F(StartPositions, NumberWithoutAFilterBeamsAndSeedsNone) {
  for (const int number : {0, -1, 13, 1000000}) {
    body.uNum = number;
    body.sendBeamInfo();
    EXPECT_EQ(player.link.commands(), Commands{"(beam   -0)"});
    for (std::size_t i = 0; i < 12; ++i) EXPECT_FALSE(body.particleFilters[i].distributionSet);
  }
}

struct Start {
  int number;
  double x, y;  // [m]
};

constexpr std::array<Start, 6> kStarts{
    {{1, -8.7, 0}, {2, -6, -1.5}, {3, -6, 1.5}, {4, 0, 0}, {5, 4, -1}, {6, 2, 2}}};

TEST_F(StartPositions, EachNumberHasItsStartPosition) {
  for (const Start& start : kStarts) {
    body.uNum = start.number;
    body.beamX = body.beamY = 99;
    body.setStartPos();
    EXPECT_EQ(body.beamX, start.x) << start.number;
    EXPECT_EQ(body.beamY, start.y) << start.number;
    EXPECT_EQ(player.link.bytes(), "");
  }
}

TEST_F(StartPositions, NumberOutOfRangeKeepsItsStartPosition) {
  for (const int number : {0, 7, -1, 12}) {
    body.uNum = number;
    body.beamX = 3;
    body.beamY = 4;
    body.setStartPos();
    EXPECT_EQ(body.beamX, 3);
    EXPECT_EQ(body.beamY, 4);
  }
}

TEST_F(StartPositions, NextBeamOverwritesTheStartPositionUnread) {
  world.playMode = "PlayOn";
  EXPECT_EQ(Cycle(30), Commands{""});
  EXPECT_EQ(body.beamX, -6);
  world.playMode = "BeforeKickOff";
  EXPECT_EQ(Cycle(31), Commands{"(beam -6.15 -0.50 -0)"});
  EXPECT_EQ(body.beamX, -6.15);
  EXPECT_EQ(body.particleFilters[1].lastPos, VecPosition(-6.15, -0.5, 0));
}

}  // namespace
