#pragma once

/// The name database of net_system_test, in place of the system's: the tests depend neither on
/// files of the machine nor on a name server.
///
/// Hosts: "server" is 10.1.2.3 and, as its second entry, 10.9.9.9; "other" is 10.4.5.6.
/// Services: "soccer" is port 3100 of tcp, "whistle" is port 3100 of udp.
/// Any other host fails with HOST_NOT_FOUND, but "nobody" fails with TRY_AGAIN.

#include <string>
#include <vector>

namespace fakenames {

/// The protocols asked for since the last call, "null" for none.
std::vector<std::string> protocolsAsked();

}  // namespace fakenames
