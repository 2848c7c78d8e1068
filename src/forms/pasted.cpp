#include "forms/pasted.h"

#include <array>

namespace merlu {
namespace {

// No-break, figure, thin and narrow no-break space; minus sign and en dash.
constexpr std::array<std::string_view, 4> kBlanks = {"\xC2\xA0", "\xE2\x80\x87", "\xE2\x80\x89", "\xE2\x80\xAF"};
constexpr std::array<std::string_view, 2> kMinus = {"\xE2\x88\x92", "\xE2\x80\x93"};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n"), last = text.find_last_not_of(" \t\r\n");
  return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

// Whether exactly three digits follow a separator that follows one to three digits.
bool IsThousandsMark(const std::string& text, std::size_t at) {
  std::size_t before = 0, digits = 0;
  while (before < at && IsDigit(text[at - before - 1])) ++before;
  if (before == 0 || before > 3) return false;
  while (at + 1 + digits < text.size() && IsDigit(text[at + 1 + digits])) ++digits;
  return digits == 3;
}

// What may follow a number: a unit such as "Mscf/day", "ft3" or "° F". No second number, no remark in brackets, and no
// rest of a power or of another base ("1d3", "0x10").
bool IsUnit(const std::string& text, bool after_blank) {
  if (text.empty()) return true;
  const auto first = static_cast<unsigned char>(text.front());
  const bool letter = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z') || first >= 0x80;
  if (!letter && std::string_view("%'\"").find(text.front()) == std::string_view::npos) return false;
  const auto is_one_of = [&text](std::size_t at, std::string_view any) {
    return at < text.size() && any.find(text[at]) != std::string_view::npos;
  };
  if (!after_blank && is_one_of(0, "eEdDxX") && (text.size() == 1 || is_one_of(1, "0123456789+-"))) return false;
  for (std::size_t at = 1; at < text.size(); ++at)
    if (is_one_of(at, "0123456789.+-") && text[at - 1] == ' ') return false;
  return text.find_first_of("(;|_=") == std::string::npos;
}

}  // namespace

std::string PastedNumber(std::string_view pasted) {
  std::string text(pasted);
  for (const std::string_view blank : kBlanks) text = Replaced(text, blank, " ");
  for (const std::string_view minus : kMinus) text = Replaced(text, minus, "-");
  text = Trimmed(text);
  std::string number;
  std::size_t at = 0;
  bool digits = false, point = false;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) number += text[at++];
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (IsDigit(c)) {
      digits = true;
    } else if (c == '.' && !point) {
      point = true;
    } else if ((c == ',' || c == ' ' || c == '\'') && !point && IsThousandsMark(text, at)) {
      continue;
    } else {
      break;
    }
    number += c;
  }
  if (!digits) return std::string(pasted);
  const bool power = at < text.size() && (text[at] == 'e' || text[at] == 'E');
  const std::size_t sign = power && at + 1 < text.size() && (text[at + 1] == '-' || text[at + 1] == '+') ? 1 : 0;
  if (power && at + 1 + sign < text.size() && IsDigit(text[at + 1 + sign])) {
    number += text.substr(at, 1 + sign);
    for (at += 1 + sign; at < text.size() && IsDigit(text[at]); ++at) number += text[at];
  }
  const bool after_blank = at < text.size() && text[at] == ' ';
  return IsUnit(Trimmed(text.substr(at)), after_blank) ? number : std::string(pasted);
}

std::vector<std::string> PastedCells(std::string_view text, bool numbers) {
  std::string left(text);
  while (!left.empty() && (left.back() == '\n' || left.back() == '\r')) left.pop_back();
  std::vector<std::string> cells(1);
  for (const char c : left) {
    if (c == '\r' && numbers) continue;
    if (c == '\t' || (c == '\n' && numbers))
      cells.emplace_back();
    else
      cells.back() += c;
  }
  return cells;
}

}  // namespace merlu
