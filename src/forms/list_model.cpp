#include "forms/list_model.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <tuple>

#include "base/text.h"

namespace merlu {
SortKey::SortKey(const std::string& from) {
  const auto [end, error] = std::from_chars(from.data(), from.data() + from.size(), number);
  is_text = from.empty() || error != std::errc() || end != from.data() + from.size() || !std::isfinite(number);
  if (is_text) {
    number = 0;
    text = Lower(from);
  }
}

bool operator<(const SortKey& one, const SortKey& other) {
  return std::tie(one.is_text, one.number, one.text) < std::tie(other.is_text, other.number, other.text);
}

void RowsModel::Set(std::vector<Row> rows) {
  rows_ = std::move(rows);
  order_.resize(rows_.size());
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  ++revision_;
}

std::string RowsModel::Text(int row, int column) const {
  const Row& cells = At(row);
  return static_cast<std::size_t>(column) < cells.size() ? cells[static_cast<std::size_t>(column)] : "";
}

void RowsModel::Sort(int column, bool descending) {
  std::vector<SortKey> keys;
  keys.reserve(rows_.size());
  const auto at = static_cast<std::size_t>(column);
  for (const Row& row : rows_) keys.emplace_back(at < row.size() ? row[at] : "");
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  std::stable_sort(order_.begin(), order_.end(),
                   [&](std::size_t a, std::size_t b) { return descending ? keys[b] < keys[a] : keys[a] < keys[b]; });
  ++revision_;
}

}  // namespace merlu
