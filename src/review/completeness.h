// How far each month of each structure is: what has not been typed, not been checked, not been explained.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/grid_model.h"
#include "review/review.h"

namespace merlu {

// From the worst to the best; kMissing where there is no row.
enum class RecordState { kOpen, kStale, kEmpty, kUnchecked, kExplained, kClean, kInactive, kMissing };

struct RecordProgress {
  RecordState state = RecordState::kMissing;
  int count = 0;    // findings in the states "open", "stale", "explained"
  int record = -1;  // the first of the review's records in that state
};

// The state of a single month record.
RecordState StateOf(const ReviewedRecord& record);
// "open 3", "clean", "-"
std::string ProgressText(const RecordProgress& progress);

struct CompletenessRow {
  std::string key, text;
  std::vector<RecordProgress> cells;  // descriptions, then the twelve months
  int Ready() const;
};

// A row a structure, or a row a piece of equipment of one structure (its place in the review, -1 for all structures).
std::vector<CompletenessRow> CompletenessOf(const Review& review, int structure);

class CompletenessModel : public GridModel {
 public:
  CompletenessModel();
  void Set(std::vector<CompletenessRow> rows);
  const RecordProgress* At(int row, int column) const;  // null beside the states
  // "5 open · 3 clean"
  std::string CountText() const;

  const std::vector<GridColumn>& Columns() const override { return columns_; }
  int RowCount() const override { return static_cast<int>(rows_.size()); }
  std::string RowKey(int row) const override { return rows_[static_cast<std::size_t>(row)].key; }
  int FixedColumns() const override { return 1; }
  GridCell Cell(int row, int column) const override;
  std::uint64_t Revision() const override { return revision_; }
  std::uint64_t Shape() const override { return revision_; }
  void SetCell(int, int, const std::string&) override {}
  void Paste(int, int, const GridBlock&) override {}

 private:
  std::vector<GridColumn> columns_;
  std::vector<CompletenessRow> rows_;
  std::uint64_t revision_ = 0;
};

}  // namespace merlu
