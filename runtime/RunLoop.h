#pragma once

/// The loop that turns one server message into one cycle of play, and the small steps round it
/// that `main` puts in order.

#include <string>

/// Ends the run loop at the end of the present turn, for SIGINT only.
void handler(int sig);

void PrintGreeting();

int initConnection();
int endConnection();

/// Asks the server for a body.
void initAgent();
/// Says who the player is, ahead of the cycle that does so anyway.
void initPlayerInfo();

void PutMessage(std::string message);
int GetMSG(std::string& message);

/// Reads, decodes and plays, one message a turn, until `keepRunning` is cleared.
void run();
