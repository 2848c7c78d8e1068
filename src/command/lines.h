// How commands write a line of their answer.
#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <string_view>

#include "command/console.h"

namespace merlu {

using Json = nlohmann::ordered_json;

// An object on a line; bytes that are no UTF-8 are replaced.
std::string JsonLine(const Json& json);
// One line, whatever a value holds.
std::string OneLine(std::string text);
// A text of a file for a terminal: valid UTF-8, with a blank for each control character.
std::string Printable(std::string_view text);
// "3,333".
std::string Thousands(std::int64_t number);

}  // namespace merlu
