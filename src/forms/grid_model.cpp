#include "forms/grid_model.h"

#include "base/text.h"

namespace merlu {

int GridModel::FindRow(std::string_view key) const {
  for (int row = 0; row < RowCount(); ++row)
    if (RowKey(row) == key) return row;
  return -1;
}

int GridModel::FindColumn(std::string_view name) const {
  const std::vector<GridColumn>& columns = Columns();
  for (std::size_t column = 0; column < columns.size(); ++column)
    if (EqualsIgnoringCase(columns[column].name, name)) return static_cast<int>(column);
  return -1;
}

namespace {

bool EndsCell(std::string_view text, std::size_t at) {
  return at == text.size() || text[at] == '\t' || text[at] == '\n' || text[at] == '\r';
}

// Reads a cell in double quotes from `at`, two of them being one in the text; false when it is none.
bool ReadQuotedCell(std::string_view text, std::size_t& at, std::string& cell) {
  std::size_t next = at + 1;
  std::string read;
  for (; next < text.size(); ++next) {
    if (text[next] == '"') {
      if (next + 1 == text.size() || text[next + 1] != '"') break;
      ++next;
    }
    read += text[next];
  }
  if (next >= text.size() || !EndsCell(text, next + 1)) return false;
  at = next + 1;
  cell = std::move(read);
  return true;
}

}  // namespace

GridBlock CellsOf(std::string_view text) {
  GridBlock block(1);
  for (std::size_t at = 0;;) {
    std::string cell;
    if (at == text.size() || text[at] != '"' || !ReadQuotedCell(text, at, cell)) {
      const std::size_t begin = at;
      while (!EndsCell(text, at)) ++at;
      cell = text.substr(begin, at - begin);
    }
    block.back().push_back(std::move(cell));
    if (at == text.size()) return block;
    const char end = text[at++];
    if (end == '\t') continue;
    if (end == '\r' && at < text.size() && text[at] == '\n') ++at;
    if (at == text.size()) return block;
    block.emplace_back();
  }
}

GridPlace NextOpenCell(const GridModel& grid, GridPlace from, GridStep step) {
  const int rows = grid.RowCount(), columns = static_cast<int>(grid.Columns().size());
  GridPlace at = from;
  while (true) {
    if (step == GridStep::kDown || step == GridStep::kUp) {
      at.row += step == GridStep::kDown ? 1 : -1;
    } else {
      at.column += step == GridStep::kRight ? 1 : -1;
      if (at.column >= columns) at = {at.row + 1, 0};
      if (at.column < 0) at = {at.row - 1, columns - 1};
    }
    if (at.row < 0 || at.row >= rows || at.column < 0 || at.column >= columns) return from;
    if (!grid.Cell(at.row, at.column).locked) return at;
  }
}

}  // namespace merlu
