#pragma once

/// One decoder per element of the server's messages, for an element where it stands in its message.
/// SLangParser offers each of them for a string; ServerMessage.cpp calls them in the order of the
/// message. The results are SLangParser's.

#include <string_view>

int decodeTime(std::string_view element);
int decodeGameState(std::string_view element);

int decodeGyro(std::string_view element);
int decodeAcceleration(std::string_view element);
int decodeHingeJoint(std::string_view element);
int decodeFootForce(std::string_view element);

int decodeSee(std::string_view element);
