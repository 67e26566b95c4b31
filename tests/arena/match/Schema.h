#pragma once

/// Holds a JSON text against a JSON Schema: the few words of it that this project's schemas use. A
/// word that it doesn't know is a breach too, so that none is passed over.

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace arena::test {

/// What is wrong with VALUE, a line for each breach with its place; empty if nothing is.
std::string breaches(const nlohmann::json& schema, const nlohmann::json& value);

}  // namespace arena::test
