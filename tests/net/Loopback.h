#pragma once

/// Where the tests with real sockets listen and send.

/// 127.0.0.1, in the machine's byte order.
inline constexpr unsigned int kLoopback = 0x7f000001;
