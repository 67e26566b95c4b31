/// SLangParser: one whole message of the server, and which decoder gets which element.

#include "perception/Decoders.h"
#include "perception/ListView.h"
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
void decode(std::string_view element) {
  const auto at = [element](std::size_t i) { return i < element.size() ? element[i] : '\0'; };
  switch (at(1)) {
    case 'A':
      decodeAcceleration(element);
      break;
    case 'F':
      decodeFootForce(element);
      break;
    case 'G':
      if (at(2) == 'Y') {
        decodeGyro(element);
      } else if (at(2) == 'S') {
        decodeGameState(element);
      }
      break;
    case 'H':
      decodeHingeJoint(element);
      break;
    case 'S':
      decodeSee(element);
      break;
    case 'h':
      SLangParser::parseHearMessage(std::string(element));
      break;
    case 't':
      decodeTime(element);
      break;
    default:
      break;
  }
}

}  // namespace

bool SLangParser::updateFromServerMsg(const std::string& text) {
  clearSeen(WorldModel::getSingleton()->vision);
  TokenViews elements;
  if (!splitList(text, elements)) {
    return false;
  }
  for (std::size_t i = 0; i < elements.size(); ++i) {
    decode(elements[i]);
  }
  return true;
}
