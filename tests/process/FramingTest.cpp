#include <sys/wait.h>

#include <csignal>

#include "tests/process/PlayerTest.h"

namespace {

using Framing = PlayerTest;

TEST_F(Framing, FirstFrameAsksForTheBodyWithoutZeroSpeeds) {
  PlayerSession session(kPlayer, {"--unum=3"}, directory.path());
  using namespace std::string_literals;
  EXPECT_EQ(session.link.ReadBytes(33), "\0\0\0\x1d(scene rsg/agent/nao/nao.rsg)"s);
  EXPECT_EQ(session.Frames(), Texts{}) << "and then the player waits for the server";
}

TEST_F(Framing, EveryLaterMessageBeginsWithTheZeroSpeeds) {
  PlayerSession session = Start({"--unum=3"});
  const Texts frames = session.Turns(1, 60, "(GS (pm BeforeKickOff))");
  EXPECT_GE(frames.size(), 60U);
  for (const std::string& frame : frames) EXPECT_EQ(frame.substr(0, 167), kZeros);
}

TEST_F(Framing, SentFramesCountTheirTextAlone) {
  PlayerSession session = Start({"--unum=3"});
  session.link.SendFrame(MessageOfCycle(1));
  using namespace std::string_literals;
  EXPECT_EQ(session.link.ReadBytes(4 + 167), "\0\0\0\xa7"s + std::string(kZeros));
}

TEST_F(Framing, HeaderMayArriveByteByByte) {
  PlayerSession session = Start({"--unum=3"});
  const std::string message = MessageOfCycle(1);
  for (const char byte : LengthField(static_cast<std::uint32_t>(message.size()))) {
    EXPECT_EQ(session.TurnOfBytes(std::string(1, byte)), Texts{});
  }
  EXPECT_EQ(Commands(session.TurnOfBytes(message)), Texts{""});
}

TEST_F(Framing, PayloadMayArriveInPieces) {
  PlayerSession session = Start({"--unum=3"});
  const std::string message = MessageOfCycle(1, "(GS (unum 5) (pm PlayOn))");
  EXPECT_EQ(session.TurnOfBytes(LengthField(static_cast<std::uint32_t>(message.size()))), Texts{});
  for (std::size_t at = 0; at + 1 < message.size(); ++at) {
    EXPECT_EQ(session.TurnOfBytes(message.substr(at, 1)), Texts{});
  }
  EXPECT_EQ(Commands(session.TurnOfBytes(message.substr(message.size() - 1))), Texts{""});
  EXPECT_EQ(Commands(session.Turns(2, 9)).size(), 8U);
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(10))),
            (Texts{"(init (unum 5)(teamname Kolu-Otters))", ""}))
      << "the number stood in the pieces";
}

TEST_F(Framing, FramesThatArriveTogetherAreOneTurnEach) {
  PlayerSession session = Start({"--unum=3"});
  std::string bytes;
  for (int cycle = 1; cycle <= 12; ++cycle) {
    const std::string message = MessageOfCycle(cycle);
    bytes += LengthField(static_cast<std::uint32_t>(message.size())) + message;
  }
  Texts expected(13, "");
  expected[9] = "(init (unum 3)(teamname Kolu-Otters))";
  EXPECT_EQ(Commands(session.TurnOfBytes(bytes)), expected);
}

TEST_F(Framing, EmptyFrameIsATurn) {
  PlayerSession session = Start({"--unum=3"});
  EXPECT_EQ(Commands(session.Turn("")), Texts{"(say P,3,0,0)"}) << "in cycle 0, without playback";
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(1))), Texts{""});
  EXPECT_EQ(Commands(session.Turn("")), Texts{""}) << "the clock stays at cycle 1";
}

TEST_F(Framing, LongestFrameIsReadToItsEnd) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 19);
  const std::string tail = "(GS (unum 4))";
  std::string message = MessageOfCycle(20);
  message += std::string(16380 - message.size() - tail.size(), ' ') + tail;
  EXPECT_EQ(Commands(session.Turn(message)), (Texts{"", "(say P,4,0,0)"}));
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(21))), Texts{""});
}

class FatalLength : public PlayerTest, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(FatalLength, EndsTheProcessWithItsMessage) {
  PlayerSession session = Start({"--unum=3"});
  session.link.SendBytes(LengthField(GetParam()));
  const std::optional<int> status = session.player.WaitForEnd();
  ASSERT_TRUE(status);
  EXPECT_TRUE(WIFSIGNALED(*status));
  EXPECT_EQ(WTERMSIG(*status), SIGABRT);
  EXPECT_EQ(session.player.Errors(), "message too long; aborting\n");
}

INSTANTIATE_TEST_SUITE_P(Framing, FatalLength,
                         ::testing::Values(16381U, 16384U, 0x01000000U, 0x80000000U, 0xFFFFFFFBU));

class WrappingLength : public PlayerTest, public ::testing::WithParamInterface<std::uint32_t> {};

// The sum with the header's four bytes passes 2^32 and comes out small: an empty text.
TEST_P(WrappingLength, IsAnEmptyTextWithoutAPayload) {
  PlayerSession session = Start({"--unum=3"});
  EXPECT_EQ(Commands(session.Turns(1, 19)).size(), 20U);
  EXPECT_EQ(Commands(session.TurnOfBytes(LengthField(GetParam()))), Texts{""})
      << "a turn in cycle 19 again: nothing of the frame before is heard twice";
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(20))), (Texts{"", "(say P,3,0,0)"}))
      << "the next header follows at once";
}

INSTANTIATE_TEST_SUITE_P(Framing, WrappingLength,
                         ::testing::Values(0xFFFFFFFCU, 0xFFFFFFFDU, 0xFFFFFFFEU, 0xFFFFFFFFU));

TEST_F(Framing, ZeroByteCutsTheText) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 19);
  const std::string message = MessageOfCycle(20) + std::string(1, '\0') + "(GS (unum 5))";
  EXPECT_EQ(Commands(session.Turn(message)), (Texts{"", "(say P,3,0,0)"}));
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(21))), Texts{""});
}

TEST_F(Framing, ZeroByteWithinAnElementCostsTheWholeMessage) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 19);
  std::string message = MessageOfCycle(20);
  message.insert(message.size() - 2, 1, '\0');
  EXPECT_EQ(Commands(session.Turn(message)), Texts{""}) << "still cycle 19";
}

TEST_F(Framing, MalformedMessageCostsOnlyItsOwnCycle) {
  PlayerSession session = Start({"--unum=3"});
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(1))), Texts{""});
  for (const char* bad : {"(time (now 0.04)", ")", "((((", "(time (now 9 9))", "\xff\xfe"}) {
    EXPECT_EQ(Commands(session.Turn(bad)), Texts{""}) << bad;
  }
  const Texts rest = Commands(session.Turns(2, 10));
  EXPECT_EQ(rest.size(), 10U) << "cycle 10 comes after nine good messages more";
  EXPECT_EQ(rest[8], "(init (unum 3)(teamname Kolu-Otters))");
}

}  // namespace
