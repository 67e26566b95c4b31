#include "viewer/server/Viewer.h"

#include <gtest/gtest.h>

#include <boost/asio/error.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/TempDir.h"
#include "tests/viewer/StagedMatch.h"
#include "tests/viewer/WatchClient.h"

namespace arena::view {
namespace {

using nlohmann::json;
using test::fetch;
using test::StagedMatch;
using test::WatchClient;

ViewSettings anyPort() {
  ViewSettings settings;
  settings.port = 0;
  settings.places.pageFolder = PITCH_SOURCE_DIR "/viewer/page";
  return settings;
}

Timeline recordOf(long cycles) {
  StagedMatch match;
  Timeline timeline;
  while (match.last().cycle < cycles) timeline.add(match.advance());
  return timeline;
}

/// What a connection to that place ends with; no error: somebody listens there.
boost::system::error_code connects(const char* address, std::uint16_t port) {
  boost::asio::io_context io{1};
  boost::asio::ip::tcp::socket socket(io);
  boost::system::error_code error;
  socket.connect({boost::asio::ip::make_address(address), port}, error);
  return error;
}

// ---- the door

TEST(ViewerDoor, ServesThePageAndItsFiles) {
  const Viewer viewer(anyPort());
  EXPECT_EQ(viewer.fault(), std::nullopt);
  const auto page = fetch(viewer.port(), "/");
  EXPECT_EQ(page.status, 200);
  EXPECT_EQ(page.type, "text/html; charset=utf-8");
  EXPECT_NE(page.body.find("<title>pitcharena</title>"), std::string::npos);
  EXPECT_NE(page.policy.find("default-src 'none'"), std::string::npos);
  const auto three = fetch(viewer.port(), "/three.module.js");
  EXPECT_EQ(three.status, 200);
  EXPECT_EQ(three.type, "text/javascript; charset=utf-8");
}

TEST(ViewerDoor, ServesNoFileOutsideItsList) {
  const Viewer viewer(anyPort());
  for (const char* target : {"/README.md", "/../server/Viewer.h", "/index.html", "/etc/passwd",
                             "//", "/%2e%2e/README.md", "/style.css?x", "/main.js/", "*"}) {
    EXPECT_EQ(fetch(viewer.port(), target).status, 404) << target;
  }
}

TEST(ViewerDoor, RefusesAForeignHost) {
  const Viewer viewer(anyPort());
  const std::string port = ":" + std::to_string(viewer.port());
  for (const std::string& host :
       std::vector<std::string>{"example.org", "example.org" + port, "127.0.0.1", "127.0.0.1:1",
                                "localhost.example.org" + port, "10.0.0.1" + port, ""}) {
    EXPECT_EQ(fetch(viewer.port(), "/", {{"Host", host}}).status, 403) << host;
  }
  EXPECT_EQ(fetch(viewer.port(), "/", {{"Host", "localhost" + port}}).status, 200);
}

TEST(ViewerDoor, RefusesAForeignOrigin) {
  const Viewer viewer(anyPort());
  const std::string port = ":" + std::to_string(viewer.port());
  for (const std::string& origin : std::vector<std::string>{
           "http://example.org", "null", "https://127.0.0.1" + port, "http://127.0.0.1:1"}) {
    EXPECT_EQ(fetch(viewer.port(), "/", {{"Origin", origin}}).status, 403) << origin;
    EXPECT_THROW(WatchClient(viewer.port(), {}, origin), boost::system::system_error) << origin;
  }
  EXPECT_THROW(WatchClient(viewer.port(), "example.org"), boost::system::system_error);
  WatchClient welcome(viewer.port(), {}, "http://127.0.0.1" + port);
  welcome.readUntil([&] { return welcome.last("hello").is_object(); });
}

TEST(ViewerDoor, AnswersOnlyGetAndHead) {
  const Viewer viewer(anyPort());
  EXPECT_EQ(fetch(viewer.port(), "/", {}, "DELETE").status, 405);
  const auto head = fetch(viewer.port(), "/", {}, "HEAD");
  EXPECT_EQ(head.status, 200);
  EXPECT_TRUE(head.body.empty());
}

TEST(ViewerDoor, ListensOnOneLoopbackAddressAlone) {
  const Viewer viewer(anyPort());
  EXPECT_EQ(viewer.address(), "http://127.0.0.1:" + std::to_string(viewer.port()) + "/");
  EXPECT_FALSE(connects("127.0.0.1", viewer.port()));
  // Another address of this machine: whoever listens on all of them answers there too.
  EXPECT_EQ(connects("127.0.0.2", viewer.port()), boost::asio::error::connection_refused);
  ViewSettings same;
  same.port = viewer.port();
  EXPECT_THROW(Viewer{same}, ViewError);
}

TEST(ViewerDoor, SaysWhatIsMissing) {
  ViewSettings settings = anyPort();
  settings.places.threeModule = "/nowhere/three.module.js";
  const Viewer viewer(settings);
  ASSERT_TRUE(viewer.fault());
  EXPECT_NE(viewer.fault()->find("libjs-three"), std::string::npos);
  EXPECT_EQ(fetch(viewer.port(), "/three.module.js").status, 404);
}

TEST(ViewerDoor, HeaderThatIsTooLongEndsItsConnection) {
  const Viewer viewer(anyPort());
  EXPECT_EQ(fetch(viewer.port(), "/", {{"X-Long", std::string(4000, 'x')}}).status, 200);
  EXPECT_THROW(fetch(viewer.port(), "/", {{"X-Long", std::string(9000, 'x')}}),
               boost::system::system_error);
  EXPECT_EQ(fetch(viewer.port(), "/").status, 200);
}

TEST(ViewerDoor, PeerThatNeverEndsItsRequestHoldsUpNobody) {
  const Viewer viewer(anyPort());
  boost::asio::io_context io{1};
  boost::asio::ip::tcp::socket peer(io);
  peer.connect({boost::asio::ip::address_v4::loopback(), viewer.port()});
  boost::asio::write(peer, boost::asio::buffer(std::string("GET / HTTP/1.1\r\nHost: ")));
  EXPECT_EQ(fetch(viewer.port(), "/").status, 200);
}

// ---- the stream

TEST(ViewerStream, LiveMatchReachesThePage) {
  Viewer viewer(anyPort());
  WatchClient page(viewer.port());
  StagedMatch match;
  while (match.last().cycle < 10) viewer.show(match.advance());
  page.readUntil([&] { return page.frame().cycle == 10; });
  EXPECT_EQ(page.frame().players, 12);
  EXPECT_TRUE(page.last("hello").at("live").get<bool>());
  EXPECT_EQ(page.last("teams"), (json{"Otters", "Herons"}));
  EXPECT_EQ(page.last("time").at("pace"), "live");
  EXPECT_FALSE(page.events().empty());
}

TEST(ViewerStream, RecordPlaysSeeksAndSteps) {
  const Viewer viewer(anyPort(), recordOf(300));
  WatchClient page(viewer.port());
  page.readUntil([&] { return page.frames() >= 3; });
  EXPECT_LT(page.frame().cycle, 290);
  page.send({{"do", "pause"}});
  page.send({{"do", "seek"}, {"cycle", 250}});
  page.readUntil([&] { return page.frame().cycle == 250; });
  page.send({{"do", "step"}, {"by", -1}});
  page.readUntil([&] { return page.frame().cycle == 249; });
  page.send({{"do", "step"}, {"by", 2}});
  page.readUntil([&] { return page.frame().cycle == 251; });
  page.readUntil([&] { return page.last("time").at("pace") == "paused"; });
  page.send({{"do", "play"}});
  page.readUntil([&] { return page.frame().cycle == 300; });
  page.readUntil([&] { return page.last("time").at("pace") == "paused"; });
}

TEST(ViewerStream, PageThatComesLateSeesTheLastMinute) {
  Viewer viewer(anyPort());
  StagedMatch match;
  while (match.last().cycle < 40) viewer.show(match.advance());
  WatchClient page(viewer.port());
  page.readUntil([&] { return page.frame().cycle == 40; });
  page.send({{"do", "pause"}});
  page.send({{"do", "seek"}, {"cycle", 5}});
  page.readUntil([&] { return page.frame().cycle == 5; });
}

TEST(ViewerStream, SlowPageSkipsAndOthersGoOn) {
  Viewer viewer(anyPort());
  WatchClient slow(viewer.port());
  WatchClient quick(viewer.port());
  StagedMatch match;
  viewer.show(match.advance());
  // It reads but never says "got": as a page that hangs, only without the time it takes.
  while (slow.frames() < 1) slow.read(/*acknowledge=*/false);
  while (match.last().cycle < 60) {
    viewer.show(match.advance());
    const long shown = match.last().cycle;
    quick.readUntil([&] { return quick.frame().cycle == shown; });
    slow.read(false);
    if (slow.frames() == 6) break;
  }
  while (match.last().cycle < 100) {
    viewer.show(match.advance());
    const long shown = match.last().cycle;
    quick.readUntil([&] { return quick.frame().cycle == shown; });
  }
  const long before = slow.frame().cycle;
  EXPECT_LE(before, 60);
  EXPECT_EQ(slow.frames(), 6);
  slow.send({{"do", "got"}});
  while (slow.frames() == 6) slow.read(false);
  EXPECT_EQ(slow.frame().cycle, 100);  // what lay between was never sent
}

TEST(ViewerStream, MindsAreSentForThoseAskedFor) {
  const Viewer viewer(anyPort(), recordOf(200));
  WatchClient page(viewer.port());
  page.send({{"do", "pause"}});
  page.send({{"do", "seek"}, {"cycle", 199}});
  page.send({{"do", "minds"}, {"slots", {8}}});
  page.readUntil([&] {
    const json mind = page.last("mind");
    return mind.is_object() && mind.at("cycle") == 199;
  });
  const json mind = page.last("mind");
  EXPECT_EQ(mind.at("slot"), 8);
  EXPECT_TRUE(mind.contains("self"));
  EXPECT_EQ(mind.at("action").at("number"), 4);
}

TEST(ViewerStream, NonsenseFromAPageChangesNothing) {
  const Viewer viewer(anyPort(), recordOf(60));
  WatchClient page(viewer.port());
  page.send(json::array({1, 2}));
  page.send({{"do", "seek"}, {"cycle", "x"}});
  page.send({{"do", "minds"}, {"slots", {99}}});
  page.readUntil([&] { return page.frame().cycle == 60; });
}

TEST(ViewerStream, RequestThatIsTooLongEndsThatPageAlone) {
  const Viewer viewer(anyPort(), recordOf(60));
  WatchClient greedy(viewer.port());
  WatchClient other(viewer.port());
  greedy.send({{"do", std::string(2000, 'x')}});
  const auto readOn = [&greedy] {
    while (greedy.frame().cycle < 60) greedy.read();
  };
  EXPECT_THROW(readOn(), boost::system::system_error);
  other.readUntil([&] { return other.frame().cycle == 60; });
}

TEST(ViewerStream, PagesBeyondTheMostAreTurnedAway) {
  Viewer viewer(anyPort());
  std::vector<std::unique_ptr<WatchClient>> pages;
  while (pages.size() < kMostPages) pages.push_back(std::make_unique<WatchClient>(viewer.port()));
  EXPECT_THROW(WatchClient{viewer.port()}, boost::system::system_error);
  StagedMatch match;
  viewer.show(match.advance());
  for (const auto& page : pages) page->readUntil([&] { return page->frame().cycle == 1; });

  // Who leaves makes room, as soon as the viewer has noticed.
  pages.pop_back();
  const auto deadline = std::chrono::steady_clock::now() + test::kPatience;
  bool letIn = false;
  while (!letIn && std::chrono::steady_clock::now() < deadline) {
    try {
      const WatchClient next(viewer.port());
      letIn = true;
    } catch (const boost::system::system_error&) {
      std::this_thread::yield();
    }
  }
  EXPECT_TRUE(letIn);
}

// At four times the speed there are 200 cycles a second to show, and all minds are asked for.
TEST(ViewerStream, PageGetsLessThanAHundredKilobytesASecond) {
  const Viewer viewer(anyPort(), recordOf(400));
  WatchClient page(viewer.port());
  page.send({{"do", "speed"}, {"value", 4}});
  page.send({{"do", "minds"}, {"slots", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}}});
  page.readUntil([&] { return page.frames() >= 1; });
  const auto start = std::chrono::steady_clock::now();
  const std::size_t before = page.bytes();
  page.readUntil([&] { return page.frame().cycle == 400; });
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  EXPECT_TRUE(page.last("mind").is_object());
  EXPECT_LT(static_cast<double>(page.bytes() - before) / took.count(), 100'000);
}

TEST(ViewerStream, PagesComeAndGo) {
  Viewer viewer(anyPort());
  StagedMatch match;
  for (int i = 0; i < 40; ++i) {
    WatchClient page(viewer.port());
    viewer.show(match.advance());
    const long shown = match.last().cycle;
    page.readUntil([&] { return page.frame().cycle == shown; });
  }
}

}  // namespace
}  // namespace arena::view
