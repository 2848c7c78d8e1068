#include "base/rtf_tokens.h"

namespace merlu {
namespace {

constexpr int kLargestNumber = 100000000;

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexValue(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

RtfToken RtfTokens::Next() {
  while (at_ < text_.size() && (text_[at_] == '\r' || text_[at_] == '\n' || text_[at_] == '\0')) ++at_;
  if (at_ >= text_.size()) return {};
  const char c = text_[at_++];
  if (c == '{') return {.kind = RtfToken::Kind::kOpen};
  if (c == '}') return {.kind = RtfToken::Kind::kClose};
  if (c == '\\') return Control();
  return {.kind = RtfToken::Kind::kByte, .byte = c};
}

RtfToken RtfTokens::Control() {
  if (at_ >= text_.size()) return {};
  if (IsLetter(text_[at_])) return Word();
  const char symbol = text_[at_++];
  if (symbol != '\'') return {.kind = RtfToken::Kind::kSymbol, .byte = symbol};
  const int high = at_ < text_.size() ? HexValue(text_[at_]) : -1;
  const int low = at_ + 1 < text_.size() ? HexValue(text_[at_ + 1]) : -1;
  if (high < 0 || low < 0) return {.kind = RtfToken::Kind::kByte, .byte = '?'};
  at_ += 2;
  return {.kind = RtfToken::Kind::kHex, .byte = static_cast<char>(high * 16 + low)};
}

RtfToken RtfTokens::Word() {
  RtfToken token{.kind = RtfToken::Kind::kWord};
  const std::size_t start = at_;
  while (at_ < text_.size() && IsLetter(text_[at_])) ++at_;
  token.word = text_.substr(start, at_ - start);
  const bool negative = at_ + 1 < text_.size() && text_[at_] == '-' && IsDigit(text_[at_ + 1]);
  if (negative) ++at_;
  while (at_ < text_.size() && IsDigit(text_[at_])) {
    token.has_number = true;
    if (token.number < kLargestNumber) token.number = token.number * 10 + (text_[at_] - '0');
    ++at_;
  }
  if (negative) token.number = -token.number;
  if (at_ < text_.size() && text_[at_] == ' ') ++at_;
  return token;
}

}  // namespace merlu
