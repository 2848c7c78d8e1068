#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <cfenv>
#include <charconv>
#include <cmath>
#include <limits>

namespace merlu {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

// End of the exponent that begins at `at`, or `at` when none does.
std::size_t SkipExponent(std::string_view text, std::size_t at) {
  if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return at;
  std::size_t digits = at + 1;
  if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
  const std::size_t end = SkipDigits(text, digits);
  return end > digits ? end : at;
}

// Length of the number at the start of `text` (no sign), 0 when there is none.
std::size_t UnsignedLength(std::string_view text) {
  const std::size_t whole = SkipDigits(text, 0);
  std::size_t end = whole;
  if (end < text.size() && text[end] == '.') {
    end = SkipDigits(text, end + 1);
    if (whole == 0 && end == 1) return 0;  // a point alone
  } else if (whole == 0) {
    return 0;
  }
  return SkipExponent(text, end);
}

// Whether an unsigned number that no double holds is too small rather than too large, by the place of its first
// significant digit.
bool IsBelowOne(std::string_view text) {
  const std::size_t exponent_at = std::min(text.find_first_of("eE"), text.size());
  const std::string_view digits = text.substr(0, exponent_at);
  const std::size_t first = digits.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const auto place = static_cast<double>(point) - static_cast<double>(first);  // above 0 in front of the point
  const std::string_view exponent = text.substr(std::min(exponent_at + 1, text.size()));
  double power = 0;
  for (const char c : exponent)
    if (IsDigit(c)) power = std::min(power * 10 + (c - '0'), 1e9);
  return place + (exponent.starts_with('-') ? -power : power) <= 0;
}

double Convert(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) {
    // from_chars leaves the value alone
    return IsBelowOne(text) ? 0 : std::numeric_limits<double>::infinity();
  }
  return value;
}

// The shortest digits of a number that is written without an exponent; empty when they are too many. A number
// of up to 15 digits is what its shortest form says.
std::string PlainDigits(double value) {
  constexpr double kSmallest = 1e-4, kLargest = 1e15;
  constexpr std::ptrdiff_t kMost = 15;
  if (std::abs(value) < kSmallest || std::abs(value) >= kLargest) return "";
  std::array<char, 32> buffer;
  const auto [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  if (error != std::errc()) return "";
  const char* last = end;
  const char* first =
      std::find_if(static_cast<const char*>(buffer.data()), last, [](char c) { return c >= '1' && c <= '9'; });
  const auto digits = last - first - std::count(first, last, '.');
  return digits <= kMost ? std::string(buffer.data(), end) : "";
}

template <typename Number>
std::string General(Number value, int digits) {
  if (value == 0) return "0";
  std::array<char, 64> buffer;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<double>(value),
                                          std::chars_format::general, digits);
  std::string text(buffer.data(), end);
  for (char& c : text)
    if (c == 'e') c = 'E';
  return text;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  std::size_t at = SkipBlanks(text, 0);
  bool negative = false;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) negative = text[at++] == '-';
  const std::string_view rest = text.substr(at);
  double value = Convert(rest.substr(0, UnsignedLength(rest)));
  if (std::isinf(value)) value = std::numeric_limits<double>::max();
  return negative ? -value : value;
}

bool IsNumericText(std::string_view text) {
  std::size_t begin = SkipBlanks(text, 0);
  std::size_t end = text.size();
  while (end > begin && IsBlank(text[end - 1])) --end;
  if (begin < end && (text[begin] == '+' || text[begin] == '-')) ++begin;
  const std::string_view body = text.substr(begin, end - begin);
  std::string plain;
  bool whole_part = true;
  for (std::size_t i = 0; i < body.size(); ++i) {
    if (!IsDigit(body[i]) && body[i] != ',') whole_part = false;
    if (body[i] != ',') {
      plain += body[i];
      continue;
    }
    const bool between_digits = i > 0 && IsDigit(body[i - 1]) && i + 1 < body.size() && IsDigit(body[i + 1]);
    if (!whole_part || !between_digits) return false;
  }
  if (plain.empty() || UnsignedLength(plain) != plain.size()) return false;
  return !std::isinf(Convert(plain));
}

double WholeNumber(std::string_view text) {
  std::string plain(text);
  std::erase(plain, ',');
  return LeadingNumber(plain);
}

std::string GeneralNumber(double value) {
  if (std::string plain = PlainDigits(value); !plain.empty()) return plain;
  return General(value, 15);
}
std::string GeneralNumber(float value) {
  return General(value, 7);
}

double RoundHalfToEven(double value) {
  // std::nearbyint follows the rounding mode of the environment, which nothing here changes
  return std::nearbyint(value);
}

}  // namespace merlu
