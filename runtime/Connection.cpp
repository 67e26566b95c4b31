#include "runtime/Connection.h"

#include <netinet/tcp.h>
#include <sys/select.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "net/Exceptions.h"

namespace {

constexpr int kDefaultPort = 3100;
constexpr int kLengthBytes = 4;
/// Of a received frame, its length field included.
constexpr unsigned int kFrameLimit = 16384;
constexpr long kSilenceLimitSeconds = 60;

unsigned int readLength(const char* bytes) {
  unsigned int length = 0;
  for (int i = 0; i < kLengthBytes; ++i) {
    length = (length << 8U) | static_cast<unsigned char>(bytes[i]);
  }
  return length;
}

std::string writeLength(std::size_t length) {
  std::string bytes;
  for (unsigned int shift = 32; shift > 0; shift -= 8) {
    bytes += static_cast<char>((length >> (shift - 8)) & 0xffU);
  }
  return bytes;
}

}  // namespace

Connection* Connection::m_Instance = nullptr;

Connection* Connection::getSingleton() {
  if (m_Instance == nullptr) {
    m_Instance = new Connection;
  }
  return m_Instance;
}

void Connection::freeSingleton() {
  delete m_Instance;
  m_Instance = nullptr;
}

Connection::Connection() : hostAddress("127.0.0.1"), portNumber(kDefaultPort) {}

void Connection::SetHostAdd(std::string host) {
  hostAddress = host;
}

void Connection::SetPortNum(int port) {
  portNumber = port;
}

bool Connection::init() {
  std::cout << "connecting to TCP " << hostAddress << ":" << portNumber << "\n";
  try {
    bind(rcss::net::Addr(0, 0));
    connect(rcss::net::Addr(static_cast<unsigned short>(portNumber), hostAddress));
  } catch (const rcss::net::BindErr& e) {
    std::cerr << "failed to bind socket with '" << e.what() << "'" << std::endl;
    Socket::close();
    return false;
  } catch (const rcss::net::ConnectErr& e) {
    std::cerr << "connection failed with: '" << e.what() << "'" << std::endl;
    Socket::close();
    return false;
  }
  if (isConnected()) {
    // A turn may put several small frames on the link, and a delayed one is a late command.
    const int atOnce = 1;
    ::setsockopt(getFD(), IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof(atOnce));
    std::cout << "connected successfully!" << std::endl;
  }
  return true;
}

bool Connection::SelectInput() {
  fd_set readable;
  FD_ZERO(&readable);
  if (getFD() >= 0 && getFD() < FD_SETSIZE) {
    FD_SET(getFD(), &readable);  // a closed link waits for nothing, and so to the end
  }
  // Built once: after an interruption the system has left the rest of the time in it.
  timeval patience{kSilenceLimitSeconds, 0};
  while (true) {
    const int result = ::select(getFD() + 1, &readable, nullptr, nullptr, &patience);
    if (result == 1) {
      return true;
    }
    if (result == 0 || errno != EINTR) {
      std::abort();
    }
  }
}

bool Connection::GetMSG(std::string& msg) {
  static std::array<char, kFrameLimit> buffer;

  int got = 0;
  while (got < kLengthBytes) {
    SelectInput();
    int count = 0;
    do {
      count = recv(buffer.data() + got, static_cast<unsigned int>(kLengthBytes - got));
    } while (count < 0);
    got += count;
  }

  const unsigned int length = readLength(buffer.data());
  // Unsigned on purpose: the lengths just below 2^32 wrap round, pass, and then count as negative.
  if (length + kLengthBytes > kFrameLimit) {
    std::cerr << "message too long; aborting" << std::endl;
    std::abort();
  }

  const int wanted = static_cast<int>(length);
  int have = got - kLengthBytes;
  while (wanted > have) {
    if (!SelectInput()) {
      return false;
    }
    const int room = static_cast<int>(kFrameLimit) - have;
    const int count = recv(buffer.data() + kLengthBytes + have,
                           static_cast<unsigned int>(std::min(room, wanted - have)));
    if (count >= 0) {
      have += count;
    }
  }

  // The text ends at its first zero byte; a payload that fills the buffer has no room for one.
  const char* const text = buffer.data() + kLengthBytes;
  msg.clear();
  msg += '(';
  msg.append(text, ::strnlen(text, static_cast<std::size_t>(have)));
  msg += ')';
  return true;
}

void Connection::PutMSG(std::string msg) {
  if (msg.empty()) {
    return;
  }
  msg.insert(0, writeLength(msg.size()));
  send(msg.data(), static_cast<unsigned int>(msg.size()));
}

void Connection::Done() {
  Socket::close();
}
