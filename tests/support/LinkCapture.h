#pragma once

/// The far end of the player's link, held by the test: it reads the frames that the player sends
/// and can hand it frames to read. While an object lives, the Connection singleton talks to it.
///
/// A send blocks once some hundred frames wait unread, so tests that let many cycles pass ask for
/// the frames now and then.

#include <string>
#include <string_view>
#include <vector>

/// The head of every message of the player but the scene request: all joints but the head's yaw
/// stand still. 167 bytes.
inline constexpr std::string_view kZeroSpeeds =
    "(he2 0)"
    "(rae1 0)(rae2 0)(rae3 0)(rae4 0)"
    "(lae1 0)(lae2 0)(lae3 0)(lae4 0)"
    "(rle1 0)(rle2 0)(rle3 0)(rle4 0)(rle5 0)(rle6 0)"
    "(lle1 0)(lle2 0)(lle3 0)(lle4 0)(lle5 0)(lle6 0)";
static_assert(kZeroSpeeds.size() == 167);

/// Four bytes of length, most significant first, and the payload.
std::string frameOf(std::string_view payload);

class LinkCapture {
 public:
  LinkCapture();
  LinkCapture(const LinkCapture&) = delete;
  LinkCapture& operator=(const LinkCapture&) = delete;
  /// Takes the link from the player and frees the Connection singleton.
  ~LinkCapture();

  /// The payloads of all frames sent since the last call. Never waits. Throws when the bytes don't
  /// end with a whole frame.
  std::vector<std::string> frames();
  /// The same, each without the zero speeds in front. Throws when a frame doesn't begin with them.
  std::vector<std::string> commands();
  /// The bytes sent since the last call, framing included. Never waits.
  std::string bytes();

  /// Puts one frame on the link for the player to read.
  void deliver(std::string_view payload);
  /// Puts raw bytes on the link.
  void deliverBytes(std::string_view bytes);

 private:
  int fd_ = -1;
};
