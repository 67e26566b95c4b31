#pragma once

/// Numbers as the soak's page shows them.

#include <string>

namespace soak {

/// "3.14" with two DECIMALS. Never "-0.00".
std::string fixed(double value, int decimals);
/// "100,000"
std::string grouped(long value);

}  // namespace soak
