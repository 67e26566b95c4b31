/// SLangParser: the server's time and the state of the game.

#include "behaviour/Agent.h"
#include "perception/Decoders.h"
#include "perception/Elements.h"
#include "perception/NumberReaders.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"

int decodeTime(std::string_view text) {
  TokenViews elements;
  if (!splitList(text, elements)) {
    return 1;
  }
  int complaints = 0;
  double now = kMissingNumber;
  double step = kMissingNumber;
  TokenViews tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const std::string_view element = elements[i];
    if (element.starts_with("(now")) {
      if (!splitInto(element, 2, tokens)) {
        return complaints + 1;
      }
      now = firstDouble(tokens[1]);
    } else if (element.starts_with("(step")) {
      if (splitInto(element, 2, tokens)) {
        step = firstDouble(tokens[1]);
      } else {
        ++complaints;
      }
    } else {
      ++complaints;
    }
  }
  if (now != kMissingNumber) {
    WorldModel* const world = WorldModel::getSingleton();
    if (now > world->serverTime) {
      ++world->cycle;
    }
    world->serverTime = now;
    world->stepTime = step;
  }
  return complaints;
}

int decodeGameState(std::string_view text) {
  TokenViews elements;
  if (!splitList(text, elements)) {
    return 1;
  }
  int complaints = 0;
  WorldModel* const world = WorldModel::getSingleton();
  TokenViews tokens;
  for (std::size_t i = 1; i < elements.size(); ++i) {
    if (!splitInto(elements[i], 2, tokens)) {
      ++complaints;
      continue;
    }
    const std::string_view key = tokens[0];
    const std::string_view value = tokens[1];
    if (key == "unum") {
      Agent::getSingleton()->uNum = firstInt(value, 0);
    } else if (key == "team") {
      world->teamSide = value;
    } else if (key == "t") {
      const double time = firstDouble(value);
      world->gameTimeDelta = time - world->gameTime;
      world->gameTime = time;
    } else if (key == "pm") {
      world->playMode = value;
    } else {
      ++complaints;
    }
  }
  return complaints;
}

int SLangParser::parseTimeInfo(const std::string& text) {
  return decodeTime(text);
}

int SLangParser::parseGameState(const std::string& text) {
  return decodeGameState(text);
}
