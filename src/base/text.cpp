#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace merlu {
namespace {

char UpperChar(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char LowerChar(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

std::string TrimRight(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : TrimRight(text.substr(first));
}

bool IsUtf8(std::string_view text) {
  struct Lead {
    unsigned char mask, value;
    int following;
    std::uint32_t lowest;
  };
  constexpr Lead kLeads[] = {
      {0x80, 0x00, 0, 1}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto* lead = std::find_if(std::begin(kLeads), std::end(kLeads),
                                    [byte](const Lead& form) { return (byte & form.mask) == form.value; });
    if (lead == std::end(kLeads) || text.size() - at <= static_cast<std::size_t>(lead->following)) return false;
    std::uint32_t code = byte & static_cast<unsigned char>(~lead->mask);
    for (int i = 1; i <= lead->following; ++i) {
      if (!IsContinuation(text[at + static_cast<std::size_t>(i)])) return false;
      code = (code << 6) | (static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]) & 0x3F);
    }
    if (code < lead->lowest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
    at += static_cast<std::size_t>(lead->following) + 1;
  }
  return true;
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; at < text.size(); ++at)
    if (!IsContinuation(text[at]) && count-- == 0) break;
  return std::string(text.substr(0, at));
}

std::string LastCharacters(std::string_view text, std::size_t count) {
  const std::size_t length = CountCharacters(text);
  if (length <= count) return std::string(text);
  return std::string(text.substr(FirstCharacters(text, length - count).size()));
}

void AppendPadded(std::string& to, std::string_view text, std::size_t width) {
  const std::size_t length = CountCharacters(text);
  if (length < width) to.append(width - length, ' ');
  to += text;
}

std::string PadLeft(std::string_view text, std::size_t width) {
  std::string padded;
  AppendPadded(padded, text, width);
  return padded;
}

std::string Upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), UpperChar);
  return result;
}

std::string Lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), LowerChar);
  return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerChar(x) == LowerChar(y); });
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
  const auto less = [](char x, char y) {
    return static_cast<unsigned char>(LowerChar(x)) < static_cast<unsigned char>(LowerChar(y));
  };
  if (std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), less)) return true;
  if (std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end(), less)) return false;
  return a < b;
}

}  // namespace merlu
