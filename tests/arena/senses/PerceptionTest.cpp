#include "arena/senses/Perception.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/arena/senses/Snapshots.h"

namespace arena {
namespace {

using test::actorAt;
using test::contains;
using test::exactSight;
using test::lookingAlongX;
using test::lookingBack;

const Shirt kLeft1{Side::kLeft, 1};
const Shirt kLeft2{Side::kLeft, 2};
const Shirt kRight3{Side::kRight, 3};

/// One player of Foo on the left, at the centre, looking along +x from 0.5 m up; the ball in the
/// left goal, out of its view.
Snapshot aloneAtTheCentre() {
  Snapshot shot;
  shot.cycle = 1;
  shot.now = 12.34;
  shot.clock = 3.5;
  shot.mode = PlayMode::kPlayOn;
  shot.teamNames = {"Foo", "Bar"};
  shot.ball.position = {-9, 0, 0.042};
  shot.actors.push_back(actorAt(0, 0, kLeft1, lookingAlongX({0, 0, 0.5})));
  return shot;
}

/// The same, with one more player two metres in front.
Snapshot facing(const Shirt& other) {
  Snapshot shot = aloneAtTheCentre();
  shot.cycle = 3;
  shot.actors.push_back(actorAt(2, 0, other, lookingBack({2, 0, 0.5})));
  return shot;
}

TEST(Perception, ElementsComeInTheirOrderWithTwoDecimals) {
  Snapshot shot = aloneAtTheCentre();
  shot.cycle = 3;
  RobotState& body = shot.actors[0].body;
  body.gyroDegPerSec = {0.01, 0.07, 0.459};
  body.accelerometer = {0, -0.004, 9.81};
  for (std::size_t i = 0; i < kJointCount; ++i) {
    body.jointAngleDeg[i] = static_cast<double>(i) - 1.02;
  }
  body.leftFoot = {true, {0.01, 0.02, -0.03}, {1.2, 3.4, 22.1}};
  body.rightFoot = {true, {0, 0, -0.01}, {0, 0, 20}};
  shot.said.push_back({0, "hi"});
  EXPECT_EQ(perceive(shot, 0, exactSight()),
            "(time (now 12.34))(GS (unum 1) (team left) (t 3.50) (pm PlayOn))"
            "(GYR (n torso) (rt 0.01 0.07 0.46))(ACC (n torso) (a 0.00 0.00 9.81))"
            "(HJ (n hj1) (ax -1.02))(HJ (n hj2) (ax -0.02))(HJ (n laj1) (ax 0.98))"
            "(HJ (n raj1) (ax 1.98))(HJ (n laj2) (ax 2.98))(HJ (n raj2) (ax 3.98))"
            "(HJ (n laj3) (ax 4.98))(HJ (n raj3) (ax 5.98))(HJ (n laj4) (ax 6.98))"
            "(HJ (n raj4) (ax 7.98))(HJ (n llj1) (ax 8.98))(HJ (n rlj1) (ax 9.98))"
            "(HJ (n llj2) (ax 10.98))(HJ (n rlj2) (ax 11.98))(HJ (n llj3) (ax 12.98))"
            "(HJ (n rlj3) (ax 13.98))(HJ (n llj4) (ax 14.98))(HJ (n rlj4) (ax 15.98))"
            "(HJ (n llj5) (ax 16.98))(HJ (n rlj5) (ax 17.98))(HJ (n llj6) (ax 18.98))"
            "(HJ (n rlj6) (ax 19.98))"
            "(FRP (n lf) (c 0.01 0.02 -0.03) (f 1.20 3.40 22.10))"
            "(FRP (n rf) (c 0.00 0.00 -0.01) (f 0.00 0.00 20.00))"
            // Corners: sqrt(81 + 36 + 0.25), atan(6/9), atan(-0.5/sqrt(117)). Posts: sqrt(81
            // + 1.1025 + 0.09), atan(1.05/9), atan(0.3/sqrt(82.1025)).
            "(See (F1R (pol 10.83 33.69 -2.65)) (F2R (pol 10.83 -33.69 -2.65))"
            " (G1R (pol 9.07 6.65 1.90)) (G2R (pol 9.07 -6.65 1.90)))"
            "(hear 12.34 self hi)");
}

TEST(Perception, ShirtAndSideComeOnlyAfterInit) {
  Snapshot shot = aloneAtTheCentre();
  shot.actors[0].shirt.reset();
  const std::string message = perceive(shot, 0, exactSight());
  EXPECT_TRUE(contains(message, "(GS (t 3.50) (pm PlayOn))"));
  EXPECT_FALSE(contains(message, "unum"));
  EXPECT_FALSE(contains(message, "team"));
}

TEST(Perception, RightTeamIsToldSo) {
  Snapshot shot = aloneAtTheCentre();
  shot.actors[0].shirt = kRight3;
  EXPECT_TRUE(contains(perceive(shot, 0, exactSight()), "(GS (unum 3) (team right) "));
}

TEST(Perception, AFootInTheAirHasNoForceElement) {
  Snapshot shot = aloneAtTheCentre();
  shot.actors[0].body.rightFoot.touching = true;
  std::string message = perceive(shot, 0, exactSight());
  EXPECT_FALSE(contains(message, "(n lf)"));
  EXPECT_TRUE(contains(message, "(FRP (n rf) "));
  shot.actors[0].body.rightFoot.touching = false;
  EXPECT_FALSE(contains(perceive(shot, 0, exactSight()), "FRP"));
}

TEST(Perception, SightComesInEveryThirdCycle) {
  Snapshot shot = aloneAtTheCentre();
  for (long cycle = 1; cycle <= 12; ++cycle) {
    shot.cycle = cycle;
    EXPECT_EQ(contains(perceive(shot, 0, exactSight()), "(See"),
              cycle == 3 || cycle == 6 || cycle == 9 || cycle == 12)
        << cycle;
  }
}

TEST(Perception, ALookAtNothingIsStillALook) {
  Snapshot shot = aloneAtTheCentre();
  shot.cycle = 3;
  shot.ball.position = {-1, 0, 0};
  shot.actors[0].body.camera = lookingAlongX({20, 0, 0.5});
  EXPECT_TRUE(contains(perceive(shot, 0, exactSight()), "(See)"));
}

TEST(Perception, BallStandsBehindTheLandmarks) {
  Snapshot shot = aloneAtTheCentre();
  shot.cycle = 3;
  shot.ball.position = {3, 3, 0.5};
  EXPECT_TRUE(contains(perceive(shot, 0, exactSight()), "1.90)) (B (pol 4.24 45.00 0.00)))"));
}

TEST(Perception, APlayerIsSpacedExactly) {
  // Two metres off; the parts lie 0, 0.1, 0.2, 0.4 and 0.3 m below the camera.
  EXPECT_TRUE(contains(perceive(facing(kRight3), 0, exactSight()),
                       " (P (team Bar) (id 3) (head (pol 2.00 0.00 0.00))"
                       " (rlowerarm (pol 2.00 0.00 -2.86)) (llowerarm (pol 2.01 0.00 -5.71))"
                       " (rfoot (pol 2.04 0.00 -11.31)) (lfoot (pol 2.02 0.00 -8.53))))"));
}

TEST(Perception, PartsOutOfViewAreLeftOut) {
  Snapshot shot = facing(kRight3);
  shot.actors[1].body.head = {2, 0, 9};
  shot.actors[1].body.leftFootPosition = {-2, 0, 0};
  const std::string message = perceive(shot, 0, exactSight());
  EXPECT_TRUE(contains(message, "(P (team Bar) (id 3) (rlowerarm (pol 2.00 0.00 -2.86)) (llower"));
  EXPECT_FALSE(contains(message, "(head"));
  EXPECT_FALSE(contains(message, "(lfoot"));
}

TEST(Perception, APlayerWithNoPartInViewIsNotSeen) {
  Snapshot shot = facing(kRight3);
  shot.actors[0].body.camera = lookingBack({0, 0, 0.5});
  EXPECT_FALSE(contains(perceive(shot, 0, exactSight()), "(P "));
}

TEST(Perception, NobodySeesItselfOrAPlayerWithoutAShirt) {
  Snapshot shot = facing(kRight3);
  EXPECT_FALSE(contains(perceive(shot, 0, exactSight()), "(team Foo)"));
  shot.actors[1].shirt.reset();
  EXPECT_FALSE(contains(perceive(shot, 0, exactSight()), "(P "));
}

TEST(Perception, ATeamThatPlaysItselfIsTheAwayTeamToEitherSide) {
  Snapshot shot = facing(kRight3);
  shot.teamNames = {"Foo", "Foo"};
  EXPECT_TRUE(contains(perceive(shot, 0, exactSight()), "(P (team Foo_away) (id 3) "));
  EXPECT_TRUE(contains(perceive(shot, 1, exactSight()), "(P (team Foo_away) (id 1) "));
  shot.actors[1].shirt = kLeft2;
  EXPECT_TRUE(contains(perceive(shot, 0, exactSight()), "(P (team Foo) (id 2) "));
}

TEST(Perception, AVoiceComesFromItsDirection) {
  Snapshot shot = facing(kRight3);
  shot.cycle = 1;
  shot.actors[1].body.head = {1, -1, 0.5};
  shot.said.push_back({1, "P,3,1,-1"});
  EXPECT_TRUE(contains(perceive(shot, 0, exactSight()), "(hear 12.34 -45.00 P,3,1,-1)"));
  EXPECT_TRUE(contains(perceive(shot, 1, exactSight()), "(hear 12.34 self P,3,1,-1)"));
}

TEST(Perception, AVoiceCarriesFiftyMetres) {
  Snapshot shot = facing(kRight3);
  shot.said.push_back({1, "word"});
  shot.actors[1].body.head = {50, 0, 0.5};
  EXPECT_TRUE(contains(perceive(shot, 0, exactSight()), "(hear 12.34 0.00 word)"));
  shot.actors[1].body.head = {50.01, 0, 0.5};
  EXPECT_FALSE(contains(perceive(shot, 0, exactSight()), "hear"));
}

TEST(Perception, EverySpeakerOfACycleIsHeard) {
  Snapshot shot = facing(kRight3);
  shot.said = {{0, "one"}, {1, "two"}};
  EXPECT_TRUE(
      contains(perceive(shot, 0, exactSight()), "(hear 12.34 self one)(hear 12.34 0.00 two)"));
}

TEST(Perception, NoiseIsTheSameForTheSameSeedAndOtherForAnother) {
  const Snapshot shot = facing(kRight3);
  SenseSettings settings;
  settings.seed = 5;
  const std::string message = perceive(shot, 0, settings);
  EXPECT_EQ(perceive(shot, 0, settings), message);
  settings.seed = 6;
  EXPECT_NE(perceive(shot, 0, settings), message);
  EXPECT_NE(message, perceive(shot, 0, exactSight()));
}

TEST(Perception, NoiseGoesByShirtAndNotByPlaceInTheWorld) {
  Snapshot shot = facing(kRight3);
  const std::string message = perceive(shot, 0, SenseSettings{});
  shot.actors[0].slot = 7;
  EXPECT_EQ(perceive(shot, 0, SenseSettings{}), message);
  std::swap(shot.actors[0], shot.actors[1]);
  EXPECT_EQ(perceive(shot, 1, SenseSettings{}), message);
}

TEST(Perception, AFrameNeverGrowsOverTheLimit) {
  Snapshot shot = facing(kRight3);
  // Longer than the link lets any player say, so that the limit is met.
  for (std::size_t i = 0; i < 2; ++i) shot.said.push_back({i, std::string(9000, 'x')});
  const std::string message = perceive(shot, 0, exactSight());
  EXPECT_LE(message.size(), kMaxMessageBytes);
  EXPECT_TRUE(contains(message, "self x"));
  EXPECT_EQ(std::count(message.begin(), message.end(), '('),
            std::count(message.begin(), message.end(), ')'));

  shot.said.clear();
  shot.teamNames[1] = std::string(9000, 'x');
  shot.actors.push_back(shot.actors[1]);
  const std::string crowded = perceive(shot, 0, exactSight());
  EXPECT_LE(crowded.size(), kMaxMessageBytes);
  EXPECT_TRUE(contains(crowded, "(P (team xxx"));
  EXPECT_EQ(std::count(crowded.begin(), crowded.end(), '('),
            std::count(crowded.begin(), crowded.end(), ')'));
}

TEST(Perception, AFullFieldThatAllTalksFitsInAFrame) {
  Snapshot shot = aloneAtTheCentre();
  shot.cycle = 3;
  shot.teamNames = {std::string(32, 'F'), std::string(32, 'B')};
  shot.ball.position = {5, 0, 0.042};
  for (int i = 1; i < 12; ++i) {
    const Shirt shirt{i < 6 ? Side::kLeft : Side::kRight, i % 6 + 1};
    shot.actors.push_back(actorAt(8, -4.5 + 0.75 * i, shirt, lookingBack({8, 0, 0.5})));
  }
  for (std::size_t i = 0; i < 12; ++i) shot.said.push_back({i, std::string(64, 'x')});
  const std::string message = perceive(shot, 0, exactSight());
  EXPECT_LT(message.size(), kMaxMessageBytes / 2);
  std::size_t players = 0;
  for (std::size_t at = message.find("(P "); at != std::string::npos;
       at = message.find("(P ", at + 1)) {
    ++players;
  }
  EXPECT_EQ(players, 11U);
}

}  // namespace
}  // namespace arena
