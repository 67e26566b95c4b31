#include "workshop/trial/Player.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <string>
#include <system_error>

#include "arena/link/Effectors.h"
#include "math/Geometry.h"
#include "net/TCPSocket.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "runtime/Connection.h"

namespace workshop {
namespace {

constexpr std::size_t kHeaderSize = 4;
constexpr double kScanSeconds = 0.04;  ///< from one command of the scan to the next

std::size_t lengthAt(std::string_view bytes) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < kHeaderSize; ++i) {
    length = length * 256 + static_cast<unsigned char>(bytes[i]);
  }
  return length;
}

}  // namespace

Player::Player(const std::filesystem::path& scripts, int shirt)
    : before_(std::filesystem::current_path()), output_(std::cout.rdbuf()) {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    throw std::system_error(errno, std::generic_category(), "no socket pair for the player");
  }
  link_ = ends[0];
  Agent::freeSingleton();
  WorldModel::freeSingleton();
  static_cast<rcss::net::Socket&>(*Connection::getSingleton()) = rcss::net::TCPSocket(ends[1]);
  std::filesystem::current_path(scripts);
  // Without a buffer every trace line is dropped before it costs anything.
  std::cout.rdbuf(nullptr);
  agent().uNum = shirt;
}

Player::~Player() {
  Connection::freeSingleton();
  Agent::freeSingleton();
  WorldModel::freeSingleton();
  ::close(link_);
  std::cout.rdbuf(output_);
  std::error_code ignored;
  std::filesystem::current_path(before_, ignored);
}

void Player::setClock(int cycle) {
  WorldModel::getSingleton()->cycle = cycle;
}

double Player::skipScan(int entries) {
  const std::size_t neck = arena::rowOfPerceptor("hj1");
  const arena::JointRow& row = arena::kJoints[neck];
  int& clock = WorldModel::getSingleton()->cycle;
  const int before = clock;
  double degrees = 0;
  for (int i = 0; i < entries; ++i) {
    clock = 2 * (i + 1);
    agent().headYawDasti();
    const double speed = takeCommands().jointSpeeds[neck].value_or(0);
    degrees = std::clamp(degrees + Rad2Deg(speed) * kScanSeconds, row.lowDeg, row.highDeg);
  }
  clock = before;
  return degrees;
}

bool Player::cycle(std::string_view message) {
  std::string text;
  text.reserve(message.size() + 2);
  text.append("(").append(message).append(")");  // as the link hands it on
  SLangParser::updateFromServerMsg(text);
  WorldModel::getSingleton()->vision.setFlagPos(WorldModel::getSingleton()->teamSide);
  agent().basicAgentLoop();
  const bool kickWasRunning = agent().slowFunction != 0;
  agent().continueSlowFunction();
  return !(kickWasRunning && agent().slowFunction != 0) && agent().bodyState == 0;
}

arena::Commands Player::takeCommands() {
  std::string bytes;
  std::array<char, 8192> piece{};
  for (;;) {
    const ssize_t got = ::recv(link_, piece.data(), piece.size(), MSG_DONTWAIT);
    if (got <= 0) break;
    bytes.append(piece.data(), static_cast<std::size_t>(got));
    if (static_cast<std::size_t>(got) < piece.size()) break;
  }
  arena::Commands commands;
  std::string_view rest = bytes;
  while (rest.size() >= kHeaderSize && rest.size() - kHeaderSize >= lengthAt(rest)) {
    const std::size_t length = lengthAt(rest);
    if (!arena::readEffectors(rest.substr(kHeaderSize, length), commands)) ++commands.malformed;
    rest.remove_prefix(kHeaderSize + length);
  }
  return commands;
}

}  // namespace workshop
