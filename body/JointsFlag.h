#pragma once

/// The commanded side of one joint.

#include <string>

struct jointsFlag {
  bool active = false;  ///< has a target in the current step
  std::string perceptorName;
  std::string effectorName;
  double targetAngle = 0;  ///< [rad] server's sign convention
  double speed = 0;        ///< [rad/s] last speed computed
  double nextAngle = 0;    ///< [rad] setpoint of the current cycle
  double lastError = 0;    ///< [rad] controller
  double errorSum = 0;     ///< [rad s] controller, integral term
};
