#include "base/text.h"

#include <algorithm>

#include "base/case_folding.h"

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

constexpr char32_t kNoCharacter = 0xFFFD;

struct Character {
  char32_t code = kNoCharacter;
  std::size_t bytes = 1;  // that it takes in the text; 1 for a byte that is no part of a character
  bool valid = false;
};

// The first character of a text that is not empty. Longer forms than needed, halves of pairs and what lies
// beyond the last character are not valid.
Character FirstCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return {lead, 1, true};
  const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < bytes) return {};
  char32_t code = lead & (0xFFu >> (bytes + 1));
  for (std::size_t i = 1; i < bytes; ++i) {
    if (!IsContinuation(text[i])) return {};
    code = (code << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
  }
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (code < smallest[bytes] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return {};
  return {code, bytes, true};
}

void AppendUtf8(std::string& to, char32_t code) {
  const auto rest = [&to](char32_t bits) { to += static_cast<char>(0x80 | (bits & 0x3F)); };
  if (code < 0x80) {
    to += static_cast<char>(code);
  } else if (code < 0x800) {
    to += static_cast<char>(0xC0 | (code >> 6));
    rest(code);
  } else if (code < 0x10000) {
    to += static_cast<char>(0xE0 | (code >> 12));
    rest(code >> 6);
    rest(code);
  } else {
    to += static_cast<char>(0xF0 | (code >> 18));
    rest(code >> 12);
    rest(code >> 6);
    rest(code);
  }
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
  while (!text.empty()) {
    const Character first = FirstCharacter(text);
    if (!first.valid || first.code == 0) return false;
    text.remove_prefix(first.bytes);
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

std::string ValidUtf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Character first = FirstCharacter(text);
    result.append(first.valid ? text.substr(0, first.bytes) : "\uFFFD");
    text.remove_prefix(first.bytes);
  }
  return result;
}

std::u16string ToUtf16(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const auto [code, bytes, valid] = FirstCharacter(text);
    if (code < 0x10000) {
      result.push_back(static_cast<char16_t>(code));
    } else {
      result.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
      result.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
    }
    text.remove_prefix(bytes);
  }
  return result;
}

void AppendPadded(std::string& to, std::string_view text, std::size_t width) {
  const std::size_t length = CountCharacters(text);
  if (length < width) to.append(width - length, ' ');
  to += text;
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

std::string FoldedText(std::string_view text) {
  const auto is_ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(text.begin(), text.end(), is_ascii)) return Lower(text);
  std::string folded;
  folded.reserve(text.size());
  while (!text.empty()) {
    const Character first = FirstCharacter(text);
    if (!first.valid || first.code < 0x80)
      folded += LowerChar(text[0]);
    else
      AppendUtf8(folded, FoldedCase(first.code));
    text.remove_prefix(first.bytes);
  }
  return folded;
}

int CompareIds(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    const Character left = FirstCharacter(a), right = FirstCharacter(b);
    // an invalid byte is ordered after all characters, by its value
    const auto place = [](const Character& at, std::string_view text) {
      return at.valid ? FoldedCase(at.code) : 0x110000 + static_cast<unsigned char>(text[0]);
    };
    const char32_t x = place(left, a), y = place(right, b);
    if (x != y) return x < y ? -1 : 1;
    a.remove_prefix(left.bytes);
    b.remove_prefix(right.bytes);
  }
  return a.empty() ? (b.empty() ? 0 : -1) : 1;
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
