#include "sheets/record_rows.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "sheets/blocks/blocks.h"
#include "sheets/conversions.h"
#include "sheets/structure.h"
#include "sheets/units.h"

namespace merlu {
namespace {

bool IsMonthly(const FieldSpec& field) {
  return field.mode == In::kActv;
}

// As the form is loaded: lists of the description, then the month, then the other fields of the description.
int LoadStep(const FieldSpec& field) {
  if (IsMonthly(field)) return 1;
  return field.kind == Kind::kList ? 0 : 2;
}

bool IsShown(const FieldSpec& field) {
  return !field.column.empty() && (field.loads || field.loads_last);
}

void ShowNumber(const RowView& row, int column, int index, RecordView& view) {
  constexpr std::int64_t kFewDigits = 1'000'000'000'000'000;
  switch (row.TypeOf(column)) {
    case RowView::ColumnType::kNull: return;
    case RowView::ColumnType::kReal: return view.SetNumber(index, row.Number(column));
    case RowView::ColumnType::kInteger:
      if (std::abs(row.Integer(column)) < kFewDigits) return view.SetNumber(index, row.Number(column));
      break;
    default: break;
  }
  view.SetText(index, NullToEmpty(row.At(column)));
}

// The list offers what the destination asks for; an ID that it lacks shows nothing.
std::string ShownDestination(const RowView& row, int column, const std::string& chosen, const Context& context) {
  const std::string item = DestinationItem(row.Text(column));
  const DestinationList offered = DestinationsFor(chosen);
  const std::vector<std::string>* ids = offered.type == "VEN"   ? &context.vents
                                        : offered.type == "FLA" ? &context.flares
                                                                : nullptr;
  if (ids == nullptr || !item.starts_with(offered.prefix)) return "";
  const std::string_view id = std::string_view(item).substr(offered.prefix.size());
  return std::find(ids->begin(), ids->end(), id) == ids->end() ? "" : item;
}

}  // namespace

std::vector<RecordField> RecordFieldsOf(const SheetSpec& sheet) {
  std::vector<RecordField> fields;
  for (const FieldSpec& field : sheet.fields) fields.push_back({field.control, field.tag});
  if (sheet.has_activity) fields.push_back({sheet.status_box(), ""});
  return fields;
}

const RuleSet& RulesOf(const SheetSpec& sheet) {
  using Sets = std::vector<std::pair<const SheetSpec*, std::unique_ptr<const RuleSet>>>;
  static const Sets sets = [] {
    Sets made;
    for (const SheetSpec* each : AllSheets())
      made.emplace_back(each, std::make_unique<const RuleSet>(RecordFieldsOf(*each), each->rules));
    const SheetSpec& structure = StructureSheet();
    made.emplace_back(&structure, std::make_unique<const RuleSet>(RecordFieldsOf(structure), structure.rules));
    return made;
  }();
  return *std::find_if(sets.begin(), sets.end(), [&](const auto& set) { return set.first == &sheet; })->second;
}

RowReader::RowReader(const std::vector<FieldSpec>& fields, const RuleSet& rules, Mode mode, Wanted wanted) {
  for (int step = 0; step <= 2; ++step)
    for (const FieldSpec& field : fields) {
      if (LoadStep(field) != step || !IsShown(field) || (IsMonthly(field) && mode != Mode::kActv)) continue;
      Cell cell{&field, rules.fields().At(field.control), field.shown_when.holds};
      cell.shown_when.Resolve(rules.fields());
      if (wanted == Wanted::kAllFields || rules.Reads(mode, cell.index)) cells_.push_back(std::move(cell));
    }
  for (const Cell& cell : cells_)
    if (cell.field->stored == Stored::kDestination) destination_ = rules.fields().At(cell.field->destination);
}

std::string RowReader::Columns(const std::string& description, const std::string& month) const {
  std::string columns;
  for (const Cell& cell : cells_)
    columns.append(",")
        .append(IsMonthly(*cell.field) ? month : description)
        .append(".[")
        .append(cell.field->column)
        .append("]");
  return columns;
}

void RowReader::Show(const RowView& row, int first, const Context& context, RecordView& view) const {
  view.Clear();
  for (const Cell& cell : cells_) ShowCell(row, first++, cell, context, view);
}

void RowReader::ShowCell(const RowView& row, int column, const Cell& cell, const Context& context,
                         RecordView& view) const {
  const FieldSpec& field = *cell.field;
  if (!cell.shown_when(view)) return;
  if (field.stored == Stored::kNumber || field.stored == Stored::kComputed)
    return ShowNumber(row, column, cell.index, view);
  if (field.stored == Stored::kDestination)
    return view.SetText(cell.index, ShownDestination(row, column, view.Text(destination_), context));
  const Value value = row.At(column);
  if (field.kind == Kind::kOption)
    view.SetChecked(cell.index, ToNumber(value) != 0);
  else
    view.SetText(cell.index, field.stored == Stored::kNone ? NullToEmpty(value) : ShownText(field, value));
}

std::string HasValues(const std::vector<FieldSpec>& fields, const std::string& month) {
  std::string any;
  for (const FieldSpec& field : fields)
    if (IsMonthly(field) && !field.column.empty())
      any += (any.empty() ? "" : " OR ") + month + ".[" + field.column + "] IS NOT NULL";
  return any.empty() ? "0" : "(" + any + ")";
}

}  // namespace merlu
