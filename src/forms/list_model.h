// The rows of a list view, read by index where they are kept and never copied into the control.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace merlu {

class ListModel {
 public:
  virtual ~ListModel() = default;
  virtual int RowCount() const = 0;
  virtual std::string Text(int row, int column) const = 0;
  // Reads ahead what the texts of these rows need from the store. A view calls it before rows scroll into sight, so
  // that painting them reads nothing.
  virtual void Prepare(int /*first*/, int /*count*/) {}
  // Grows with every change of the rows or of their order.
  virtual std::uint64_t Revision() const = 0;
  virtual bool CanSort() const { return false; }
  virtual void Sort(int /*column*/, bool /*descending*/) {}
};

// Rows that the model itself keeps. They are sorted by a column's text, numbers by their value, equal ones in the
// order in which they came.
class RowsModel : public ListModel {
 public:
  using Row = std::vector<std::string>;

  void Set(std::vector<Row> rows);
  // The row that shows at that place.
  const Row& At(int row) const { return rows_[order_[static_cast<std::size_t>(row)]]; }
  // Its place in the rows as they were set.
  std::size_t Origin(int row) const { return order_[static_cast<std::size_t>(row)]; }

  int RowCount() const override { return static_cast<int>(order_.size()); }
  std::string Text(int row, int column) const override;
  std::uint64_t Revision() const override { return revision_; }
  bool CanSort() const override { return true; }
  void Sort(int column, bool descending) override;

 private:
  std::vector<Row> rows_;
  std::vector<std::size_t> order_;
  std::uint64_t revision_ = 0;
};

// By what a text is sorted: numbers by their value and before texts, sizes ("1.5 MB") as numbers of bytes, texts
// without regard to case.
struct SortKey {
  explicit SortKey(const std::string& text);
  bool is_text = true;
  double number = 0;
  std::string text;
};
bool operator<(const SortKey& one, const SortKey& other);

}  // namespace merlu
