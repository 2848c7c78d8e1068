#include "records/judge_records.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"
#include "sheets/units.h"

namespace merlu {
namespace {

constexpr int kMonthsOfYear = 16;  // room for a month after a year

int YearAndMonth(int year, int month) {
  return year * kMonthsOfYear + month;
}

// Conditions of a query.
struct Where {
  std::string text;
  void Add(const std::string& condition) { text += (text.empty() ? " WHERE " : " AND ") + condition; }
};

std::string TotalColumns() {
  std::string columns;
  for (std::size_t total = 1; total < kTotals; ++total) columns += std::string(",[") + kTotalColumns[total] + "]";
  return columns;
}

}  // namespace

Contexts::Contexts(Database& db, std::int64_t only, int month) {
  const std::string where = only == 0 ? "" : " WHERE PD_ID_AK=?";
  const std::string of_month = month == 0 ? "" : (only == 0 ? " WHERE PA_MO=?" : " AND PA_MO=?");
  Values values;
  if (only != 0) values.emplace_back(only);
  Values of_values = values;
  if (month != 0) of_values.emplace_back(std::int64_t{month});
  try {
    db.ForEach(
        "SELECT PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,[Area],[Block],[Name] FROM PD_PLATFORM_DESC" + where,
        values, [&](const RowView& row) {
          const auto text = [&](int column) { return std::string(row.Text(column)); };
          structures_[row.Integer(0)] = {text(1), text(2), text(3), text(4), text(5), text(6), {}, {}, false, {}};
        });
    db.ForEach("SELECT PD_ID_AK,PA_YR,PA_MO,SA_ID_AK,status" + TotalColumns() + " FROM PA_PLATFORM_ACTV" + where +
                   of_month + " ORDER BY rowid",
               of_values, [&](const RowView& row) {
                 const MonthKey key{row.Integer(0),
                                    YearAndMonth(static_cast<int>(row.Integer(1)), static_cast<int>(row.Integer(2)))};
                 const auto [found, is_new] = months_.try_emplace(key);
                 if (!is_new) return;  // of a month that is there twice the first counts
                 found->second.SA_ID_AK = row.Integer(3);
                 found->second.inactive = row.Text(4) == "I";
                 constexpr int kFirstTotal = 4;
                 for (std::size_t total = 1; total < kTotals; ++total)
                   found->second.totals[total] = ToNumber(row.At(kFirstTotal + static_cast<int>(total)));
               });
    db.ForEach("SELECT PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC" + where + " ORDER BY ED_ID_AK",
               values, [&](const RowView& row) {
                 if (std::find(types_.begin(), types_.end(), row.Text(1)) == types_.end())
                   types_.emplace_back(row.Text(1));
                 const auto found = structures_.find(row.Integer(0));
                 if (found == structures_.end()) return;
                 found->second.has_equipment = true;
                 std::vector<std::string>& types = found->second.types;
                 if (std::find(types.begin(), types.end(), row.Text(1)) == types.end()) types.emplace_back(row.Text(1));
                 if (row.Text(1) == "VEN") found->second.vents.emplace_back(row.Text(2));
                 if (row.Text(1) == "FLA") found->second.flares.emplace_back(row.Text(2));
               });
    surroundings_.reserve(structures_.size() + months_.size());
  } catch (const Fault& fault) {
    fault_ = std::make_shared<const Fault>(fault);
  }
}

const StructureFacts* Contexts::Structure(std::int64_t PD_ID_AK) const {
  const auto found = structures_.find(PD_ID_AK);
  return found == structures_.end() ? nullptr : &found->second;
}

bool Contexts::MayHave(std::string_view type) const {
  const auto is_type = [type](const std::string& present) { return EqualsIgnoringCase(present, type); };
  return fault_ != nullptr || std::any_of(types_.begin(), types_.end(), is_type);
}

const StructureMonth* Contexts::Month(std::int64_t PD_ID_AK, int year, int month) const {
  const auto found = months_.find({PD_ID_AK, YearAndMonth(year, month)});
  return found == months_.end() ? nullptr : &found->second;
}

const Context& Contexts::Of(std::int64_t PD_ID_AK, int year, int month) {
  return At(PD_ID_AK, year, month).context;
}

const Surroundings& Contexts::At(std::int64_t PD_ID_AK, int year, int month) {
  const auto [found, is_new] = surroundings_.try_emplace({PD_ID_AK, YearAndMonth(year, month)});
  Surroundings& all = found->second;
  if (!is_new) return all;
  all.structure = Structure(PD_ID_AK);
  all.month = Month(PD_ID_AK, year, month);
  Context& context = all.context;
  context.year = year;
  context.month = month;
  context.unreadable = fault_;
  if (all.structure != nullptr) {
    context.has_equipment = all.structure->has_equipment;
    context.vents = all.structure->vents;
    context.flares = all.structure->flares;
  }
  if (all.month != nullptr) {
    context.month_found = true;
    context.totals = all.month->totals;
  }
  return all;
}

// A record in the middle of a query, and what judges it.
struct RecordJudge::Ready {
  JudgedRecord record;
  RowReader reader;
  RecordView view, stored;
  Verdicts verdicts;
  int status_box = -1;
  Ready(const RuleSet& rules, RowReader read) : reader(std::move(read)), view(rules.fields()), stored(rules.fields()) {
    record.rules = &rules;
    record.view = record.stored = &view;
    record.verdicts = &verdicts;
  }

  void Hand(const RecordScope& scope, Contexts& contexts, const RowView& row, int first, const EachRecord& each) {
    const Surroundings& around = contexts.At(record.keys.PD_ID_AK, record.year, record.month);
    record.context = &around.context;
    record.structure = around.structure;
    record.structure_inactive = around.month != nullptr && around.month->inactive;
    if (!record.IsOfStructure() && around.month != nullptr) record.keys.SA_ID_AK = around.month->SA_ID_AK;
    verdicts.Clear();
    record.stored = &view;
    if (scope.only_unchecked && (record.inactive || record.checked)) return each(record);
    reader.Show(row, first, *record.context, view);
    if (status_box >= 0) view.SetChecked(status_box, record.inactive);
    record.row = &row;
    record.more = first + reader.size();
    if (scope.judged) Judge(*record.rules, scope.mode, view, *record.context, verdicts);
    if (!verdicts.changes.empty()) {
      reader.Show(row, first, *record.context, stored);
      record.stored = &stored;
    }
    each(record);
  }
};

namespace {

constexpr int kFirstOfStructure = 7, kFirstOfEquipment = 9;  // column of the view's values

std::string SelectStructures(const RecordScope& scope, const RowReader& reader) {
  const bool months = scope.mode == Mode::kActv;
  Where where;
  if (scope.PD_ID_AK != 0) where.Add("d.PD_ID_AK=?");
  if (months && scope.month != 0) where.Add("a.PA_MO=?");
  if (scope.key != 0) where.Add(months ? "a.SA_ID_AK=?" : "d.PD_ID_AK=?");
  if (!months)
    return "SELECT d.PD_ID_AK,0,0,0,NULL,d.PD_QC_DT IS NOT NULL,1" + reader.Columns("d", "") +
           " FROM PD_PLATFORM_DESC d" + where.text + " ORDER BY d.PD_ID_AK";
  return "SELECT d.PD_ID_AK,a.SA_ID_AK,a.PA_YR,a.PA_MO,a.status,a.PA_QC_DT IS NOT NULL," +
         (scope.asks_values ? HasValues(StructureSheet().fields, "a") : "1") + reader.Columns("d", "a") + scope.more +
         " FROM PA_PLATFORM_ACTV a CROSS JOIN PD_PLATFORM_DESC d ON d.PD_ID_AK=a.PD_ID_AK" + where.text +
         " ORDER BY a.SA_ID_AK";
}

// The tables of a type's records, first the one by which the wanted records are found directly.
std::string EquipmentTables(const SheetSpec& sheet, const RecordScope& scope) {
  const std::string type_desc = " CROSS JOIN " + sheet.ed_table() + " e ON e.ED_ID_AK=d.ED_ID_AK";
  if (scope.mode != Mode::kActv) {
    if (scope.PD_ID_AK != 0 || scope.key != 0) return " FROM ED_EQUIP_DESC d" + type_desc;
    return " FROM " + sheet.ed_table() + " e CROSS JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=e.ED_ID_AK";
  }
  const std::string month = " CROSS JOIN " + sheet.ea_table() + " t ON t.EA_ID_AK=a.EA_ID_AK";
  if (scope.key != 0)
    return " FROM EA_EQUIP_ACTV a" + month + " CROSS JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK" + type_desc;
  if (scope.PD_ID_AK != 0)
    return " FROM ED_EQUIP_DESC d CROSS JOIN EA_EQUIP_ACTV a ON a.ED_ID_AK=d.ED_ID_AK" + month + type_desc;
  return " FROM " + sheet.ea_table() +
         " t CROSS JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK CROSS JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK" +
         type_desc;
}

std::string SelectEquipment(const SheetSpec& sheet, const RecordScope& scope, const RowReader& reader) {
  const bool months = scope.mode == Mode::kActv;
  Where where;
  if (scope.PD_ID_AK != 0) where.Add("d.PD_ID_AK=?");
  where.Add("d.ED_EQUIP_TYP=?");
  if (months && scope.month != 0) where.Add("a.EA_MO=?");
  if (scope.key != 0) where.Add(months ? "a.EA_ID_AK=?" : "d.ED_ID_AK=?");
  std::string sql = "SELECT d.PD_ID_AK,d.ED_ID_AK,d.ED_MERLU_EQUIP_ID,";
  if (months)
    sql += "a.EA_ID_AK,a.EA_YR,a.EA_MO,a.EA_STATUS,a.EA_QC_DT IS NOT NULL," +
           (scope.asks_values ? HasValues(sheet.fields, "t") : "1");
  else
    sql += "0,0,0,NULL,d.ED_QC_DT IS NOT NULL,1";
  sql += reader.Columns("e", "t") + scope.more + EquipmentTables(sheet, scope) + where.text;
  // without a structure the type's own table leads, in the order of its keys
  if (scope.PD_ID_AK != 0) sql += months ? " ORDER BY a.EA_ID_AK" : " ORDER BY d.ED_ID_AK";
  return sql;
}

}  // namespace

RecordJudge::RecordJudge(const SheetSpec& sheet, const RecordScope& scope) : sheet_(sheet), scope_(scope) {
  const RuleSet& rules = RulesOf(sheet);
  ready_ = std::make_unique<Ready>(rules, RowReader(sheet.fields, rules, scope.mode, scope.wanted));
  ready_->record.sheet = &sheet;
  ready_->status_box = rules.fields().Find(sheet.status_box());
  sql_ = ready_->record.IsOfStructure() ? SelectStructures(scope, ready_->reader)
                                        : SelectEquipment(sheet, scope, ready_->reader);
}

RecordJudge::~RecordJudge() = default;

void RecordJudge::JudgeRows(Database& db, Contexts& contexts, std::int64_t PD_ID_AK, std::int64_t key,
                            const EachRecord& each) {
  const bool structures = ready_->record.IsOfStructure();
  Values values;
  if (scope_.PD_ID_AK != 0) values.emplace_back(PD_ID_AK);
  if (!structures) values.emplace_back(sheet_.type);
  if (scope_.mode == Mode::kActv && scope_.month != 0) values.emplace_back(std::int64_t{scope_.month});
  if (scope_.key != 0) values.emplace_back(key);
  structures ? JudgeStructures(db, contexts, values, each) : JudgeEquipment(db, contexts, values, each);
}

void RecordJudge::JudgeStructures(Database& db, Contexts& contexts, const Values& values, const EachRecord& each) {
  db.ForEach(sql_, values, [&](const RowView& row) {
    JudgedRecord& record = ready_->record;
    record.keys = {row.Integer(0), row.Integer(1), 0, 0};
    record.year = static_cast<int>(row.Integer(2));
    record.month = static_cast<int>(row.Integer(3));
    record.inactive = row.Text(4) == "I";
    record.checked = row.Integer(5) != 0;
    record.has_values = row.Integer(6) != 0;
    ready_->Hand(scope_, contexts, row, kFirstOfStructure, each);
  });
}

void RecordJudge::JudgeEquipment(Database& db, Contexts& contexts, const Values& values, const EachRecord& each) {
  db.ForEach(sql_, values, [&](const RowView& row) {
    JudgedRecord& record = ready_->record;
    record.id = row.Text(2);
    record.keys = {row.Integer(0), 0, row.Integer(1), row.Integer(3)};
    record.year = static_cast<int>(row.Integer(4));
    record.month = static_cast<int>(row.Integer(5));
    record.inactive = row.Text(6) == "I";
    record.checked = row.Integer(7) != 0;
    record.has_values = row.Integer(8) != 0;
    ready_->Hand(scope_, contexts, row, kFirstOfEquipment, each);
  });
}

void JudgeRecords(Database& db, Contexts& contexts, const SheetSpec& sheet, const RecordScope& scope,
                  const EachRecord& each) {
  if (scope.mode == Mode::kActv && !sheet.has_activity) return;
  RecordJudge(sheet, scope).JudgeRows(db, contexts, scope.PD_ID_AK, scope.key, each);
}

void JudgeAll(Database& db, const RecordScope& scope, const EachRecord& each) {
  Contexts contexts(db, scope.PD_ID_AK);
  JudgeRecords(db, contexts, StructureSheet(), scope, each);
  for (const SheetSpec* sheet : AllSheets())
    if (contexts.MayHave(sheet->type)) JudgeRecords(db, contexts, *sheet, scope, each);
}

Context ContextOf(Database& db, Mode mode, const RecordKeys& keys) {
  Context context;
  try {
    const std::string month =
        "SELECT d.PD_ID_AK" + TotalColumns() +
        " FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC d ON d.PD_ID_AK=a.PD_ID_AK WHERE a.SA_ID_AK=?";
    std::int64_t structure = keys.PD_ID_AK;
    if (mode == Mode::kActv)
      db.ForEach(month, {keys.SA_ID_AK}, [&](const RowView& row) {
        context.month_found = true;
        structure = row.Integer(0);
        for (std::size_t total = 1; total < kTotals; ++total)
          context.totals[total] = ToNumber(row.At(static_cast<int>(total)));
      });
    context.has_equipment = !IsNull(db.Single("SELECT 1 FROM ED_EQUIP_DESC WHERE PD_ID_AK=? LIMIT 1", {structure}));
  } catch (const Fault& fault) {
    context.unreadable = std::make_shared<const Fault>(fault);
  }
  return context;
}

namespace {

std::int64_t StructureOf(Database& db, const SheetSpec& sheet, Mode mode, const RecordKeys& keys) {
  const bool months = mode == Mode::kActv;
  const bool structure = &sheet == &StructureSheet();
  if (structure && !months) return keys.PD_ID_AK;
  if (structure) return ToInteger(db.Single("SELECT PD_ID_AK FROM PA_PLATFORM_ACTV WHERE SA_ID_AK=?", {keys.SA_ID_AK}));
  if (!months) return ToInteger(db.Single("SELECT PD_ID_AK FROM ED_EQUIP_DESC WHERE ED_ID_AK=?", {keys.ED_ID_AK}));
  return ToInteger(
      db.Single("SELECT d.PD_ID_AK FROM EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK WHERE "
                "a.EA_ID_AK=?",
                {keys.EA_ID_AK}));
}

}  // namespace

bool JudgeRecord(Database& db, const SheetSpec& sheet, Mode mode, const RecordKeys& keys, const EachRecord& each) {
  const bool months = mode == Mode::kActv;
  RecordScope scope{.mode = mode};
  if (&sheet == &StructureSheet())
    scope.key = months ? keys.SA_ID_AK : keys.PD_ID_AK;
  else
    scope.key = months ? keys.EA_ID_AK : keys.ED_ID_AK;
  scope.wanted = Wanted::kAllFields;
  const std::int64_t structure = StructureOf(db, sheet, mode, keys);
  if (structure == 0) return false;
  Contexts contexts(db, structure);
  bool found = false;
  JudgeRecords(db, contexts, sheet, scope, [&](const JudgedRecord& record) {
    found = true;
    each(record);
  });
  return found;
}

}  // namespace merlu
