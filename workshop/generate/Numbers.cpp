#include "workshop/generate/Numbers.h"

#include <algorithm>
#include <cmath>

namespace workshop {
namespace {

const Json& valueIn(const Json& object, std::string_view name, const std::string& where) {
  const auto found = object.find(name);
  if (found == object.end()) {
    throw ParameterError(where + ": \"" + std::string(name) + "\" is missing");
  }
  return *found;
}

ParameterError unknownName(const std::string& name, const std::string& where) {
  return ParameterError(where + ": unknown name \"" + name + "\"");
}

}  // namespace

void requireKeys(const Json& object, std::span<const std::string_view> known,
                 const std::string& where) {
  if (!object.is_object()) throw ParameterError(where + ": must be an object");
  for (const auto& [key, value] : object.items()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) {
      throw unknownName(key, where);
    }
  }
}

double numberIn(const Json& object, std::string_view name, const std::string& where) {
  const Json& value = valueIn(object, name, where);
  if (!value.is_number()) {
    throw ParameterError(where + ": \"" + std::string(name) + "\" must be a number");
  }
  return value.get<double>();
}

int wholeNumberIn(const Json& object, std::string_view name, const std::string& where) {
  const double value = numberIn(object, name, where);
  if (value != std::floor(value) || std::abs(value) > 1e6) {
    throw ParameterError(where + ": \"" + std::string(name) + "\" must be a whole number");
  }
  return static_cast<int>(value);
}

std::string textIn(const Json& object, std::string_view name, const std::string& where) {
  const Json& value = valueIn(object, name, where);
  if (!value.is_string()) {
    throw ParameterError(where + ": \"" + std::string(name) + "\" must be a text");
  }
  return value.get<std::string>();
}

const Json& objectIn(const Json& object, std::string_view name, const std::string& where) {
  return valueIn(object, name, where);
}

}  // namespace workshop
