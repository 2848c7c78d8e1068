// A grid of a few cells that a test fills and reads.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/grid_model.h"

namespace merlu::test {

class SmallGrid : public GridModel {
 public:
  std::vector<GridColumn> columns;
  std::vector<std::pair<std::string, std::vector<GridCell>>> rows;  // key and cells
  std::uint64_t revision = 0;
  std::vector<GridBlock> pasted;
  GridPlace pasted_at;

  const std::vector<GridColumn>& Columns() const override { return columns; }
  int RowCount() const override { return static_cast<int>(rows.size()); }
  std::string RowKey(int row) const override { return rows[static_cast<std::size_t>(row)].first; }
  GridCell Cell(int row, int column) const override {
    return rows[static_cast<std::size_t>(row)].second[static_cast<std::size_t>(column)];
  }
  std::uint64_t Revision() const override { return revision; }
  std::uint64_t Shape() const override { return rows.size(); }
  void SetCell(int row, int column, const std::string& text) override {
    rows[static_cast<std::size_t>(row)].second[static_cast<std::size_t>(column)].text = text;
    ++revision;
  }
  void Paste(int row, int column, const GridBlock& block) override {
    pasted.push_back(block);
    pasted_at = {row, column};
  }
};

}  // namespace merlu::test
