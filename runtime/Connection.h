#pragma once

/// The one link to the server: frames of a 4-byte big-endian length and that many bytes of text,
/// the same both ways. The run loop reads through it, the body sends through it.

#include <string>

#include "net/TCPSocket.h"

class Connection : public rcss::net::TCPSocket {
 public:
  std::string hostAddress;  ///< server's name or dotted address; looked up by init()
  int portNumber;           ///< server's TCP port; cut to 16 bits at use

  Connection();

  static Connection* m_Instance;
  static Connection* getSingleton();
  static void freeSingleton();

  void SetHostAdd(std::string host);
  void SetPortNum(int port);

  /// Binds and connects. A connection that fails goes unsaid: true is returned all the same.
  /// Throws rcss::net::HostNotFound when the address can't be resolved.
  bool init();
  /// Waits until there is something to read. Sixty silent seconds end the process.
  bool SelectInput();
  /// Blocks for one whole frame and leaves "(" text ")" in MSG. A frame over the limit ends the
  /// process; a peer that has closed keeps it waiting for ever.
  bool GetMSG(std::string& msg);
  /// Sends one frame; an empty text sends nothing.
  void PutMSG(std::string msg);
  void Done();

  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() override = default;
};
