// A month of many records as a table: one month of all equipment of a type, or all months of one piece. The cells
// take, lock and are judged by what the records' own sheet has in its table; nothing is stored until it is saved.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "entry/month_rows.h"
#include "entry/save_record.h"
#include "forms/grid_model.h"

namespace merlu {

// What a paste would do to a cell.
struct PastePlan {
  int row = -1, column = -1;
  std::string place, field, old_text, new_text, what;
  bool Applies() const { return what == "set" || what == "changed"; }
  bool IsAsked() const { return what != "set" && what != "same"; }
};

struct GridSaved {
  int records = 0, findings = 0;
  std::vector<std::string> messages;  // that the records' sheets would have shown in boxes, with the records' names
  std::string refused;                // why nothing was saved; empty when it was
};

class MonthGrid : public GridModel {
 public:
  explicit MonthGrid(Session& s) : s_(s) {}

  // Shows one month of all equipment of the sheet's type, or of all structures. What was typed and not yet saved is
  // kept, here and in ShowRecord.
  void ShowMonth(const SheetSpec* sheet, int month);
  // Shows all months of one piece of equipment, by its ED_ID_AK, or of one structure, by its PD_ID_AK.
  void ShowRecord(const SheetSpec* sheet, std::int64_t key);

  const std::vector<GridColumn>& Columns() const override { return columns_; }
  int RowCount() const override { return static_cast<int>(rows_.size()); }
  std::string RowKey(int row) const override;
  int FindRow(std::string_view key) const override;
  int FixedColumns() const override { return heads_; }
  GridCell Cell(int row, int column) const override;
  std::uint64_t Revision() const override { return revision_; }
  std::uint64_t Shape() const override { return shape_; }
  void SetCell(int row, int column, const std::string& text) override;
  void Paste(int row, int column, const GridBlock& block) override;

  // What a paste would do, one for each cell that is not blank.
  std::vector<PastePlan> Plan(int row, int column, const GridBlock& block) const;
  // Asked when a paste refuses a cell or replaces a value; without it nothing is asked.
  std::function<bool(const std::vector<PastePlan>&)> approve;
  // Called when a cell was typed into.
  std::function<void()> on_typed;

  // Copies the values of the month before into the cells of these rows (of all rows when there are none) that are blank
  // and not locked; Confirm confirms copied values. Each returns how many.
  int CopyBefore(const std::vector<int>& rows);
  int Confirm(const std::vector<int>& rows);

  int ChangedRecords() const { return static_cast<int>(changed_.size()); }
  // The place of the changed record; of several, of one and how many more.
  std::string PlaceOfChanges() const;
  // All changed records in the order of the rows, or none of them.
  GridSaved Save();

 private:
  struct Row;
  using RowPtr = std::shared_ptr<Row>;

  void Show(const SheetSpec* sheet, const MonthScope& scope, std::int64_t only, bool by_month);
  void MakeColumns();
  void ReadBefore(const std::vector<RowPtr>& rows, const SheetSpec* sheet, int month);
  // Index among the fields; -1 for another column.
  int FieldAt(int column) const;
  int StatusColumn() const { return static_cast<int>(columns_.size()) - 2; }
  int CommentsColumn() const { return static_cast<int>(columns_.size()) - 1; }
  const RowPtr& At(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  std::vector<int> Picked(const std::vector<int>& rows) const;
  bool IsLocked(const Row& row, int column) const;
  std::string TextOf(const Row& row, int column) const;
  std::string Before(const Row& row, int field) const;
  void Set(Row& row, int column, const std::string& text, bool copied);
  void Note(const RowPtr& row);
  PastePlan PlanCell(int row, int column, const std::string& text) const;

  // ---- the save ----
  class Saving;
  std::vector<RowPtr> ChangedInOrder() const;
  std::vector<Saving> ReadChanged() const;
  void Refuse(Row& row, const std::string& why, GridSaved& saved);
  void RefuseChanged(const std::vector<Saving>& types, GridSaved& saved);
  void SaveRow(RecordSaver& saver, const Row& row, const MonthRow& now, const Context& context, GridSaved& saved);

  Session& s_;
  const SheetSpec* sheet_ = &StructureSheet();
  std::vector<GridColumn> columns_;
  std::vector<int> indexes_;  // of the fields, in their record's view
  int heads_ = 2;             // how many columns at the left name the record
  bool by_month_ = false;
  std::vector<RowPtr> rows_;
  std::map<std::string, int, std::less<>> by_key_;
  std::map<std::string, RowPtr> changed_;  // by key, also those that do not show now
  std::uint64_t revision_ = 0, shape_ = 0;
};

}  // namespace merlu
