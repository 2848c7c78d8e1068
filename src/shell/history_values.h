// The rows of a step as the user knows them: the record's place, the field, and its values as the sheet shows them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "forms/list_model.h"
#include "shell/row_finder.h"

namespace merlu {

struct ShownChange {
  std::string place, field, before, after;
};

// The values of one step, in the order in which the step wrote them. A step can have hundreds of thousands, so the
// texts are made on demand.
class StepValues : public ListModel {
 public:
  explicit StepValues(Session& s) : s_(s) {}

  // Nothing without a step. A fault when it is damaged; then nothing shows.
  void Show(std::optional<std::int64_t> step);
  ShownChange At(int row) const;

  int RowCount() const override { return ends_.empty() ? 0 : ends_.back(); }
  std::string Text(int row, int column) const override;
  void Prepare(int first, int count) override;
  std::uint64_t Revision() const override { return revision_; }
  bool CanSort() const override { return true; }
  void Sort(int column, bool descending) override;

 private:
  ShownChange Change(int value) const;
  std::vector<ShownChange> ChangesOf(const KeptRow& row) const;

  Session& s_;
  std::vector<std::string> parts_;  // that the rows point into
  std::vector<KeptRow> rows_;       // those with something to show
  std::vector<int> ends_;           // number of values up to the end of each row
  std::vector<int> order_;          // of the values, once they were sorted
  std::uint64_t revision_ = 0;
  // the row that was made last, since its cells are read one by one
  mutable std::optional<RowFinder> finder_;
  mutable std::size_t made_ = 0;
  mutable std::vector<ShownChange> changes_;
};

}  // namespace merlu
