#include "tests/net/FakeNames.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>

#include <array>
#include <string_view>
#include <utility>

namespace {

std::vector<std::string>& asked() {
  static std::vector<std::string> protocols;
  return protocols;
}

void note(const char* protocol) {
  asked().emplace_back(protocol == nullptr ? "null" : protocol);
}

hostent* hostAt(std::array<const char*, 2> dotted) {
  static std::array<in_addr, 2> addresses;
  static std::array<char*, 3> list;
  static hostent entry;
  entry = hostent{};
  list = {};
  for (std::size_t i = 0; i < dotted.size(); ++i) {
    if (dotted.at(i) != nullptr) {
      inet_pton(AF_INET, dotted.at(i), &addresses.at(i));
      list.at(i) = reinterpret_cast<char*>(&addresses.at(i));
    }
  }
  entry.h_addrtype = AF_INET;
  entry.h_length = sizeof(in_addr);
  entry.h_addr_list = list.data();
  return &entry;
}

servent* serviceNamed(const char* name) {
  static std::string kept;
  static servent entry;
  kept = name;
  entry = servent{};
  entry.s_name = kept.data();
  entry.s_port = htons(3100);
  return &entry;
}

}  // namespace

std::vector<std::string> fakenames::protocolsAsked() {
  return std::exchange(asked(), {});
}

// The linker prescribes these names.
// NOLINTBEGIN(clang-diagnostic-reserved-identifier)
extern "C" {

hostent* __wrap_gethostbyname(const char* name) {
  const std::string_view wanted = name;
  if (wanted == "server") {
    return hostAt({"10.1.2.3", "10.9.9.9"});
  }
  if (wanted == "other") {
    return hostAt({"10.4.5.6", nullptr});
  }
  h_errno = wanted == "nobody" ? TRY_AGAIN : HOST_NOT_FOUND;
  return nullptr;
}

servent* __wrap_getservbyname(const char* name, const char* protocol) {
  note(protocol);
  const std::string_view wanted = name;
  const std::string_view proto = protocol == nullptr ? "tcp" : protocol;
  if ((wanted == "soccer" && proto == "tcp") || (wanted == "whistle" && proto == "udp")) {
    return serviceNamed(name);
  }
  return nullptr;
}

servent* __wrap_getservbyport(int port, const char* protocol) {
  note(protocol);
  if (port != htons(3100)) {
    return nullptr;
  }
  const std::string_view proto = protocol == nullptr ? "tcp" : protocol;
  if (proto == "tcp") {
    return serviceNamed("soccer");
  }
  return proto == "udp" ? serviceNamed("whistle") : nullptr;
}

}  // extern "C"
// NOLINTEND(clang-diagnostic-reserved-identifier)
