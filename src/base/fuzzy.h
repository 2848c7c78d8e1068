// How well typed words match a text: by their letters in order, best where these are adjacent and begin a word.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// A text made ready to be searched many times.
struct FuzzyText {
  FuzzyText() = default;
  explicit FuzzyText(std::string_view text);
  std::string lower;
  std::uint64_t letters = 0;  // which letters and digits it has
};

class FuzzyWords {
 public:
  explicit FuzzyWords(std::string_view typed);
  bool empty() const { return words_.empty(); }
  // How well they fit a thing by its name, or less by its place: the higher the better, 0 when one of them does not
  // fit.
  int Fit(const FuzzyText& name, const FuzzyText& place) const;

 private:
  std::vector<FuzzyText> words_;
};

}  // namespace merlu
