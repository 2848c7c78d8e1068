// Bytes of older files as characters.
#pragma once

#include <string>

namespace merlu {

// Appends the character as UTF-8; one that does not exist becomes the replacement character.
void AppendUtf8(std::string& text, char32_t character);

// What a byte means in a code page of one byte a character (437, 850, 1250 to 1254, 10000); in any other as in
// 1252.
char32_t Decode(int code_page, unsigned char byte);

}  // namespace merlu
