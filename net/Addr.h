#pragma once

/// An IPv4 address with its port: a handle, so that copies share their data and the names that were
/// looked up once.

#include <netinet/in.h>

#include <boost/shared_ptr.hpp>
#include <ostream>
#include <string>

namespace rcss::net {

struct AddrImpl;

class Addr {
 public:
  static constexpr unsigned int BROADCAST = 0xffffffffU;
  static constexpr unsigned int ANY = 0;

  /// Port and host in host byte order.
  explicit Addr(unsigned short port = 0, unsigned int host = ANY);
  /// Looks the host up; throws HostNotFound with the h_errno value when that fails.
  Addr(unsigned short port, const std::string& host);
  explicit Addr(const sockaddr_in& addr);

  [[nodiscard]] const sockaddr_in* getAddr() const;
  /// Host byte order.
  [[nodiscard]] unsigned short getPort() const;
  [[nodiscard]] unsigned int getHost() const;
  /// The name that was given, or else the dotted form.
  [[nodiscard]] std::string getHostStr() const;
  /// The service's name; empty when there is none. An empty PROTO stands for any protocol.
  [[nodiscard]] std::string getPortStr(const std::string& proto) const;

  /// True when the name was found. An empty name sets errno to 1.
  bool setHost(const std::string& host);
  bool setPort(const std::string& name, const std::string& proto);
  bool setHost(unsigned int host);
  bool setPort(unsigned short port);

  bool operator==(const Addr& other) const;
  bool operator!=(const Addr& other) const;
  /// By host, then by port, both in host byte order.
  bool operator<(const Addr& other) const;

 private:
  boost::shared_ptr<AddrImpl> impl_;
};

/// "(port:host)"
std::ostream& operator<<(std::ostream& os, const Addr& addr);

}  // namespace rcss::net
