#include "viewer/server/Protocol.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "arena/model/BodyTable.h"

namespace arena::view {
namespace {

using nlohmann::json;

TEST(Protocol, EveryRequestIsRead) {
  EXPECT_TRUE(std::holds_alternative<Got>(*requestIn(R"({"do":"got"})")));
  EXPECT_TRUE(std::holds_alternative<Play>(*requestIn(R"({"do":"play"})")));
  EXPECT_TRUE(std::holds_alternative<Pause>(*requestIn(R"({"do":"pause"})")));
  EXPECT_TRUE(std::holds_alternative<GoLive>(*requestIn(R"({"do":"live"})")));
  EXPECT_EQ(std::get<SetSpeed>(*requestIn(R"({"do":"speed","value":0.5})")).times, 0.5);
  EXPECT_EQ(std::get<Seek>(*requestIn(R"({"do":"seek","cycle":77})")).cycle, 77);
  EXPECT_EQ(std::get<StepBy>(*requestIn(R"({"do":"step","by":-1})")).cycles, -1);
  EXPECT_EQ(std::get<WatchMinds>(*requestIn(R"({"do":"minds","slots":[0,11]})")).slots,
            (std::vector<std::size_t>{0, 11}));
}

TEST(Protocol, AnythingElseIsNoRequest) {
  for (const char* text :
       {"", "got", "[]", "{}", R"({"do":7})", R"({"do":"jump"})", R"({"do":"seek"})",
        R"({"do":"seek","cycle":"7"})", R"({"do":"seek","cycle":1.5})", R"({"do":"step"})",
        R"({"do":"speed"})", R"({"do":"speed","value":"2"})", R"({"do":"minds"})",
        R"({"do":"minds","slots":[12]})", R"({"do":"minds","slots":[-1]})",
        R"({"do":"minds","slots":[0,0,0,0,0,0,0,0,0,0,0,0,0]})", R"({"do":"got")"}) {
    EXPECT_FALSE(requestIn(text)) << text;
  }
}

TEST(Protocol, HelloHasTheWholeBody) {
  const json hello = json::parse(helloText(/*live=*/true)).at("hello");
  EXPECT_TRUE(hello.at("live").get<bool>());
  const json& links = hello.at("body").at("links");
  ASSERT_EQ(links.size(), kJointCount);
  for (std::size_t row = 0; row < kJointCount; ++row) {
    EXPECT_EQ(links[row].at("link"), kJoints[row].link);
    EXPECT_EQ(links[row].at("offset").get<Vec3>(), kJoints[row].offset);
    EXPECT_EQ(links[row].at("anchor").get<Vec3>(), kJoints[row].anchor);
    EXPECT_EQ(links[row].at("axis").get<Vec3>(), kJoints[row].axis);
    EXPECT_EQ(links[row].at("extents").get<Vec3>(), kJoints[row].extents);
    const int parent = links[row].at("parent");
    EXPECT_EQ(parent < 0 ? kTorsoName : kJoints.at(static_cast<std::size_t>(parent)).link,
              kJoints[row].parent);
  }
}

TEST(Protocol, EventsAreSentFromARowOn) {
  const std::vector<TimedEvent> events{{1, "one"}, {2, "two"}, {3, "three"}};
  EXPECT_EQ(json::parse(eventsText(events, 1)),
            json::parse(R"({"events":[[2,"two"],[3,"three"]]})"));
}

TEST(Protocol, BytesThatAreNoTextDoNotBreakAMessage) {
  const std::vector<TimedEvent> events{{1, "bad \xff\xfe bytes"}};
  EXPECT_TRUE(json::accept(eventsText(events, 0)));
}

TEST(Protocol, MindNamesWhatWasShown) {
  Mind mind;
  mind.slot = 3;
  mind.self = {Spot{1.234, -5}, 20};
  mind.action = {4, 19};
  mind.shown.landmarks[0] = true;
  mind.shown.landmarks[5] = true;
  const json out = json::parse(mindText(mind)).at("mind");
  EXPECT_EQ(out.at("shown").at("landmarks"), (json{"F1L", "G2L"}));
  EXPECT_EQ(out.at("shown").at("ball"), false);
  EXPECT_EQ(out.at("self"), (json{{"x", 1.23}, {"y", -5.0}, {"cycle", 20}}));
  EXPECT_EQ(out.at("action"), (json{{"number", 4}, {"cycle", 19}}));
  EXPECT_FALSE(out.contains("ball"));
  EXPECT_FALSE(out.contains("heading"));
}

}  // namespace
}  // namespace arena::view
