#include "review/completeness.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace merlu {
namespace {

constexpr std::size_t kMonths = 12, kCells = kMonths + 1;

struct StateWords {
  const char* name;
  Tone tone;
  const char* sentence;
};

constexpr std::array<StateWords, 8> kStates = {{
    {"open", Tone::kStop, "findings without a comment"},
    {"stale", Tone::kLook, "comments are older than their values"},
    {"empty", Tone::kPlain, "nothing has been typed"},
    {"unchecked", Tone::kLook, "not checked since the last save"},
    {"explained", Tone::kGood, "all findings are explained"},
    {"clean", Tone::kGood, "checked, no findings"},
    {"inactive", Tone::kQuiet, "no emissions to report"},
    {"-", Tone::kQuiet, "this month is not there"},
}};

const StateWords& WordsOf(RecordState state) {
  return kStates[static_cast<std::size_t>(state)];
}

bool HasCount(RecordState state) {
  return state == RecordState::kOpen || state == RecordState::kStale || state == RecordState::kExplained;
}

int CountIn(const ReviewedRecord& record, RecordState state) {
  if (state == RecordState::kOpen) return record.open;
  if (state == RecordState::kStale) return record.stale;
  return state == RecordState::kExplained ? record.explained + record.stale + record.open : 0;
}

// The worst of the records, with the sum over those in that state.
void TakeWorst(RecordProgress& cell, const ReviewedRecord& record, int number, RecordState state) {
  if (state < cell.state) cell = {state, 0, number};
  if (state == cell.state) cell.count += CountIn(record, state);
}

// The descriptions know no "empty".
RecordState DescriptionState(const ReviewedRecord& record) {
  if (record.open > 0) return RecordState::kOpen;
  if (record.stale > 0) return RecordState::kStale;
  return record.explained > 0 ? RecordState::kExplained : RecordState::kClean;
}

std::string KeyOfRow(const Review& review, const ReviewedRecord& record, bool of_equipment) {
  if (of_equipment) {
    const ReviewedPiece& piece = review.pieces[static_cast<std::size_t>(record.piece)];
    return piece.type + "/" + Trim(piece.id);
  }
  const ReviewedStructure& structure = review.structures[static_cast<std::size_t>(record.structure)];
  return Trim(structure.complex) + "/" + Trim(structure.structure);
}

std::string TextOfRow(const Review& review, const ReviewedRecord& record, bool of_equipment) {
  if (!of_equipment) return review.structures[static_cast<std::size_t>(record.structure)].text;
  return PieceText(review.pieces[static_cast<std::size_t>(record.piece)]);
}

}  // namespace

RecordState StateOf(const ReviewedRecord& record) {
  if (record.ReportsNothing()) return RecordState::kInactive;
  if (!record.has_values) return RecordState::kEmpty;
  if (record.open > 0) return RecordState::kOpen;
  if (record.stale > 0) return RecordState::kStale;
  if (record.explained > 0) return RecordState::kExplained;
  return record.checked ? RecordState::kClean : RecordState::kUnchecked;
}

std::string ProgressText(const RecordProgress& progress) {
  const std::string name = WordsOf(progress.state).name;
  return HasCount(progress.state) ? name + " " + std::to_string(progress.count) : name;
}

int CompletenessRow::Ready() const {
  return static_cast<int>(std::count_if(cells.begin() + 1, cells.end(), [](const RecordProgress& cell) {
    return cell.state == RecordState::kExplained || cell.state == RecordState::kClean ||
           cell.state == RecordState::kInactive;
  }));
}

std::vector<CompletenessRow> CompletenessOf(const Review& review, int structure) {
  std::vector<CompletenessRow> rows;
  const bool of_equipment = structure >= 0;
  std::vector<int> row_of(of_equipment ? review.pieces.size() : review.structures.size(), -1);
  std::vector<bool> checked(review.structures.size(), false);
  std::vector<std::size_t> structure_of_row;
  for (std::size_t i = 0; i < review.records.size(); ++i) {
    const ReviewedRecord& record = review.records[i];
    if (record.structure < 0) continue;
    if (record.kind == RecordKind::kStructure) checked[static_cast<std::size_t>(record.structure)] = record.checked;
    if (of_equipment && (!record.IsEquipment() || record.structure != structure)) continue;
    int& at = row_of[static_cast<std::size_t>(of_equipment ? record.piece : record.structure)];
    if (at < 0) {
      at = static_cast<int>(rows.size());
      rows.push_back({KeyOfRow(review, record, of_equipment), TextOfRow(review, record, of_equipment),
                      std::vector<RecordProgress>(kCells)});
      structure_of_row.push_back(static_cast<std::size_t>(record.structure));
    }
    if (record.month < 0 || record.month > static_cast<int>(kMonths)) continue;
    const auto month = static_cast<std::size_t>(record.month);
    const RecordState state = month == 0 ? DescriptionState(record) : StateOf(record);
    RecordProgress& cell = rows[static_cast<std::size_t>(at)].cells[month];
    // a structure comes before its equipment: without its row the month does not exist
    if (!of_equipment && record.IsEquipment() && cell.state == RecordState::kMissing) continue;
    TakeWorst(cell, record, static_cast<int>(i), state);
  }
  // of the descriptions only the structure's has a date; it counts where there are no findings at all
  for (std::size_t row = 0; row < rows.size(); ++row)
    if (rows[row].cells[0].state == RecordState::kClean && !checked[structure_of_row[row]])
      rows[row].cells[0].state = RecordState::kUnchecked;
  return rows;
}

CompletenessModel::CompletenessModel() {
  columns_.push_back({"Structure", "Structure"});
  columns_.push_back({"Descriptions", "Descriptions"});
  for (std::size_t month = 1; month <= kMonths; ++month) {
    const std::string name = (month < 10 ? "0" : "") + std::to_string(month);
    columns_.push_back({name, name});
  }
  columns_.push_back({"Ready", "Ready"});
}

void CompletenessModel::Set(std::vector<CompletenessRow> rows) {
  rows_ = std::move(rows);
  ++revision_;
}

const RecordProgress* CompletenessModel::At(int row, int column) const {
  if (row < 0 || row >= RowCount() || column < 1 || column > static_cast<int>(kCells)) return nullptr;
  return &rows_[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column - 1)];
}

std::string CompletenessModel::CountText() const {
  std::array<int, kStates.size()> count{};
  for (const CompletenessRow& row : rows_)
    for (const RecordProgress& cell : row.cells) ++count[static_cast<std::size_t>(cell.state)];
  std::string text;
  for (std::size_t state = 0; state + 1 < kStates.size(); ++state)
    if (count[state] > 0)
      text += (text.empty() ? "" : " · ") + std::to_string(count[state]) + " " + kStates[state].name;
  return text;
}

GridCell CompletenessModel::Cell(int row, int column) const {
  const CompletenessRow& at = rows_[static_cast<std::size_t>(row)];
  GridCell cell;
  cell.locked = true;
  if (const RecordProgress* progress = At(row, column)) {
    const StateWords& words = WordsOf(progress->state);
    cell.text = ProgressText(*progress);
    cell.tone = words.tone;
    cell.hint = at.text + ", " +
                (column == 1 ? "descriptions" : "month " + columns_[static_cast<std::size_t>(column)].name) + ": " +
                (HasCount(progress->state) ? std::to_string(progress->count) + " · " : "") + words.sentence + ".";
  } else if (column == 0) {
    cell.text = at.text;
  } else {
    cell.text = std::to_string(at.Ready()) + " of " + std::to_string(kMonths);
  }
  return cell;
}

}  // namespace merlu
