// Small helpers on texts. Texts are UTF-8; case is folded for ASCII letters only, as the store does, except
// where IDs are compared.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace merlu {

// Without the blanks at either end.
std::string Trim(std::string_view text);
std::string TrimRight(std::string_view text);

// Appends the text right-justified: blanks in front up to `width` characters; a longer text is not cut.
void AppendPadded(std::string& to, std::string_view text, std::size_t width);

std::string Upper(std::string_view text);
std::string Lower(std::string_view text);
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Negative, 0 or positive: the order of two IDs without regard to the case of any letter. 0 is the same ID.
int CompareIds(std::string_view a, std::string_view b);

// For hash tables that are searched by texts of any kind, without a copy.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

// Order without regard to case; texts that differ in case only are ordered by their bytes.
bool LessIgnoringCase(std::string_view a, std::string_view b);

// The first and the last `count` characters (not bytes) of a UTF-8 text.
std::string FirstCharacters(std::string_view text, std::size_t count);
std::string LastCharacters(std::string_view text, std::size_t count);
std::size_t CountCharacters(std::string_view text);

// Whether the bytes are a text at all: UTF-8 in its shortest form, and no zero byte.
bool IsUtf8(std::string_view text);
// The text with U+FFFD for every byte that is no part of a UTF-8 character.
std::string ValidUtf8(std::string_view text);
// The text in UTF-16; what is no UTF-8 becomes U+FFFD as well.
std::u16string ToUtf16(std::string_view text);

}  // namespace merlu
