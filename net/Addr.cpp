#include "net/Addr.h"

#include <arpa/inet.h>
#include <netdb.h>

#include <boost/make_shared.hpp>
#include <cerrno>
#include <cstring>

#include "net/Exceptions.h"
#include "net/Handler.h"

namespace rcss::net {

struct AddrImpl {
  Handler& handler = Handler::instance();
  sockaddr_in addr{};
  std::string hostText;
  std::string portText;
};

namespace {

constexpr int kNoName = 1;

/// The first address of HOST, in network byte order.
bool lookUp(const std::string& host, in_addr& result) {
  const hostent* entry = ::gethostbyname(host.c_str());
  if (entry == nullptr || entry->h_addrtype != AF_INET || entry->h_addr_list[0] == nullptr) {
    return false;
  }
  std::memcpy(&result, entry->h_addr_list[0], sizeof(result));
  return true;
}

const char* protocolOrAny(const std::string& proto) {
  return proto.empty() ? nullptr : proto.c_str();
}

}  // namespace

Addr::Addr(unsigned short port, unsigned int host) : impl_(boost::make_shared<AddrImpl>()) {
  impl_->addr.sin_family = AF_INET;
  impl_->addr.sin_port = htons(port);
  impl_->addr.sin_addr.s_addr = htonl(host);
}

Addr::Addr(unsigned short port, const std::string& host) : Addr(port, ANY) {
  if (!lookUp(host, impl_->addr.sin_addr)) {
    throw HostNotFound(h_errno);
  }
  impl_->hostText = host;
}

Addr::Addr(const sockaddr_in& addr) : impl_(boost::make_shared<AddrImpl>()) {
  impl_->addr = addr;
}

const sockaddr_in* Addr::getAddr() const {
  return &impl_->addr;
}

unsigned short Addr::getPort() const {
  return ntohs(impl_->addr.sin_port);
}

unsigned int Addr::getHost() const {
  return ntohl(impl_->addr.sin_addr.s_addr);
}

std::string Addr::getHostStr() const {
  if (impl_->hostText.empty()) {
    impl_->hostText = ::inet_ntoa(impl_->addr.sin_addr);
  }
  return impl_->hostText;
}

std::string Addr::getPortStr(const std::string& proto) const {
  if (impl_->portText.empty()) {
    const servent* entry = ::getservbyport(impl_->addr.sin_port, protocolOrAny(proto));
    if (entry != nullptr) {
      impl_->portText = entry->s_name;
    }
  }
  return impl_->portText;
}

bool Addr::setHost(const std::string& host) {
  if (host.empty()) {
    errno = kNoName;
    return false;
  }
  if (!lookUp(host, impl_->addr.sin_addr)) {
    return false;
  }
  impl_->hostText = host;
  return true;
}

bool Addr::setPort(const std::string& name, const std::string& proto) {
  if (name.empty()) {
    errno = kNoName;
    return false;
  }
  const servent* entry = ::getservbyname(name.c_str(), protocolOrAny(proto));
  if (entry == nullptr) {
    return false;
  }
  impl_->addr.sin_port = static_cast<in_port_t>(entry->s_port);
  impl_->portText = name;
  return true;
}

bool Addr::setHost(unsigned int host) {
  impl_->addr.sin_addr.s_addr = htonl(host);
  impl_->hostText.clear();
  return true;
}

bool Addr::setPort(unsigned short port) {
  impl_->addr.sin_port = htons(port);
  impl_->portText.clear();
  return true;
}

bool Addr::operator==(const Addr& other) const {
  return getPort() == other.getPort() && getHost() == other.getHost();
}

bool Addr::operator!=(const Addr& other) const {
  return !(*this == other);
}

bool Addr::operator<(const Addr& other) const {
  if (getHost() != other.getHost()) {
    return getHost() < other.getHost();
  }
  return getPort() < other.getPort();
}

std::ostream& operator<<(std::ostream& os, const Addr& addr) {
  return os << "(" << addr.getPort() << ":" << addr.getHostStr() << ")";
}

}  // namespace rcss::net
