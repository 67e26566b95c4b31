#include "tests/support/FreshPlayer.h"

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"

FreshPlayer::FreshPlayer(int shirtNumber) {
  Agent::freeSingleton();
  WorldModel::freeSingleton();
  Agent::getSingleton()->uNum = shirtNumber;
}

FreshPlayer::~FreshPlayer() {
  Agent::freeSingleton();
  WorldModel::freeSingleton();
}

Agent& FreshPlayer::agent() const {
  return *Agent::getSingleton();
}

WorldModel& FreshPlayer::world() const {
  return *WorldModel::getSingleton();
}
