#include "store/value.h"

#include "base/numbers.h"

namespace merlu {
namespace {

template <class... Ts>
struct Overload : Ts... {
  using Ts::operator()...;
};
template <class... Ts>
Overload(Ts...) -> Overload<Ts...>;  // older compilers do not deduce it

}  // namespace

double ToNumber(const Value& value) {
  return std::visit(Overload{[](Null) { return 0.0; }, [](bool b) { return b ? 1.0 : 0.0; },
                             [](std::int64_t i) { return static_cast<double>(i); }, [](double d) { return d; },
                             [](const std::string& s) { return LeadingNumber(s); }},
                    value);
}

std::int64_t ToInteger(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
  const double number = ToNumber(value);
  constexpr double kLimit = 9.0e18;  // inside the range that a 64-bit integer can take
  return number > kLimit || number < -kLimit ? 0 : static_cast<std::int64_t>(number);
}

std::string NullToEmpty(const Value& value) {
  return std::visit(
      Overload{[](Null) { return std::string(); }, [](bool b) { return std::string(b ? "True" : "False"); },
               [](std::int64_t i) { return std::to_string(i); }, [](double d) { return GeneralNumber(d); },
               [](const std::string& s) { return s; }},
      value);
}

}  // namespace merlu
