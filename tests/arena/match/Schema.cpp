#include "tests/arena/match/Schema.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace arena::test {
namespace {

using nlohmann::json;

bool isOfType(const json& value, const std::string& type) {
  if (type == "object") return value.is_object();
  if (type == "array") return value.is_array();
  if (type == "number") return value.is_number();
  if (type == "integer") return value.is_number_integer();
  if (type == "boolean") return value.is_boolean();
  return type == "string" && value.is_string();
}

class Check {
 public:
  explicit Check(const json& root) : root_(root) {}

  void value(const json& schema, const json& value, const std::string& place) {
    for (const auto& [word, asked] : schema.items()) {
      if (word == "type") {
        if (!isOfType(value, asked)) return tell(place, "no " + asked.get<std::string>());
      } else if (word == "enum") {
        if (std::find(asked.begin(), asked.end(), value) == asked.end()) {
          tell(place, "none of the choices");
        }
      } else if (word == "minimum") {
        if (value < asked) tell(place, "below " + asked.dump());
      } else if (word == "maximum") {
        if (value > asked) tell(place, "above " + asked.dump());
      } else if (word == "minItems") {
        if (value.size() < asked) tell(place, "fewer than " + asked.dump());
      } else if (word == "maxItems") {
        if (value.size() > asked) tell(place, "more than " + asked.dump());
      } else if (word == "items") {
        for (std::size_t i = 0; i < value.size(); ++i) {
          this->value(asked, value[i], place + "/" + std::to_string(i));
        }
      } else if (word == "required") {
        for (const std::string key : asked) {
          if (!value.contains(key)) tell(place, key + " is missing");
        }
      } else if (word == "properties") {
        for (const auto& [key, described] : asked.items()) {
          if (value.contains(key)) this->value(described, value[key], place + "/" + key);
        }
      } else if (word == "additionalProperties") {
        for (const auto& [key, unused] : value.items()) {
          if (!schema["properties"].contains(key)) tell(place, key + " is too much");
        }
      } else if (word == "$ref") {
        this->value(root_.at(json::json_pointer(asked.get<std::string>().substr(1))), value, place);
      } else if (word != "$schema" && word != "$defs" && word != "title" && word != "description") {
        tell(place, "this check doesn't know " + word);
      }
    }
  }

  [[nodiscard]] const std::string& found() const { return found_; }

 private:
  void tell(const std::string& place, const std::string& what) {
    found_ += (place.empty() ? "/" : place) + ": " + what + "\n";
  }

  const json& root_;
  std::string found_{};
};

}  // namespace

std::string breaches(const json& schema, const json& value) {
  Check check(schema);
  check.value(schema, value, "");
  return check.found();
}

}  // namespace arena::test
