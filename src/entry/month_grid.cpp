#include "entry/month_grid.h"

#include <algorithm>

#include "base/number_entry.h"
#include "base/numbers.h"
#include "base/text.h"
#include "forms/pasted.h"
#include "history/notes.h"
#include "records/structure_fields.h"
#include "records/structure_record.h"
#include "session/act.h"
#include "session/messages.h"
#include "session/node_keys.h"
#include "sheets/conversions.h"
#include "sheets/units.h"

namespace merlu {
namespace {

constexpr const char* kStructureComments = "txtSTRUCTURE_Comments";
constexpr int kHeads = 2;  // columns that name the record

std::string Bare(std::string caption) {
  while (!caption.empty() && (caption.back() == ':' || caption.back() == ' ' || caption.back() == ';'))
    caption.pop_back();
  return Trim(caption);
}

std::string MonthText(const QCLocation& at) {
  return std::to_string(at.Year) + (at.Month < 10 ? "/0" : "/") + std::to_string(at.Month);
}

std::string StructureText(const StructureFacts& structure) {
  return structure.area + ", " + structure.block + ", " + structure.name;
}

bool IsCell(const FieldSpec& field) {
  return field.mode == In::kActv && !field.column.empty() && field.stored != Stored::kNone &&
         field.control != kStructureComments;
}

}  // namespace

struct MonthGrid::Row {
  explicit Row(const RecordView& seen) : stored(seen), view(seen) {}
  const SheetSpec* sheet = nullptr;
  const RuleSet* rules = nullptr;
  std::vector<const FieldSpec*> fields;
  std::string key, structure, id;
  QCLocation at;
  RecordKeys keys;
  bool structure_inactive = false;
  RecordView stored, view;
  std::string stored_comments, comments;
  bool stored_inactive = false, inactive = false;
  Values read;  // the row as it was read
  Context context;
  std::vector<std::string> before;                           // by field
  std::map<std::string, bool, std::less<>> copied;           // by control
  std::map<std::string, std::string, std::less<>> findings;  // by control
  std::string problem;                                       // why the last save stopped at it
};

std::string MonthGrid::RowKey(int row) const {
  return rows_[static_cast<std::size_t>(row)]->key;
}

const FieldSpec* MonthGrid::FieldAt(int column) const {
  const int field = column - kHeads;
  return field >= 0 && field < static_cast<int>(fields_.size()) ? fields_[static_cast<std::size_t>(field)] : nullptr;
}

void MonthGrid::MakeColumns() {
  const std::vector<FieldSpec>& all = sheet_ == nullptr ? StructureFields() : sheet_->fields;
  rules_ = sheet_ == nullptr ? &StructureRuleSet() : &RulesOf(*sheet_);
  fields_.clear();
  columns_.clear();
  columns_.push_back({by_month_ ? "Month" : "Structure", by_month_ ? "Month" : "Structure"});
  columns_.push_back({"Equipment", "Equipment"});
  for (const FieldSpec& field : all) {
    if (!IsCell(field)) continue;
    fields_.push_back(&field);
    GridColumn column{field.control, Bare(field.caption)};
    const auto same = [&](const GridColumn& other) { return other.caption == column.caption; };
    // two sets of fields may share their captions: the block, or the finding's name, tells them apart
    if (column.caption.empty() || std::any_of(columns_.begin(), columns_.end(), same))
      column.caption = Trim(column.caption + " (" + (field.block.empty() ? field.tag : field.block) + ")");
    if (std::any_of(columns_.begin(), columns_.end(), same)) column.caption += " " + field.tag;
    column.numeric = field.stored == Stored::kNumber || field.stored == Stored::kComputed;
    for (const Item& item : field.items) column.items.push_back(item.text);
    column.free_text = field.free_text;
    columns_.push_back(std::move(column));
  }
  columns_.push_back({sheet_ == nullptr ? kStructureStatus : sheet_->status_box(), "No Emissions to Report"});
  columns_.back().items = {"off", "on"};
  columns_.push_back({sheet_ == nullptr ? kStructureComments : sheet_->comments(), "Comments"});
}

void MonthGrid::ShowMonth(const SheetSpec* sheet, int month) {
  by_month_ = false;
  RecordScope scope;
  scope.month = month;
  Show(sheet, scope, 0);
}

void MonthGrid::ShowRecord(const SheetSpec* sheet, std::int64_t key) {
  by_month_ = true;
  Show(sheet, {}, key);
}

// The row's status, comments and values, as they are stored now.
Values MonthGrid::ReadRow(const Row& row) const {
  std::string columns;
  for (const FieldSpec* field : row.fields) columns += ",t.[" + field->column + "]";
  const std::string sql = row.sheet == nullptr
                              ? "SELECT t.status,t.COMNT_TXT" + columns + " FROM PA_PLATFORM_ACTV t WHERE t.SA_ID_AK=?"
                              : "SELECT a.EA_STATUS,a.EA_COMNT_TXT" + columns + " FROM EA_EQUIP_ACTV a JOIN " +
                                    row.sheet->ea_table() + " t ON t.EA_ID_AK=a.EA_ID_AK WHERE a.EA_ID_AK=?";
  const Rows rows = s_.db.Query(sql, {row.sheet == nullptr ? row.keys.SA_ID_AK : row.keys.EA_ID_AK});
  return rows.rows.empty() ? Values() : rows.rows.front();
}

void MonthGrid::Show(const SheetSpec* sheet, const RecordScope& wanted, std::int64_t only) {
  sheet_ = sheet;
  MakeColumns();
  rows_.clear();
  RecordScope scope = wanted;
  scope.mode = Mode::kActv;
  scope.wanted = Wanted::kAllFields;
  Contexts contexts(s_.db);
  std::map<std::pair<std::int64_t, int>, RowPtr> by_owner;
  const auto owner = [&](const RecordKeys& keys) { return sheet == nullptr ? keys.PD_ID_AK : keys.ED_ID_AK; };
  const auto take = [&](const JudgedRecord& record) {
    if (only != 0 && owner(record.keys) != only) return;
    auto row = std::make_shared<Row>(*record.view);
    const StructureFacts& structure = *record.structure;
    row->sheet = sheet;
    row->rules = record.rules;
    row->fields = fields_;
    row->key = StructureMonthKey(structure.user, record.month, record.year, structure.complex, structure.structure);
    if (sheet != nullptr) row->key += EquipmentSuffix(sheet->type, record.id);
    row->at = ParseNodeKey(row->key);
    row->structure = StructureText(structure);
    row->id = std::string(record.id);
    row->keys = record.keys;
    if (const StructureMonth* month = contexts.Month(record.keys.PD_ID_AK, record.year, record.month))
      row->keys.SA_ID_AK = month->SA_ID_AK;
    row->structure_inactive = sheet != nullptr && record.structure_inactive;
    row->stored_inactive = row->inactive = record.inactive;
    row->context = *record.context;
    by_owner[{owner(record.keys), record.month}] = row;
    rows_.push_back(std::move(row));
  };
  if (sheet == nullptr)
    JudgeStructures(s_.db, contexts, scope, take);
  else
    JudgeEquipment(s_.db, contexts, *sheet, scope, take);
  std::map<std::string, int> place;
  int at = 0;
  for (int node : s_.tree.InOrder()) place[s_.tree.nodes[static_cast<std::size_t>(node)].key] = at++;
  const auto order = [&](const RowPtr& row) {
    const auto found = place.find(row->key);
    return found == place.end() ? at : found->second;
  };
  std::stable_sort(rows_.begin(), rows_.end(), [&](const RowPtr& a, const RowPtr& b) { return order(a) < order(b); });
  for (RowPtr& row : rows_) {
    row->read = ReadRow(*row);
    if (row->read.size() > 1) row->stored_comments = row->comments = NullToEmpty(row->read[1]);
    row->before.assign(fields_.size(), "");
    const std::string table = sheet == nullptr ? "PA_PLATFORM_ACTV" : sheet->ea_table();
    const std::int64_t key = sheet == nullptr ? row->keys.SA_ID_AK : row->keys.EA_ID_AK;
    const auto kept = CopiedOf(s_.companion, table, key);
    for (const CopiedField& copied : kept)
      for (std::size_t i = 0; i < fields_.size() && i + 2 < row->read.size(); ++i)
        if (EqualsIgnoringCase(copied.column, fields_[i]->column) && NullToEmpty(row->read[i + 2]) == copied.value)
          row->copied[fields_[i]->control] = true;
  }
  // the month before: of rows that show, or read for the one month that does
  std::map<std::pair<std::int64_t, int>, Values> before;
  if (!by_month_ && scope.month > 1 && !rows_.empty()) {
    std::string columns;
    for (const FieldSpec* field : fields_) columns += ",t.[" + field->column + "]";
    const std::string sql =
        sheet == nullptr ? "SELECT t.PD_ID_AK" + columns + " FROM PA_PLATFORM_ACTV t WHERE t.PA_MO=? AND t.PA_YR=?"
                         : "SELECT a.ED_ID_AK" + columns + " FROM EA_EQUIP_ACTV a JOIN " + sheet->ea_table() +
                               " t ON t.EA_ID_AK=a.EA_ID_AK WHERE a.EA_MO=? AND a.EA_YR=?";
    for (Values& values : s_.db.Query(sql, {std::int64_t{scope.month - 1}, std::int64_t{s_.year}}).rows)
      before[{ToInteger(values[0]), scope.month - 1}] = Values(values.begin() + 1, values.end());
  }
  for (RowPtr& row : rows_) {
    const std::pair<std::int64_t, int> key{owner(row->keys), row->at.Month - 1};
    if (const auto shown = by_owner.find(key); shown != by_owner.end())
      for (std::size_t i = 0; i < fields_.size(); ++i)
        row->before[i] = shown->second->stored.Text(rules_->fields().At(fields_[i]->control));
    else if (const auto read = before.find(key); read != before.end())
      for (std::size_t i = 0; i < fields_.size(); ++i) row->before[i] = ShownText(*fields_[i], read->second[i]);
    JudgeRow(*row);
  }
  for (RowPtr& row : rows_)
    if (const auto typed = changed_.find(row->key); typed != changed_.end()) row = typed->second;
  ++shape_;
  ++revision_;
}

std::string MonthGrid::TextOf(const Row& row, int column) const {
  if (column == 0) return by_month_ ? MonthText(row.at) : row.structure;
  if (column == 1) return row.id;
  if (column == StatusColumn()) return row.inactive ? "on" : "off";
  if (column == CommentsColumn()) return row.comments;
  return row.view.Text(row.rules->fields().At(FieldAt(column)->control));
}

std::string MonthGrid::StoredTextOf(const Row& row, int column) const {
  if (column == StatusColumn()) return row.stored_inactive ? "on" : "off";
  if (column == CommentsColumn()) return row.stored_comments;
  return row.stored.Text(row.rules->fields().At(FieldAt(column)->control));
}

bool MonthGrid::IsLocked(const Row& row, int column) const {
  if (column < kHeads || row.structure_inactive) return true;
  const FieldSpec* field = FieldAt(column);
  if (field == nullptr) return false;
  if (field->stored == Stored::kComputed || field->page == kOffPage) return true;
  bool locked = false;
  for (const Enabling& rule : row.sheet == nullptr ? std::vector<Enabling>() : row.sheet->enablings) {
    if (rule.at == Enabling::At::kClick || rule.mode == In::kDesc) continue;
    if (std::find(rule.fields.begin(), rule.fields.end(), field->control) == rule.fields.end()) continue;
    const bool on = rule.when.holds(row.view);
    if (on ? rule.only_off : rule.only_on) continue;
    locked = !on;
  }
  return locked;
}

GridCell MonthGrid::Cell(int row_number, int column) const {
  const Row& row = *rows_[static_cast<std::size_t>(row_number)];
  GridCell cell;
  cell.text = TextOf(row, column);
  cell.locked = IsLocked(row, column);
  const FieldSpec* field = FieldAt(column);
  if (field != nullptr) {
    cell.was = row.before[static_cast<std::size_t>(column - kHeads)];
    const auto copied = row.copied.find(field->control);
    cell.copied = copied != row.copied.end() && copied->second;
    const bool typed = cell.text != StoredTextOf(row, column);
    if (typed && columns_[static_cast<std::size_t>(column)].numeric) cell.hint = NumberHint(cell.text);
    if (const auto found = row.findings.find(field->control); found != row.findings.end()) cell.finding = found->second;
  }
  if (column == 0 && !row.problem.empty()) cell.finding = row.problem;
  cell.back = !cell.finding.empty() ? Back::kFlag : cell.locked ? Back::kFace : Back::kWindow;
  return cell;
}

void MonthGrid::JudgeRow(Row& row) const {
  row.findings.clear();
  bool any = false;
  for (const FieldSpec* field : fields_) any = any || row.view.IsFilled(row.rules->fields().At(field->control));
  if (row.inactive || row.structure_inactive || !any) return;
  const Verdicts verdicts = Judge(*row.rules, Mode::kActv, row.view, row.context);
  for (const JudgedFinding& finding : StandingFindings(verdicts)) {
    if (finding.field < 0) continue;
    row.findings[row.rules->fields()[finding.field].control] = std::string(finding.text);
  }
}

void MonthGrid::Set(Row& row, int column, const std::string& text, bool copied) {
  row.problem.clear();
  if (column == StatusColumn()) {
    row.inactive = text == "on";
    const std::string box = row.sheet == nullptr ? kStructureStatus : row.sheet->status_box();
    row.view.SetChecked(row.rules->fields().At(box), row.inactive);
  } else if (column == CommentsColumn()) {
    row.comments = text;
  } else {
    const FieldSpec& field = *FieldAt(column);
    const bool numeric = columns_[static_cast<std::size_t>(column)].numeric;
    row.view.SetText(row.rules->fields().At(field.control),
                     numeric && IsSum(text) ? SumText(text).value_or(text) : text);
    row.copied[field.control] = copied;
  }
}

void MonthGrid::Note(const RowPtr& row) {
  bool changed = row->inactive != row->stored_inactive || row->comments != row->stored_comments;
  for (const FieldSpec* field : fields_) {
    const int place = row->rules->fields().At(field->control);
    changed = changed || row->view.Text(place) != row->stored.Text(place);
  }
  if (changed)
    changed_[row->key] = row;
  else
    changed_.erase(row->key);
  JudgeRow(*row);
  ++revision_;
}

void MonthGrid::SetCell(int row, int column, const std::string& text) {
  const RowPtr& changed = rows_[static_cast<std::size_t>(row)];
  if (IsLocked(*changed, column)) return;
  Set(*changed, column, text, false);
  Note(changed);
  if (on_typed) on_typed();
}

PastePlan MonthGrid::Plan(int row, int column, const std::string& text) const {
  PastePlan plan{row, column, "", "", "", text, "outside the grid"};
  if (row >= RowCount() || column >= static_cast<int>(columns_.size())) return plan;
  const Row& at = *rows_[static_cast<std::size_t>(row)];
  const GridColumn& head = columns_[static_cast<std::size_t>(column)];
  plan.place = by_month_ ? MonthText(at.at) : at.structure + (at.id.empty() ? "" : " · " + at.id);
  plan.field = head.caption;
  plan.old_text = TextOf(at, column);
  if (IsLocked(at, column)) {
    plan.what = "locked";
  } else if (head.numeric) {
    plan.new_text = IsSum(text) ? SumText(text).value_or(text) : PastedNumber(text);
    if (!IsNumericText(plan.new_text)) plan.what = "not a number";
  } else if (!head.items.empty()) {
    const auto item = std::find_if(head.items.begin(), head.items.end(),
                                   [&](const std::string& each) { return EqualsIgnoringCase(each, Trim(text)); });
    if (item != head.items.end())
      plan.new_text = *item;
    else if (!head.free_text)
      plan.what = "no such choice";
  }
  if (plan.what != "outside the grid") return plan;
  const bool blank = plan.old_text.empty();
  plan.what = plan.new_text == plan.old_text ? "same" : blank ? "set" : "changed";
  return plan;
}

void MonthGrid::Paste(int row, int column, const GridBlock& block) {
  std::vector<PastePlan> plan;
  for (std::size_t i = 0; i < block.size(); ++i)
    for (std::size_t j = 0; j < block[i].size(); ++j)
      if (!Trim(block[i][j]).empty())
        plan.push_back(Plan(row + static_cast<int>(i), column + static_cast<int>(j), block[i][j]));
  const bool asks = std::any_of(plan.begin(), plan.end(),
                                [](const PastePlan& cell) { return cell.what != "set" && cell.what != "same"; });
  if (asks && approve && !approve(plan)) return;
  std::map<int, RowPtr> touched;
  for (const PastePlan& cell : plan) {
    if (!cell.Applies()) continue;
    const RowPtr& at = rows_[static_cast<std::size_t>(cell.row)];
    Set(*at, cell.column, cell.new_text, false);
    touched[cell.row] = at;
  }
  for (const auto& [number, changed] : touched) Note(changed);
}

// What the grid shows there, saved or not.
std::string MonthGrid::Before(const Row& row, int column) const {
  QCLocation at = row.at;
  --at.Month;
  const auto typed = changed_.find(KeyOf(at, Mode::kActv));
  if (typed == changed_.end()) return row.before[static_cast<std::size_t>(column - kHeads)];
  return typed->second->view.Text(row.rules->fields().At(FieldAt(column)->control));
}

int MonthGrid::CopyBefore(const std::vector<int>& picked) {
  int copied = 0;
  for (int number = 0; number < RowCount(); ++number) {
    if (!picked.empty() && std::find(picked.begin(), picked.end(), number) == picked.end()) continue;
    const RowPtr& row = rows_[static_cast<std::size_t>(number)];
    bool any = false;
    for (int column = kHeads; FieldAt(column) != nullptr; ++column) {
      if (IsLocked(*row, column) || !TextOf(*row, column).empty()) continue;
      const std::string before = Before(*row, column);
      const std::vector<std::string>& items = columns_[static_cast<std::size_t>(column)].items;
      if (before.empty() || (!items.empty() && std::find(items.begin(), items.end(), before) == items.end())) continue;
      Set(*row, column, before, true);
      any = true;
      ++copied;
    }
    if (any) Note(row);
  }
  return copied;
}

int MonthGrid::Confirm(const std::vector<int>& picked) {
  int confirmed = 0;
  for (int number = 0; number < RowCount(); ++number) {
    if (!picked.empty() && std::find(picked.begin(), picked.end(), number) == picked.end()) continue;
    const RowPtr& row = rows_[static_cast<std::size_t>(number)];
    bool any = false;
    for (auto& [control, copied] : row->copied) {
      any = any || copied;
      confirmed += copied ? 1 : 0;
      copied = false;
    }
    // what was saved as copied is confirmed at once; what was not is with the save
    if (!any || changed_.contains(row->key)) continue;
    WriteBatch batch(s_.db);
    const bool structure = row->sheet == nullptr;
    KeepCopied(s_.companion, structure ? "PA_PLATFORM_ACTV" : row->sheet->ea_table(),
               structure ? row->keys.SA_ID_AK : row->keys.EA_ID_AK, {});
    batch.Commit();
  }
  ++revision_;
  return confirmed;
}

TypedRecord MonthGrid::Typed(const Row& row) const {
  TypedRecord typed;
  typed.sheet = row.sheet;
  typed.at = row.at;
  typed.keys = row.keys;
  typed.structure_inactive = row.structure_inactive;
  const std::vector<FieldSpec>& all = row.sheet == nullptr ? StructureFields() : row.sheet->fields;
  for (const FieldSpec& field : all) {
    if (!IsCell(field)) continue;
    const int place = row.rules->fields().At(field.control);
    if (row.view.Text(place) != row.stored.Text(place)) typed.texts.emplace_back(field.control, row.view.Text(place));
  }
  if (row.comments != row.stored_comments)
    typed.texts.emplace_back(row.sheet == nullptr ? kStructureComments : row.sheet->comments(), row.comments);
  if (row.inactive != row.stored_inactive) typed.no_emissions = row.inactive;
  return typed;
}

// The fields that are copied and not confirmed, as they are stored now.
void MonthGrid::KeepCopiedOf(const Row& row) {
  const bool structure = row.sheet == nullptr;
  const std::string table = structure ? "PA_PLATFORM_ACTV" : row.sheet->ea_table();
  const std::int64_t key = structure ? row.keys.SA_ID_AK : row.keys.EA_ID_AK;
  const Values stored = ReadRow(row);
  std::vector<CopiedField> kept;
  for (std::size_t i = 0; i < row.fields.size() && i + 2 < stored.size(); ++i)
    if (const auto copied = row.copied.find(row.fields[i]->control); copied != row.copied.end() && copied->second)
      kept.push_back({row.fields[i]->column, NullToEmpty(stored[i + 2])});
  if (!kept.empty() || !CopiedOf(s_.companion, table, key).empty()) KeepCopied(s_.companion, table, key, kept);
}

GridSaved MonthGrid::Save() {
  GridSaved saved;
  std::vector<RowPtr> order;
  for (const RowPtr& row : rows_)
    if (changed_.contains(row->key)) order.push_back(row);
  for (const auto& [key, row] : changed_)
    if (std::find(order.begin(), order.end(), row) == order.end()) order.push_back(row);
  RowPtr at;
  const auto refuse = [&](const std::string& why) {
    at->problem = why;
    saved = {};
    saved.refused = at->structure + (at->id.empty() ? "" : " · " + at->id) + ": " + why;
    ++revision_;
  };
  s_.db.NoticeOthers();
  const Act act(s_, "Month Grid");
  if (!act.MayWrite()) return saved;
  try {
    WriteBatch batch(s_.db);
    AllOrNothing whole(s_.db);
    for (const RowPtr& row : order) {
      at = row;
      row->problem.clear();
      if (ReadRow(*row) != row->read) {
        refuse("another program has changed or deleted this record");
        return saved;
      }
    }
    for (const RowPtr& row : order) {
      at = row;
      saved.findings += SaveTyped(s_, Typed(*row));
      KeepCopiedOf(*row);
      ++saved.records;
    }
    whole.Keep();
    batch.Commit();
  } catch (const Fault& fault) {
    if (at == nullptr) throw;
    refuse(fault.description);
    return saved;
  }
  Forget();
  return saved;
}

void MonthGrid::Forget() {
  changed_.clear();
  ++revision_;
}

}  // namespace merlu
