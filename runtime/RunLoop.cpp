#include "runtime/RunLoop.h"

#include <csignal>
#include <iostream>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "runtime/Connection.h"

void handler(int sig) {
  if (sig == SIGINT) {
    Agent::getSingleton()->keepRunning = false;
  }
}

void PrintGreeting() {
  std::cout << "Kolu_Otters ";
  std::cout << "by the Kolu-Otters team, free software under the GPL, version 3 or later\n";
}

int initConnection() {
  return static_cast<int>(Connection::getSingleton()->init());
}

int endConnection() {
  Connection::getSingleton()->Done();
  return 0;
}

void initAgent() {
  PutMessage("(scene rsg/agent/nao/nao.rsg)");
}

void initPlayerInfo() {
  Agent::getSingleton()->sendPlayerInfo();
}

void PutMessage(std::string message) {
  Connection::getSingleton()->PutMSG(message);
}

int GetMSG(std::string& message) {
  Connection::getSingleton()->GetMSG(message);
  return 1;
}

void run() {
  std::string message;
  while (Agent::getSingleton()->keepRunning) {
    Connection::getSingleton()->GetMSG(message);
    SLangParser::updateFromServerMsg(message);
    // Each turn anew: the side is only known once the first game state has come.
    WorldModel::getSingleton()->vision.setFlagPos(WorldModel::getSingleton()->teamSide);
    Agent::getSingleton()->agentLoop();
  }
}
