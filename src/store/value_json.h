// A value of a column in what scripts and commands answer.
#pragma once

#include <nlohmann/json.hpp>

#include <type_traits>

#include "store/value.h"

namespace merlu {

// null, true or false, a number or a text.
inline nlohmann::ordered_json ValueJson(const Value& value) {
  return std::visit(
      [](const auto& held) -> nlohmann::ordered_json {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, Null>)
          return nullptr;
        else
          return held;
      },
      value);
}

}  // namespace merlu
