#include "forms/list_model.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <tuple>

#include "base/text.h"

namespace merlu {
namespace {

// What a size is a multiple of, by the text behind its number; 0 for any other text.
double UnitOf(std::string_view text) {
  constexpr double kStep = 1024;
  double unit = 1;
  for (const char* name : {"", " KB", " MB", " GB"}) {
    if (text == name) return unit;
    unit *= kStep;
  }
  return 0;
}

}  // namespace

SortKey::SortKey(const std::string& from) {
  const char* const last = from.data() + from.size();
  const auto [end, error] = std::from_chars(from.data(), last, number);
  const double unit = UnitOf({end, static_cast<std::size_t>(last - end)});
  number *= unit;
  is_text = from.empty() || error != std::errc() || unit == 0 || !std::isfinite(number);
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
