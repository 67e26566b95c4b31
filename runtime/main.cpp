/// The process of one player: options, link, body, the run loop, teardown.

#include <csignal>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "runtime/Connection.h"
#include "runtime/Options.h"
#include "runtime/RunLoop.h"

int main(int argc, char** argv) {
  std::signal(SIGINT, handler);
  PrintGreeting();
  ReadOptions(argc, argv);
  // A failed connection doesn't stop the start-up: the first frame sent then ends the process.
  Connection::getSingleton()->init();
  initAgent();
  run();
  Connection::getSingleton()->Done();
  WorldModel::getSingleton();
  WorldModel::freeSingleton();
  Agent::getSingleton();
  Agent::freeSingleton();
  return 0;
}
