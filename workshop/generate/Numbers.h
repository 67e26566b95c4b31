#pragma once

/// Reading named numbers out of a parameter file, strictly: what is missing, misspelt or of the
/// wrong kind is an error that says where. Called by the readers of descriptions.

#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace workshop {

using Json = nlohmann::json;

/// What is wrong with a parameter file, and where.
class ParameterError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A name in a file and the member that it fills.
template <typename T>
struct Named {
  std::string_view name;
  double T::*member;
};

/// Throws ParameterError unless OBJECT is an object whose keys are all among KNOWN. WHERE names it.
void requireKeys(const Json& object, std::span<const std::string_view> known,
                 const std::string& where);
double numberIn(const Json& object, std::string_view name, const std::string& where);
int wholeNumberIn(const Json& object, std::string_view name, const std::string& where);
std::string textIn(const Json& object, std::string_view name, const std::string& where);
const Json& objectIn(const Json& object, std::string_view name, const std::string& where);

/// Fills a T from an object that has exactly the keys of FIELDS and EXTRA; the caller reads EXTRA.
template <typename T, typename Fields>
T structFrom(const Json& object, const Fields& fields, const std::vector<std::string_view>& extra,
             const std::string& where) {
  std::vector<std::string_view> known = extra;
  for (const auto& field : fields) known.push_back(field.name);
  requireKeys(object, known, where);
  T result{};
  for (const auto& field : fields) result.*field.member = numberIn(object, field.name, where);
  return result;
}

}  // namespace workshop
