#include "arena/link/Frames.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

using namespace std::string_literals;

TEST(Frames, LengthStandsInFrontMostSignificantByteFirst) {
  EXPECT_EQ(framed("abc"), "\0\0\0\3abc"s);
  EXPECT_EQ(framed(""), "\0\0\0\0"s);
  EXPECT_EQ(framed(std::string(0x0123, 'x')).substr(0, 4), "\0\0\1\x23"s);
}

TEST(Frames, AFrameComesTogetherByteByByte) {
  FrameReader reader;
  const std::string bytes = "\0\0\0\2hi"s;
  for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
    reader.feed(bytes.substr(i, 1));
    EXPECT_FALSE(reader.next());
  }
  reader.feed(bytes.substr(bytes.size() - 1));
  EXPECT_EQ(reader.next(), "hi");
  EXPECT_FALSE(reader.next());
}

TEST(Frames, SeveralFramesInOnePieceComeOutOneByOne) {
  FrameReader reader;
  reader.feed("\0\0\0\1a\0\0\0\0\0\0\0\2bc\0\0"s);
  EXPECT_EQ(reader.next(), "a");
  EXPECT_EQ(reader.next(), "");
  EXPECT_EQ(reader.next(), "bc");
  EXPECT_FALSE(reader.next());
  reader.feed("\0\1d"s);
  EXPECT_EQ(reader.next(), "d");
}

TEST(Frames, ThePayloadLimitItselfIsStillAFrame) {
  FrameReader reader;
  reader.feed("\0\0\x3f\xfc"s + std::string(16380, 'x'));  // 0x3ffc is 16380
  EXPECT_EQ(reader.next(), std::string(16380, 'x'));
  EXPECT_FALSE(reader.tooLong());
}

TEST(Frames, OneByteAboveTheLimitEndsTheLink) {
  FrameReader reader;
  reader.feed("\0\0\x3f\xfd"s);
  EXPECT_FALSE(reader.next());
  EXPECT_EQ(reader.tooLong(), 16381U);
  reader.feed("\0\0\0\1a"s);
  EXPECT_FALSE(reader.next());
}

TEST(Frames, TheLargestLengthIsReadAsUnsigned) {
  FrameReader reader;
  reader.feed("\xff\xff\xff\xff"s);
  EXPECT_FALSE(reader.next());
  EXPECT_EQ(reader.tooLong(), 4294967295U);
}

TEST(Frames, FramesBeforeOneThatIsTooLongComeOut) {
  FrameReader reader;
  reader.feed("\0\0\0\1a\x7f\0\0\0"s);
  EXPECT_EQ(reader.next(), "a");
  EXPECT_FALSE(reader.next());
  EXPECT_TRUE(reader.tooLong());
}

}  // namespace
}  // namespace arena
