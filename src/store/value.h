// A value of a column: Null, a yes/no, a whole number, a number or a text.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace merlu {

using Null = std::monostate;
using Value = std::variant<Null, bool, std::int64_t, double, std::string>;
using Values = std::vector<Value>;

inline bool IsNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}

// Number of a value: yes/no is 1 and 0, a text its leading number, Null 0.
double ToNumber(const Value& value);
std::int64_t ToInteger(const Value& value);

// Text of a value by the default conversion: numbers in general form, yes/no as "True" and "False",
// Null as empty text (the one direction of every conversion between columns and controls).
std::string NullToEmpty(const Value& value);

}  // namespace merlu
