#include "base/fuzzy.h"

#include <algorithm>

#include "base/case_folding.h"

namespace merlu {
namespace {

constexpr int kTogether = 1000, kScattered = 400, kBeginsWord = 200, kWholeWord = 100, kBeginsText = 100, kWhole = 100;

bool IsLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

std::uint64_t LettersOf(std::string_view lower) {
  std::uint64_t letters = 0;
  for (const char c : lower) {
    if (c >= 'a' && c <= 'z') letters |= std::uint64_t{1} << (c - 'a');
    if (c >= '0' && c <= '9') letters |= std::uint64_t{1} << (26 + c - '0');
  }
  return letters;
}

bool BeginsWord(const std::string& text, std::size_t at) {
  return at == 0 || !IsLetterOrDigit(text[at - 1]);
}

bool EndsWord(const std::string& text, std::size_t end) {
  return end == text.size() || !IsLetterOrDigit(text[end]);
}

int TogetherAt(const std::string& text, std::size_t at, std::size_t length) {
  int fit = kTogether - static_cast<int>(std::min<std::size_t>(at, 50));
  if (BeginsWord(text, at)) fit += EndsWord(text, at + length) ? kBeginsWord + kWholeWord : kBeginsWord;
  if (at == 0) fit += kBeginsText;
  if (at == 0 && length == text.size()) fit += kWhole;
  return fit;
}

// The letters in order: the fewer characters between them the better.
int Scattered(const std::string& text, const std::string& word) {
  std::size_t at = 0, found = 0;
  for (; at < text.size() && found < word.size(); ++at) found += text[at] == word[found] ? 1U : 0U;
  if (found < word.size()) return 0;
  // backwards from where they end, they begin as late as can be
  const std::size_t end = at;
  while (found > 0) found -= text[--at] == word[found - 1] ? 1U : 0U;
  const auto between = static_cast<int>(std::min<std::size_t>(end - at - word.size(), 200));
  return std::max(1, kScattered - 2 * between + (BeginsWord(text, at) ? kBeginsWord / 2 : 0));
}

int FitOf(const FuzzyText& text, const FuzzyText& word) {
  if ((text.letters & word.letters) != word.letters) return 0;
  int best = 0;
  const std::string& lower = text.lower;
  for (std::size_t at = lower.find(word.lower); at != std::string::npos; at = lower.find(word.lower, at + 1)) {
    best = std::max(best, TogetherAt(lower, at, word.lower.size()));
    if (BeginsWord(lower, at) && EndsWord(lower, at + word.lower.size())) break;
  }
  return best > 0 ? best : Scattered(lower, word.lower);
}

}  // namespace

FuzzyText::FuzzyText(std::string_view text) : lower(FoldedText(text)), letters(LettersOf(lower)) {}

FuzzyWords::FuzzyWords(std::string_view typed) {
  for (std::size_t at = 0; at < typed.size();) {
    const std::size_t end = std::min(typed.find(' ', at), typed.size());
    if (end > at) words_.emplace_back(typed.substr(at, end - at));
    at = end + 1;
  }
}

int FuzzyWords::Fit(const FuzzyText& name, const FuzzyText& place) const {
  int fit = 0;
  for (const FuzzyText& word : words_) {
    const int best = std::max(FitOf(name, word), FitOf(place, word) / 2);
    if (best == 0) return 0;
    fit += best;
  }
  // of two that fit alike the shorter one
  return fit == 0 ? 0 : std::max(1, fit - static_cast<int>(std::min<std::size_t>(name.lower.size(), 90)));
}

}  // namespace merlu
