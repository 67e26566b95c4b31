/// SLangParser: one whole message of the server, and which decoder gets which element.

#include "perception/SLangParser.h"
#include "perception/WorldModel.h"

namespace {

/// What was seen was seen in one message only, whether or not the next one holds vision.
void clearSeen(visionInfo& vision) {
  for (PolarInfo* object : {&vision.F1L, &vision.F1R, &vision.F2L, &vision.F2R, &vision.G1L,
                            &vision.G1R, &vision.G2L, &vision.G2R, &vision.ball}) {
    object->seen = false;
  }
  for (seenPlayer& player : vision.players) {
    player.polar.seen = false;
  }
}

/// Told by the second character alone (for "G" by the third as well); what nobody knows is skipped.
void decode(const std::string& element) {
  switch (element[1]) {
    case 'A':
      SLangParser::parseACCInfo(element);
      break;
    case 'F':
      SLangParser::parseFRPInfo(element);
      break;
    case 'G':
      if (element[2] == 'Y') {
        SLangParser::parseGyroInfo(element);
      } else if (element[2] == 'S') {
        SLangParser::parseGameState(element);
      }
      break;
    case 'H':
      SLangParser::parseHingeJointInfo(element);
      break;
    case 'S':
      SLangParser::updateFromSeeMessage(element);
      break;
    case 'h':
      SLangParser::parseHearMessage(element);
      break;
    case 't':
      SLangParser::parseTimeInfo(element);
      break;
    default:
      break;
  }
}

}  // namespace

bool SLangParser::updateFromServerMsg(const std::string& text) {
  clearSeen(WorldModel::getSingleton()->vision);
  std::vector<std::string> elements;
  if (!parseSExpression(text, elements)) {
    return false;
  }
  for (const std::string& element : elements) {
    decode(element);
  }
  return true;
}
