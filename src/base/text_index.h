// A map from texts to numbers in which the first number of a text is kept. One block of memory holds all texts, so that
// adding and dropping tens of thousands is cheap.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace merlu {

class TextIndex {
 public:
  // False when the text has a number already, which it keeps.
  bool Add(std::string_view text, std::int64_t number);
  // Null without an entry; valid until the next change.
  const std::int64_t* Find(std::string_view text) const;
  void Clear();

 private:
  struct Entry {
    std::size_t begin, length;
    std::size_t hash;
    std::int64_t number;
  };

  std::string_view TextOf(const Entry& entry) const;
  // The slot that the text has, or the free one that it would take.
  std::size_t SlotOf(std::string_view text, std::size_t hash) const;
  void Grow();

  std::string texts_;
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  // place of an entry plus 1, 0 for a free slot; a power of two of them
};

}  // namespace merlu
