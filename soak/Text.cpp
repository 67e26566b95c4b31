#include "soak/Text.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace soak {

std::string fixed(double value, int decimals) {
  const double step = std::pow(10.0, -decimals);
  std::ostringstream text;
  text << std::fixed << std::setprecision(decimals) << (std::abs(value) < step / 2 ? 0.0 : value);
  return text.str();
}

std::string grouped(long value) {
  std::string digits = std::to_string(value);
  const std::size_t sign = value < 0 ? 1 : 0;
  for (std::size_t place = digits.size(); place > sign + 3;) {
    place -= 3;
    digits.insert(place, ",");
  }
  return digits;
}

}  // namespace soak
