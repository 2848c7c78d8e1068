#include "base/text_index.h"

#include <algorithm>
#include <functional>

namespace merlu {
namespace {

constexpr std::size_t kFirstSlots = 64;

}  // namespace

std::string_view TextIndex::TextOf(const Entry& entry) const {
  return std::string_view(texts_).substr(entry.begin, entry.length);
}

std::size_t TextIndex::SlotOf(std::string_view text, std::size_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const Entry& entry = entries_[slots_[slot] - 1];
    if (entry.hash == hash && TextOf(entry) == text) break;
  }
  return slot;
}

void TextIndex::Grow() {
  slots_.assign(std::max(kFirstSlots, slots_.size() * 2), 0);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    std::size_t slot = entries_[i].hash & mask;
    while (slots_[slot] != 0) slot = (slot + 1) & mask;
    slots_[slot] = static_cast<std::uint32_t>(i + 1);
  }
}

bool TextIndex::Add(std::string_view text, std::int64_t number) {
  if (entries_.size() * 2 >= slots_.size()) Grow();
  const std::size_t hash = std::hash<std::string_view>{}(text);
  const std::size_t slot = SlotOf(text, hash);
  if (slots_[slot] != 0) return false;
  entries_.push_back({texts_.size(), text.size(), hash, number});
  texts_ += text;
  slots_[slot] = static_cast<std::uint32_t>(entries_.size());
  return true;
}

const std::int64_t* TextIndex::Find(std::string_view text) const {
  if (slots_.empty()) return nullptr;
  const std::uint32_t place = slots_[SlotOf(text, std::hash<std::string_view>{}(text))];
  return place == 0 ? nullptr : &entries_[place - 1].number;
}

void TextIndex::Clear() {
  texts_.clear();
  entries_.clear();
  std::fill(slots_.begin(), slots_.end(), 0);
}

}  // namespace merlu
