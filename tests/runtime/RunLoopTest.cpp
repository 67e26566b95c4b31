#include "runtime/RunLoop.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "behaviour/Agent.h"
#include "net/TCPSocket.h"
#include "perception/WorldModel.h"
#include "runtime/Connection.h"
#include "tests/net/Loopback.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/OutputCapture.h"

namespace {

using Texts = std::vector<std::string>;

class RunLoop : public ::testing::Test {
 protected:
  FreshPlayer player{3};
};

TEST_F(RunLoop, InterruptEndsTheLoopAndNothingElseDoes) {
  for (const int signal : {SIGTERM, SIGHUP, SIGPIPE, 0}) {
    handler(signal);
    EXPECT_TRUE(player.agent().keepRunning) << signal;
  }
  handler(SIGINT);
  EXPECT_FALSE(player.agent().keepRunning);
}

TEST_F(RunLoop, InterruptBeforeAnythingElseMakesThePlayer) {
  Agent::freeSingleton();
  handler(SIGTERM);
  EXPECT_EQ(Agent::m_Instance, nullptr);
  handler(SIGINT);
  ASSERT_NE(Agent::m_Instance, nullptr);
  EXPECT_FALSE(Agent::m_Instance->keepRunning);
}

TEST_F(RunLoop, EndedLoopReadsNothing) {
  player.link.deliver("(time (now 0.02))");
  player.agent().keepRunning = false;
  run();
  EXPECT_EQ(player.link.frames(), Texts{});
  EXPECT_EQ(player.world().cycle, 0);
}

TEST_F(RunLoop, SceneRequestGoesOutAsItIs) {
  initAgent();
  EXPECT_EQ(player.link.frames(), Texts{"(scene rsg/agent/nao/nao.rsg)"});
}

TEST_F(RunLoop, PlayerInfoHasASecondDoor) {
  initPlayerInfo();
  EXPECT_EQ(player.link.commands(), Texts{"(init (unum 3)(teamname Kolu-Otters))"});
}

TEST_F(RunLoop, PutMessageFramesOneText) {
  PutMessage("(a)");
  PutMessage("");
  PutMessage("b");
  EXPECT_EQ(player.link.frames(), (Texts{"(a)", "b"}));
}

TEST_F(RunLoop, GetMessageHandsOutTheWrappedTextAndAlwaysSaysOne) {
  player.link.deliver("(a) (b)");
  std::string text;
  EXPECT_EQ(GetMSG(text), 1);
  EXPECT_EQ(text, "((a) (b))");
}

TEST_F(RunLoop, GreetingIsOneLineThatBeginsWithTheBanner) {
  OutputCapture output;
  PrintGreeting();
  const std::string text = output.text();
  EXPECT_TRUE(text.starts_with("Kolu_Otters "));
  EXPECT_GT(text.size(), std::string("Kolu_Otters \n").size()) << "a notice of authorship follows";
  EXPECT_EQ(text.find('\n'), text.size() - 1);
}

// Without the fixture, whose link is connected already.
TEST(RunLoopLink, BeginningOfTheConnectionLeadsToTheServer) {
  rcss::net::TCPSocket server;
  ASSERT_TRUE(server.bind(rcss::net::Addr(0, kLoopback)));
  ASSERT_TRUE(server.listen(1));
  Connection::getSingleton()->SetPortNum(server.getName().getPort());
  OutputCapture output;
  EXPECT_EQ(initConnection(), 1);
  EXPECT_EQ(output.text(),
            "connecting to TCP 127.0.0.1:" + std::to_string(server.getName().getPort()) +
                "\nconnected successfully!\n");
  EXPECT_TRUE(Connection::getSingleton()->isConnected());
  EXPECT_EQ(Connection::getSingleton()->getPeer(), server.getName());
  Connection::freeSingleton();
}

TEST_F(RunLoop, EndOfTheConnectionClosesIt) {
  EXPECT_TRUE(Connection::getSingleton()->isOpen());
  endConnection();
  EXPECT_FALSE(Connection::getSingleton()->isOpen());
}

}  // namespace
