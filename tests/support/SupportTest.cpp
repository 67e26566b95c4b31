#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "runtime/Connection.h"
#include "tests/support/LinkCapture.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/TempDir.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LinkCapture, FrameLengthIsBigEndian) {
  EXPECT_EQ(frameOf("ab"), std::string("\0\0\0\2ab", 6));
  EXPECT_EQ(frameOf(std::string(258, 'x')).substr(0, 4), std::string("\0\0\1\2", 4));
}

TEST(LinkCapture, ShowsEachFrameOnce) {
  LinkCapture link;
  Connection::getSingleton()->PutMSG("one");
  Connection::getSingleton()->PutMSG("two");
  EXPECT_THAT(link.frames(), ElementsAre("one", "two"));
  EXPECT_THAT(link.frames(), IsEmpty());
}

TEST(LinkCapture, CommandsStandBehindTheZeroSpeeds) {
  LinkCapture link;
  Connection::getSingleton()->PutMSG(std::string(kZeroSpeeds) + "(he1 1)");
  EXPECT_THAT(link.commands(), ElementsAre("(he1 1)"));
  Connection::getSingleton()->PutMSG("(he1 1)");
  EXPECT_THROW(link.commands(), std::runtime_error);
}

TEST(LinkCapture, BytesThatEndWithinAFrameAreRefused) {
  LinkCapture link;
  for (const std::string& piece : {std::string("\0\0\0", 3), std::string("\0\0\0\5four", 8)}) {
    Connection::getSingleton()->send(piece.data(), static_cast<unsigned>(piece.size()));
    EXPECT_THROW(link.frames(), std::runtime_error);
  }
}

TEST(LinkCapture, HandsFramesToThePlayer) {
  LinkCapture link;
  link.deliver("(time (now 1))");
  std::string message;
  EXPECT_TRUE(Connection::getSingleton()->GetMSG(message));
  EXPECT_EQ(message, "((time (now 1)))");
}

TEST(OutputCapture, CatchesStreamsStdioAndSystemCalls) {
  OutputCapture output;
  std::cout << "one ";
  std::cout.flush();
  std::printf("two ");
  std::fflush(stdout);
  const ssize_t written = ::write(STDOUT_FILENO, "three", 5);
  EXPECT_EQ(output.text(), "one two three");
  EXPECT_EQ(output.text(), "one two three");
  EXPECT_EQ(written, 5);
}

TEST(OutputCapture, KeepsTheTwoStreamsApart) {
  OutputCapture output(OutputCapture::Stream::Output);
  OutputCapture errors(OutputCapture::Stream::Error);
  std::cerr << "wrong";
  EXPECT_EQ(errors.text(), "wrong");
  EXPECT_EQ(output.text(), "");
}

TEST(TempDir, GoesWithItsFilesAndPutsTheWorkingDirectoryBack) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path path;
  {
    TempDir dir;
    path = dir.path();
    const std::string file = dir.write("file", "a\nb");
    dir.enter();
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), path));
    std::ifstream in("file");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "a\nb");
    EXPECT_TRUE(std::filesystem::exists(file));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(std::filesystem::current_path(), before);
}

}  // namespace
