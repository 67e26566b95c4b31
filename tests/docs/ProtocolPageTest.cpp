// docs/protocol.md against the recorded session and the code: its examples, tables and limits.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <set>
#include <sstream>
#include <string>

#include "arena/link/Effectors.h"
#include "arena/link/Frames.h"
#include "arena/link/LinkSettings.h"
#include "arena/referee/PlayMode.h"
#include "arena/senses/Landmarks.h"
#include "arena/senses/Perception.h"
#include "tests/docs/Exchange.h"
#include "tests/docs/Page.h"

namespace {

using docs::insideOf;
using docs::partsOf;
using docs::recorded;
using testing::Contains;
using testing::HasSubstr;

/// TEXT with a # for each number: its form.
std::string formOf(std::string_view text) {
  std::string form;
  for (std::size_t i = 0; i < text.size();) {
    const bool startsWord = i == 0 || text[i - 1] == ' ';
    const std::size_t end = text.find_first_of(" ()", i);
    const std::string word(text.substr(i, end == std::string_view::npos ? end : end - i));
    if (startsWord && !word.empty() &&
        word.find_first_not_of("-.0123456789") == std::string::npos) {
      form += '#';
      i += word.size();
    } else {
      form += text[i++];
    }
  }
  return form;
}

/// A match's message to a player of Kolu-Otters with everything in it.
std::string fullMessage(bool withShirt) {
  // The camera at the left goal looks along +x: right is -y.
  const arena::Frame camera{{-9, 0, 0.5}, {0, 1, 0, -1, 0, 0, 0, 0, 1}};
  arena::Snapshot shot;
  shot.cycle = arena::kCyclesPerLook;
  shot.now = 1;
  shot.clock = 1;
  shot.mode = withShirt ? arena::PlayMode::kPlayOn : arena::PlayMode::kBeforeKickOff;
  shot.teamNames = {"Kolu-Otters", "Kolu-Otters"};
  arena::Actor self;
  self.body.camera = camera;
  self.body.head = camera.position;
  self.body.leftFoot.touching = true;
  if (withShirt) self.shirt = arena::Shirt{arena::Side::kLeft, 6};
  arena::Actor other = self;
  other.shirt = arena::Shirt{arena::Side::kRight, 4};
  for (arena::Vec3* part : {&other.body.head, &other.body.rightLowerArm, &other.body.leftLowerArm,
                            &other.body.rightFootPosition, &other.body.leftFootPosition}) {
    *part = {-5, 0, 0.4};
  }
  shot.actors = {self, other};
  shot.said = {{0, "P,6,0,0"}, {1, "P,1,0,0"}};
  return arena::perceive(shot, 0, {});
}

/// The forms of all that stands in MESSAGE: of its elements, and of what is in its See element.
std::set<std::string> formsOf(const std::string& message) {
  std::set<std::string> forms;
  for (const std::string_view element : partsOf(message)) {
    if (!element.starts_with("(See")) {
      forms.insert(formOf(element));
      continue;
    }
    for (const std::string_view sight : insideOf(element)) {
      if (sight.starts_with('(')) forms.insert(formOf(sight));
    }
  }
  return forms;
}

/// Texts whose words vary: which joint, which foot, which landmark, which report.
std::string generalised(std::string form) {
  const auto replaceBetween = [&form](std::string_view before, std::string_view behind) {
    const std::size_t from = form.find(before);
    if (from == std::string::npos) return;
    const std::size_t begin = from + before.size();
    form.replace(begin, form.find(behind, begin) - begin, "*");
  };
  if (form.starts_with("(HJ") || form.starts_with("(FRP")) replaceBetween("(n ", ")");
  if (form.starts_with("(F1") || form.starts_with("(F2") || form.starts_with("(G1") ||
      form.starts_with("(G2")) {
    replaceBetween("(", " ");
  }
  if (form.starts_with("(hear # self")) replaceBetween("self ", ")");
  if (form.starts_with("(hear # #")) replaceBetween("(hear # # ", ")");
  return form;
}

TEST(ProtocolPage, EveryExampleIsOutOfTheRecordedExchange) {
  const auto standIn = [](const std::string& label, char mark) {
    std::size_t lines = 0;
    for (const docs::CodeBlock& block : docs::Page("docs/protocol.md").blocks(label)) {
      for (const std::string& line : docs::linesOf(block.text)) {
        EXPECT_THAT(recorded(mark), Contains(HasSubstr(line)));
        ++lines;
      }
    }
    return lines;
  };
  EXPECT_GE(standIn("perception", '<'), 10U);
  EXPECT_GE(standIn("effectors", '>'), 8U);
}

TEST(ProtocolPage, ThereIsAnExampleOfWhateverTheTrainingGroundWrites) {
  std::set<std::string> shown;
  for (const docs::CodeBlock& block : docs::Page("docs/protocol.md").blocks("perception")) {
    for (const std::string& line : docs::linesOf(block.text))
      shown.insert(generalised(formOf(line)));
  }
  std::set<std::string> written;
  for (const bool withShirt : {true, false}) {
    for (const std::string& form : formsOf(fullMessage(withShirt)))
      written.insert(generalised(form));
  }
  EXPECT_EQ(shown, written);
}

TEST(ProtocolPage, RecordedPerceptionsAreInTheFormOfTheTrainingGround) {
  std::set<std::string> written;
  for (const bool withShirt : {true, false}) {
    for (const std::string& form : formsOf(fullMessage(withShirt)))
      written.insert(generalised(form));
  }
  written.insert("(GS (unum #) (team left) (t #) (pm BeforeKickOff))");
  for (const std::string& text : recorded('<')) {
    for (const std::string& form : formsOf(text)) EXPECT_THAT(written, Contains(generalised(form)));
  }
}

TEST(ProtocolPage, EveryAnswerButTheFirstBeginsWithTheZeros) {
  const auto blocks = docs::Page("docs/protocol.md").blocks("effectors");
  ASSERT_GE(blocks.size(), 2U);
  const std::string zeros = docs::linesOf(blocks[1].text).at(0);
  EXPECT_EQ(partsOf(zeros).size(), 21U);
  const auto answers = recorded('>');
  for (std::size_t i = 1; i < answers.size(); ++i) {
    EXPECT_THAT(answers[i], testing::StartsWith(zeros));
  }
}

TEST(ProtocolPage, TableOfJointsIsTheRobots) {
  const auto rows = docs::Page("docs/protocol.md").table("Perceptor");
  ASSERT_EQ(rows.size(), arena::kJointCount);
  const auto shortest = [](double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text == "-0" ? "0" : text;
  };
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const arena::JointRow& joint = arena::kJoints[i];
    const docs::Row& row = rows[i];
    ASSERT_EQ(row.size(), 5U);
    EXPECT_EQ(row[0], joint.perceptor);
    EXPECT_EQ(row[1], joint.effector);
    EXPECT_EQ(row[3], shortest(joint.axis[0]) + " " + shortest(joint.axis[1]) + " " +
                          shortest(joint.axis[2]));
    EXPECT_EQ(row[4], shortest(joint.lowDeg) + " to " + shortest(joint.highDeg));
    EXPECT_EQ(row[2].starts_with("left"), joint.perceptor.starts_with("l")) << row[2];
  }
}

TEST(ProtocolPage, TableOfLandmarksIsTheFields) {
  const auto rows = docs::Page("docs/protocol.md").table("Landmark");
  ASSERT_EQ(rows.size(), arena::kLandmarks.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const arena::Landmark& landmark = arena::kLandmarks[i];
    EXPECT_EQ(rows[i][0], landmark.name);
    for (std::size_t axis = 0; axis < 3; ++axis) {
      EXPECT_DOUBLE_EQ(std::stod(rows[i][axis + 1]), landmark.position[axis]) << landmark.name;
    }
  }
}

TEST(ProtocolPage, EveryPlayModeIsSpelledAsOnTheLink) {
  std::multiset<std::string> told;
  for (const docs::Row& row : docs::Page("docs/protocol.md").table("Play mode")) {
    std::istringstream names(row[0]);
    for (std::string name; std::getline(names >> std::ws, name, ',');) told.insert(name);
  }
  EXPECT_EQ(told,
            std::multiset<std::string>(arena::kPlayModeNames.begin(), arena::kPlayModeNames.end()));
}

TEST(ProtocolPage, LimitsAreTheProgramsOwn) {
  using std::chrono::seconds;
  const std::string text = docs::Page("docs/protocol.md").text();
  const arena::LinkSettings usual;
  EXPECT_EQ(arena::kMaxPayloadBytes, 16380U);
  EXPECT_EQ(arena::kMaxMessageBytes, 16380U);
  EXPECT_THAT(text, HasSubstr("at most 16,380 bytes"));
  EXPECT_THAT(text, HasSubstr("above " + std::to_string(arena::kMaxSayBytes) + " bytes, or not"));
  EXPECT_THAT(text, HasSubstr("name above " + std::to_string(arena::kMaxTeamNameBytes) + " bytes"));
  EXPECT_THAT(text, HasSubstr("more than " + std::to_string(usual.maxSessions) + " connections"));
  EXPECT_THAT(text,
              HasSubstr("no whole frame for " + std::to_string(usual.silence / seconds(1)) + " s"));
  EXPECT_EQ(usual.maxWaitingBytes, 1024U * 1024U);
  EXPECT_THAT(text, HasSubstr("1 MiB of messages"));
  EXPECT_EQ(usual.port, 3100);
  EXPECT_THAT(text, HasSubstr("listens on port 3100"));
  EXPECT_EQ(arena::kCyclesPerLook, 3);
  EXPECT_EQ(arena::kEarshot, 50.0);
}

}  // namespace
