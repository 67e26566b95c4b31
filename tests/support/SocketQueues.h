#pragma once

/// A look into the kernel at the other end of a TCP link on this machine: has it read everything,
/// and has everything that it wrote been acknowledged? With that a test knows when a peer has done
/// with a message, whatever number of answers it gave.

#include <netinet/in.h>

struct SocketQueues {
  unsigned unread = 0;          ///< [bytes] received, not yet taken by the program
  unsigned unacknowledged = 0;  ///< [bytes] written by the program, not yet acknowledged
};

/// The queues of the established socket that has OWN as its own address and PEER as the other's.
/// Throws std::runtime_error when there is none.
SocketQueues LookIntoSocket(const sockaddr_in& own, const sockaddr_in& peer);
