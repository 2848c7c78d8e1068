#include "script/words.h"

namespace merlu {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

// Reads the quoted word that begins after `at`; false when it is not closed.
bool ReadQuoted(std::string_view line, std::size_t& at, std::string& word) {
  for (++at; at < line.size(); ++at) {
    if (line[at] == '"') {
      ++at;
      return at == line.size() || IsBlank(line[at]);
    }
    if (line[at] == '\\' && at + 1 < line.size() && (line[at + 1] == '"' || line[at + 1] == '\\')) ++at;
    word += line[at];
  }
  return false;
}

}  // namespace

std::optional<std::vector<std::string>> SplitWords(std::string_view line) {
  std::vector<std::string> words;
  std::size_t at = 0;
  while (true) {
    while (at < line.size() && IsBlank(line[at])) ++at;
    if (at == line.size()) return words;
    std::string word;
    if (line[at] == '"') {
      if (!ReadQuoted(line, at, word)) return std::nullopt;
    } else {
      while (at < line.size() && !IsBlank(line[at])) word += line[at++];
    }
    words.push_back(std::move(word));
  }
}

}  // namespace merlu
