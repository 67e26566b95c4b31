#pragma once

/// The decoders of the server's messages, and the reading of S-expressions under them: a class of
/// static functions without data. The run loop hands it each message; it writes into WorldModel
/// and into the body's sensors (BasicAgent), and talks from within the vision decoders.
///
/// One call of parseSExpression splits one level only: a nested list is one token with its own
/// parentheses, and whoever descends calls it again. The decoders do the same by views into the
/// message (ListView.h). They return a count of complaints that nobody has to read. Each group of
/// functions has a source file of its own.

#include <string>
#include <vector>

class SLangParser {
 public:
  using iterator = std::string::const_iterator;

  // --- SExpression.cpp: lists and words
  /// Splits the list at the front of TEXT. True when its closing parenthesis was found; TOKENS
  /// then and otherwise hold what came before the end. Comments run from ";" to the line's end.
  static bool parseSExpression(const std::string& text, std::vector<std::string>& tokens,
                               std::vector<std::string>* comments = nullptr);
  static bool extractSExpToken(iterator& it, const iterator& end, std::vector<std::string>& tokens);
  static bool extractSExpComment(iterator& it, const iterator& end,
                                 std::vector<std::string>* comments);
  /// The character that IT stops on, 0 at the end.
  static char gotoFirstNonSpace(iterator& it, const iterator& end);
  /// From *POS on (or 0): the next word; *POS moves behind the delimiter that ended it.
  static std::string parseFirstWord(const std::string& text, unsigned int* pos = nullptr);
  /// From *POS on (or 0): what stands between the next two single quotes.
  static std::string parseFirstQuote(const std::string& text, unsigned int* pos = nullptr);
  static std::string trim(const std::string& text);
  /// Adds the non-empty pieces of TEXT to OUT; false, and nothing added, for an empty text.
  static bool parseByCharDelim(std::string text, const char& delim, std::vector<std::string>& out);

  // --- Numbers.cpp: forgiving number readers, independent of the locale
  /// The first number anywhere in TEXT; 0 when there is none, -1000 for a long enough "nan".
  static double parseFirstDouble(const std::string& text);
  /// The first integer from START on; 0 when there is none.
  static int parseFirstInt(const std::string& text, const int& start);

  // --- Files.cpp
  static bool fileExists(std::string path);
  /// Names in PATH in reverse alphabetical order, without "." and ".."; returns the system's count,
  /// which includes those two, or a negative number.
  static int getFolderContents(const std::string& path, std::vector<std::string>& out);
  /// Appends the lines of a file to OUT, each with a line feed. To be fed lines that fit its
  /// buffer of 4096 characters only: a longer one never ends.
  static bool loadFile(const std::string& path, std::string& out);

  // --- ServerMessage.cpp: one whole message, wrapped in parentheses
  static bool updateFromServerMsg(const std::string& text);

  // --- GameState.cpp
  static int parseTimeInfo(const std::string& text);
  static int parseGameState(const std::string& text);

  // --- BodySensors.cpp
  static int parseGyroInfo(const std::string& text);
  static int parseACCInfo(const std::string& text);
  static int parseHingeJointInfo(const std::string& text);
  static int parseFRPInfo(const std::string& text);

  // --- Vision.cpp
  static int updateFromSeeMessage(const std::string& text);
  static int parseFlagInfo(const std::string& text);
  static int parseBallInfo(const std::string& text);
  static int parsePlayerInfo(const std::string& text);

  // --- TeamTalk.cpp
  /// 1: can't be split or too short; 10: stopped at the gate.
  static int parseHearMessage(const std::string& element);
};
