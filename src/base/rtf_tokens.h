// The marks that a rich text file consists of.
#pragma once

#include <cstddef>
#include <string_view>

namespace merlu {

struct RtfToken {
  enum class Kind { kOpen, kClose, kWord, kSymbol, kHex, kByte, kEnd };
  Kind kind = Kind::kEnd;
  std::string_view word;    // of a control word, without the backslash
  int number = 0;           // its parameter
  bool has_number = false;  // it has one
  char byte = 0;            // a symbol after a backslash, a byte of text, or the value of a \'hh
};

class RtfTokens {
 public:
  explicit RtfTokens(std::string_view text) : text_(text) {}
  RtfToken Next();
  // Passes over bytes that are no marks.
  void Skip(std::size_t bytes) { at_ += bytes < text_.size() - at_ ? bytes : text_.size() - at_; }

 private:
  RtfToken Control();
  RtfToken Word();

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace merlu
