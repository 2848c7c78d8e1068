#include "entry/month_rows.h"

#include <algorithm>
#include <map>

#include "session/node_keys.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"
#include "sheets/units.h"

namespace merlu {
namespace {

std::vector<const FieldSpec*> FieldsOf(const SheetSpec& sheet) {
  std::vector<const FieldSpec*> fields;
  for (const FieldSpec& field : sheet.fields)
    if (field.mode == In::kActv && !field.column.empty() && field.stored != Stored::kNone &&
        field.control != sheet.comments())
      fields.push_back(&field);
  return fields;
}

MonthKind MakeKind(const SheetSpec& sheet) {
  MonthKind kind;
  kind.sheet = &sheet;
  kind.rules = &RulesOf(sheet);
  kind.fields = FieldsOf(sheet);
  for (const FieldSpec* field : kind.fields) kind.indexes.push_back(kind.rules->fields().At(field->control));
  kind.table = sheet.tables().month;
  kind.status_box = sheet.status_box();
  kind.comments = sheet.comments();
  kind.status_index = kind.rules->fields().Find(kind.status_box);
  return kind;
}

}  // namespace

const MonthKind& MonthKindOf(const SheetSpec* sheet) {
  static const std::map<const SheetSpec*, MonthKind> kinds = [] {
    std::map<const SheetSpec*, MonthKind> made;
    made[&StructureSheet()] = MakeKind(StructureSheet());
    for (const SheetSpec* each : AllSheets()) made[each] = MakeKind(*each);
    return made;
  }();
  return kinds.at(sheet);
}

std::string MonthRow::PlaceText() const {
  return JoinPlace(at.Month, at.Year, structure, IsOfStructure() ? "" : TreeTypeName(sheet->type) + ": " + id);
}

void ReadMonthRows(Database& db, Contexts& contexts, const SheetSpec* sheet, const MonthScope& wanted,
                   const std::function<void(MonthRow)>& each) {
  const bool of_structure = sheet == &StructureSheet();
  RecordScope scope{.mode = Mode::kActv, .month = wanted.month, .PD_ID_AK = wanted.PD_ID_AK, .key = wanted.key};
  scope.wanted = Wanted::kAllFields;
  scope.judged = false;
  scope.more = of_structure ? ",a.status,a.COMNT_TXT" : ",a.EA_STATUS,a.EA_COMNT_TXT";
  const MonthKind& kind = MonthKindOf(sheet);
  const std::vector<const FieldSpec*>& fields = kind.fields;
  for (const FieldSpec* field : fields) scope.more += (of_structure ? ",a.[" : ",t.[") + field->column + "]";
  const auto take = [&](const JudgedRecord& record) {
    if (record.structure == nullptr) return;
    MonthRow row(*record.view);
    const StructureFacts& facts = *record.structure;
    row.sheet = sheet;
    row.kind = &kind;
    row.keys = record.keys;
    if (const StructureMonth* month = contexts.Month(record.keys.PD_ID_AK, record.year, record.month))
      row.keys.SA_ID_AK = of_structure ? record.keys.SA_ID_AK : month->SA_ID_AK;
    row.id = std::string(record.id);
    row.node = StructureMonthKey(facts.user, record.month, record.year, facts.complex, facts.structure);
    if (!of_structure) row.node += EquipmentSuffix(sheet->type, row.id);
    row.at = ParseNodeKey(row.node);
    row.structure = StructureText(facts.area, facts.block, facts.name);
    row.inactive = record.inactive;
    row.structure_inactive = !of_structure && record.structure_inactive;
    for (int column = 0; column < 2 + static_cast<int>(fields.size()); ++column)
      row.row.push_back(record.row->At(record.more + column));
    each(std::move(row));
  };
  JudgeRecords(db, contexts, *sheet, scope, take);
}

std::vector<bool> LockedFields(const SheetSpec* sheet, const RecordView& view) {
  struct State {
    bool enabled = true, locked = false;
  };
  const std::vector<const FieldSpec*>& fields = MonthFields(sheet);
  std::vector<State> states(fields.size());
  for (const Enabling& rule : sheet->enablings) {
    if (rule.at == Enabling::At::kClick || rule.mode == In::kDesc) continue;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (std::find(rule.fields.begin(), rule.fields.end(), fields[i]->control) == rule.fields.end()) continue;
      const bool on = rule.when.holds(view);
      if (on ? rule.only_off : rule.only_on) continue;
      if (rule.does != Enabling::Does::kLock) states[i].enabled = on;
      if (rule.does != Enabling::Does::kEnable) states[i].locked = !on;
    }
  }
  std::vector<bool> locked;
  for (std::size_t i = 0; i < fields.size(); ++i)
    locked.push_back(!states[i].enabled || states[i].locked || fields[i]->stored == Stored::kComputed ||
                     fields[i]->page != 0);
  return locked;
}

}  // namespace merlu
