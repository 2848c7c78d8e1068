#include "inventory_qc/inventory_run.h"

#include <algorithm>
#include <map>

#include "base/text.h"
#include "inventory_qc/checks_table.h"
#include "session/equipment_index.h"
#include "session/notices.h"
#include "session/types.h"
#include "session/wait.h"

namespace merlu {
namespace {

constexpr const char* kBlank = "Required field left blank";
constexpr const char* kTimeStamp = "1976-07-04 00:00:00";  // a constant, not the time of any event
constexpr int kNoMonth = 99, kNoYear = 9999;

constexpr const char* kGases[] = {"O2",  "CO2", "N2",  "C1", "C2", "C3",     "iC4",
                                  "nC4", "iC5", "nC5", "C6", "C7", "C8Plus", "H2S"};
constexpr const char* kEfficiencies[] = {"NOX", "CO", "VOC", "PM10", "SOX"};
constexpr const char* kComponentColumns[] = {"PUMP_SEALS_QTY",
                                             "Connectors_qty",
                                             "Flanges_qty",
                                             "Open_Ended_Lines_qty",
                                             "CENTCOMPWET_SEALS_QTY",
                                             "CENTCOMPDRY_SEALS_QTY",
                                             "RECIPCOMP_SEALS_QTY",
                                             "OTH_COMP_SEALS_QTY",
                                             "Diaphragms_qty",
                                             "Drains_qty",
                                             "Dump_Arms_qty",
                                             "Hatches_qty",
                                             "Instruments_qty",
                                             "Meters_qty",
                                             "PRES_RELIEF_VALVES_QTY",
                                             "POLISHED_RODS_QTY",
                                             "OTH_RELIEF_VALVES_QTY",
                                             "VALVES_QTY"};

// Where a finding of the pass sits.
struct FindingPlace {
  std::string level, user;
  int month = kNoMonth, year = kNoYear;
  std::string complex = "NA", structure = "NA", type = "NA", equipment = "NA";
};

// The current rows of the pass's own cursors.
struct Standing {
  bool has_activity = false, has_equipment = false, has_structure = false;
  int month = 0, year = 0;
  Value status;                    // of the activity
  std::int64_t equipment_key = 0;  // that the activity names
  std::int64_t structure_key = 0;  // that the description of the equipment names
  std::string equipment, user, complex, structure;
};

struct Pass {
  Session& s;
  Standing at;
};

// Columns of the months of a type.
enum MonthColumn { kTypeKey, kMaster, kStatus, kMonth, kYear, kEquipmentKey, kFirstJudged };

Fault NoColumn(std::string_view column) {
  return {fault_number::kNoSuchItem, "MERLU inventory QC",
          "Item not found in this collection: " + std::string(column) + "."};
}

// One row by column name.
class NamedRow {
 public:
  NamedRow(const std::vector<std::string>& columns, const Values& values) : columns_(columns), values_(values) {}
  const Value& operator[](std::string_view column) const {
    for (std::size_t i = 0; i < columns_.size(); ++i)
      if (columns_[i] == column) return values_[i];
    // a file may spell its columns as it likes
    for (std::size_t i = 0; i < columns_.size(); ++i)
      if (EqualsIgnoringCase(columns_[i], column)) return values_[i];
    throw NoColumn(column);
  }
  template <std::size_t N>
  float Sum(const char* prefix, const char* const (&names)[N], const char* suffix) const {
    float sum = 0;
    for (const char* name : names) sum += static_cast<float>(ToNumber((*this)[std::string(prefix) + name + suffix]));
    return sum;
  }

 private:
  const std::vector<std::string>& columns_;
  const Values& values_;
};

void AddInventoryFinding(Session& s, const FindingPlace& at, std::string_view field_id, std::string_view field_desc,
                         const std::string& text) {
  s.db.Execute(
      "INSERT INTO QCInventory (UserID,[Month],[Year],CmplxID,StructID,EquipID,[Level],EquipType,FieldID,FieldDesc,"
      "[TimeStamp],[Desc]) VALUES (?,?,?,?,?,?,?,?,?,?,?,?)",
      {at.user, std::int64_t{at.month}, std::int64_t{at.year}, at.complex, at.structure, at.equipment, at.level,
       at.type, std::string(field_id), std::string(field_desc), std::string(kTimeStamp), text});
}

bool DoesApply(Applies when, const NamedRow& row) {
  const auto text = [&](const char* column) { return NullToEmpty(row[column]); };
  switch (when) {
    case Applies::kAlways: return true;
    case Applies::kWithoutModelInputs: return !IsNull(row["MODELINPUTS_FLG"]) && ToNumber(row["MODELINPUTS_FLG"]) == 0;
    case Applies::kWithModelInputs: return !IsNull(row["MODELINPUTS_FLG"]) && ToNumber(row["MODELINPUTS_FLG"]) != 0;
    case Applies::kWithoutPilotAnswer: return IsNull(row["CTRL_FLA_PILOT_FLG"]);
    case Applies::kTankHasHeight:
      return (text("TANK_SHAPE") == "C" && text("TANK_ORIENTATION") == "V") || text("TANK_SHAPE") == "R";
    case Applies::kTankIsCylindrical: return text("TANK_SHAPE") == "C";
    case Applies::kTankIsRectangular: return text("TANK_SHAPE") == "R";
    case Applies::kTankStandsRectangular: return text("TANK_SHAPE") == "R" && text("TANK_ORIENTATION") == "V";
    case Applies::kRoofIsFixed: return ToNumber(row["FIXED_ROOF"]) != 0;
  }
  return false;
}

std::string DeviceFinding(const NamedRow& row) {
  const float sum = row.Sum("OTH_CTRL_EFFIC_", kEfficiencies, "");
  const bool device = ToNumber(row["OTH_CTRL_DEVICE"]) != 0;
  if (device && sum <= 0) return "Control device identified - but no efficiencies given..";
  if (!device && sum > 0) return "No control device identified - but  efficiencies given.";
  return "";
}

// The text of the finding that the line raises on the row; empty for none.
std::string FindingText(const InventoryRow& line, const NamedRow& row) {
  if (!DoesApply(line.applies, row)) return "";
  switch (line.check) {
    case InventoryCheck::kRequired: return IsNull(row[line.column]) ? kBlank : "";
    case InventoryCheck::kNothing: return "";
    case InventoryCheck::kDevice: return DeviceFinding(row);
    case InventoryCheck::kSalesGas:
      return row.Sum("SalesGas", kGases, "Content") != 100.0F ? "Sum of gas composition fields <> 100%." : "";
    case InventoryCheck::kComponents: return row.Sum("", kComponentColumns, "") == 0 ? "All components are blank." : "";
  }
  return "";
}

std::vector<const InventoryRow*> LinesOf(std::string_view pass) {
  std::vector<const InventoryRow*> lines;
  for (const InventoryRow& line : InventoryChecks())
    if (line.pass == pass) lines.push_back(&line);
  return lines;
}

Fault NoCurrentRow() {
  return {fault_number::kNoCurrentRow, "MERLU inventory QC", "No current record."};
}

// ---- the passes ----

void OperatorPass(Pass& pass) {
  const auto lines = LinesOf("USER");
  const Rows rows = pass.s.db.Query("SELECT * FROM CO_COMPANY ORDER BY rowid");
  for (const Values& values : rows.rows) {
    const NamedRow row(rows.columns, values);
    const FindingPlace at{.level = "USER", .user = NullToEmpty(row["RIMA_CO_NUM"])};
    for (const InventoryRow* line : lines)
      if (std::string text = FindingText(*line, row); !text.empty())
        AddInventoryFinding(pass.s, at, line->field_id, line->field_desc, text);
  }
}

void AddPlatformsWithoutEquipment(Session& s) {
  s.db.Execute(
      "INSERT INTO QCInventory "
      "(UserID,[Month],[Year],CmplxID,StructID,[Level],EquipType,EquipID,FieldID,[TimeStamp],FieldDesc,[Desc]) "
      "SELECT c.RIMA_CO_NUM,a.PA_MO,a.PA_YR,p.CMPLX_ID_NUM,p.STRUCT_NUM,'STRUCTURE','NA','NA','NA',?,'STRUCTURE',"
      "'Equipment records are missing for platform' FROM CO_COMPANY c JOIN PD_PLATFORM_DESC p ON "
      "c.RIMA_CO_NUM=p.RIMA_CO_NUM "
      "JOIN PA_PLATFORM_ACTV a ON a.PD_ID_AK=p.PD_ID_AK "
      "GROUP BY c.RIMA_CO_NUM,a.PA_MO,a.PA_YR,p.CMPLX_ID_NUM,p.STRUCT_NUM "
      "HAVING SUM(EXISTS (SELECT 1 FROM ED_EQUIP_DESC e WHERE e.PD_ID_AK=p.PD_ID_AK))=0",
      {std::string(kTimeStamp)});
}

void TellMissing(Session& s, const char* what, std::int64_t id) {
  Note(s.notices, std::string(what) + " ID " + std::to_string(id) + " not found!");
}

void StandOnStructure(Standing& at, const NamedRow& row) {
  at.has_structure = true;
  at.user = NullToEmpty(row["RIMA_CO_NUM"]);
  at.complex = NullToEmpty(row["CMPLX_ID_NUM"]);
  at.structure = NullToEmpty(row["STRUCT_NUM"]);
}

void StructurePass(Pass& pass) {
  AddPlatformsWithoutEquipment(pass.s);
  const auto lines = LinesOf("STRUCTURE");
  Rows rows = pass.s.db.Query(
      "SELECT p.*,a.PD_ID_AK AS structure_key,a.PA_MO,a.PA_YR,a.PROD_NG,a.PROD_OIL FROM PA_PLATFORM_ACTV a LEFT JOIN "
      "PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK "
      "WHERE a.status IS NOT NULL AND a.status<>'I' ORDER BY a.SA_ID_AK");
  // the current description: the first one, then that of the month
  Rows standing = pass.s.db.Query("SELECT * FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK LIMIT 1");
  for (Values& values : rows.rows) {
    const NamedRow row(rows.columns, values);
    const auto description = static_cast<std::ptrdiff_t>(standing.columns.size());
    if (IsNull(row["PD_ID_AK"])) {
      TellMissing(pass.s, "Platform Desc", ToInteger(row["structure_key"]));
      if (standing.rows.empty()) throw NoCurrentRow();
      std::copy(standing.rows.front().begin(), standing.rows.front().end(), values.begin());
    } else {
      standing.rows.assign(1, Values(values.begin(), values.begin() + description));
    }
    StandOnStructure(pass.at, row);
    const FindingPlace at{.level = "STRUCTURE",
                          .user = pass.at.user,
                          .month = static_cast<int>(ToInteger(row["PA_MO"])),
                          .year = static_cast<int>(ToInteger(row["PA_YR"])),
                          .complex = pass.at.complex,
                          .structure = pass.at.structure};
    for (const InventoryRow* line : lines)
      if (std::string text = FindingText(*line, row); !text.empty())
        AddInventoryFinding(pass.s, at, line->field_id, line->field_desc, text);
  }
}

// What the description's first row raises: every record of the type is judged by it. Empty without a row.
std::map<const InventoryRow*, std::string> DescriptionFindings(Session& s, const std::string& type,
                                                               const std::vector<const InventoryRow*>& lines) {
  std::map<const InventoryRow*, std::string> findings;
  const std::string table = "ED_" + type;
  const Rows first = s.db.Query("SELECT * FROM " + table + " ORDER BY rowid LIMIT 1");
  for (const InventoryRow* line : lines) {
    if (line->table != table || first.rows.empty()) continue;
    findings[line] = FindingText(*line, NamedRow(first.columns, first.rows.front()));
  }
  return findings;
}

// Moves the pass to one month of equipment. Anything missing is shown, and the pass stays where it was: the status that
// counts then is that of the previous month.
bool MoveToActivity(Pass& pass, const RowView& row) {
  if (row.IsNull(kMaster)) {
    TellMissing(pass.s, "Equip Activity", row.Integer(kTypeKey));
    return false;
  }
  pass.at.has_activity = true;
  pass.at.month = static_cast<int>(row.Integer(kMonth));
  pass.at.year = static_cast<int>(row.Integer(kYear));
  pass.at.status = row.At(kStatus);
  pass.at.equipment_key = row.Integer(kEquipmentKey);
  return true;
}

void StandOn(Standing& at, const IndexedStructure& structure) {
  at.has_structure = true;
  at.user = structure.user;
  at.complex = structure.complex;
  at.structure = structure.structure;
}

// Moves to the description of the current month, and to the structure of the current description.
void FindDescription(Pass& pass) {
  const Rows found = pass.s.db.Query("SELECT ED_ID_AK,ED_MERLU_EQUIP_ID,PD_ID_AK FROM ED_EQUIP_DESC WHERE ED_ID_AK=?",
                                     {pass.at.equipment_key});
  if (found.rows.empty()) {
    TellMissing(pass.s, "Equip Desc", pass.at.equipment_key);
  } else {
    pass.at.has_equipment = true;
    pass.at.equipment = NullToEmpty(found.rows.front()[1]);
    pass.at.structure_key = ToInteger(found.rows.front()[2]);
  }
  if (!pass.at.has_equipment) throw NoCurrentRow();
  const Rows structure = pass.s.db.Query(
      "SELECT RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC WHERE PD_ID_AK=?", {pass.at.structure_key});
  if (structure.rows.empty()) return TellMissing(pass.s, "Platform Desc", pass.at.structure_key);
  StandOnStructure(pass.at, NamedRow(structure.columns, structure.rows.front()));
}

void MoveToDescription(Pass& pass, const IndexedPiece& piece) {
  pass.at.has_equipment = true;
  pass.at.equipment = piece.id;
  pass.at.structure_key = piece.structure_key;
  if (piece.structure == nullptr) return TellMissing(pass.s, "Platform Desc", piece.structure_key);
  StandOn(pass.at, *piece.structure);
}

FindingPlace EquipmentPlace(const Standing& at, std::string_view type) {
  return {.level = "EQUIPMENT",
          .user = at.user,
          .month = at.month,
          .year = at.year,
          .complex = at.complex,
          .structure = at.structure,
          .type = std::string(type),
          .equipment = at.equipment};
}

bool IsActive(const Value& status) {
  return IsNull(status) || NullToEmpty(status) == "A";
}

// A line, and what it needs of a month: a column's place, or the finding that its type's description raises everywhere.
struct MonthLine {
  const InventoryRow* line;
  int column = -1;                     // of the query; -1 when the table has none of that name
  const std::string* known = nullptr;  // empty for no finding
};

// The months of a type, with the columns that its lines look at.
struct MonthQuery {
  std::string sql;
  std::vector<MonthLine> lines;
};

MonthQuery QueryMonths(Session& s, const std::string& type, const std::vector<const InventoryRow*>& lines) {
  const std::vector<std::string> columns = s.db.Query("SELECT * FROM EA_" + type + " LIMIT 0").columns;
  MonthQuery query;
  query.sql = "SELECT t.EA_ID_AK,a.EA_ID_AK,a.EA_STATUS,a.EA_MO,a.EA_YR,a.ED_ID_AK";
  int place = kFirstJudged;
  for (const InventoryRow* line : lines) {
    MonthLine& month = query.lines.emplace_back(MonthLine{line});
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& column) {
      return EqualsIgnoringCase(column, line->column);
    });
    if (line->table != "EA_" + type || found == columns.end()) continue;
    query.sql += ",t.[" + *found + "]";
    month.column = place++;
  }
  query.sql += " FROM EA_" + type + " t LEFT JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK ORDER BY t.EA_ID_AK";
  return query;
}

// The text of the finding that the line raises on the month; empty for none.
std::string JudgeMonth(const MonthLine& month, const RowView& row) {
  if (month.known != nullptr) return *month.known;
  if (month.line->table.starts_with("ED_")) throw NoCurrentRow();
  if (month.column < 0) throw NoColumn(month.line->column);
  return row.IsNull(month.column) ? kBlank : "";
}

void TypePass(Pass& pass, const EquipmentIndex& equipment, std::string_view code) {
  const std::string type(code);
  if (IsNull(pass.s.db.Single("SELECT 1 FROM EA_" + type + " LIMIT 1"))) return;
  const auto lines = LinesOf(code);
  const auto of_description = DescriptionFindings(pass.s, type, lines);
  MonthQuery query = QueryMonths(pass.s, type, lines);
  for (MonthLine& month : query.lines)
    if (const auto known = of_description.find(month.line); known != of_description.end()) month.known = &known->second;
  pass.s.db.ForEach(query.sql, {}, [&](const RowView& row) {
    const bool has_master = MoveToActivity(pass, row);
    if (!pass.at.has_activity) throw NoCurrentRow();
    if (!IsActive(pass.at.status)) return;
    const IndexedPiece* piece =
        has_master && !row.IsNull(kEquipmentKey) ? equipment.Find(pass.at.equipment_key) : nullptr;
    if (piece != nullptr)
      MoveToDescription(pass, *piece);
    else
      FindDescription(pass);
    if (!pass.at.has_structure) throw NoCurrentRow();
    for (const MonthLine& month : query.lines)
      if (const std::string text = JudgeMonth(month, row); !text.empty())
        AddInventoryFinding(pass.s, EquipmentPlace(pass.at, code), month.line->field_id, month.line->field_desc, text);
  });
}

void FugitivesPass(Pass& pass) {
  const auto lines = LinesOf("FUG");
  const Rows rows = pass.s.db.Query("SELECT * FROM ED_FUG ORDER BY rowid");
  for (const Values& values : rows.rows) {
    if (!pass.at.has_activity || !pass.at.has_equipment || !pass.at.has_structure) throw NoCurrentRow();
    const NamedRow row(rows.columns, values);
    const FindingPlace at = EquipmentPlace(pass.at, "FUG");
    for (const InventoryRow* line : lines)
      if (std::string text = FindingText(*line, row); !text.empty())
        AddInventoryFinding(pass.s, at, line->field_id, line->field_desc, text);
  }
}

// The pass's cursors start on the first rows of their tables.
Standing FirstRows(Session& s) {
  Standing at;
  const Rows activity =
      s.db.Query("SELECT EA_MO,EA_YR,EA_STATUS,ED_ID_AK FROM EA_EQUIP_ACTV ORDER BY EA_ID_AK LIMIT 1");
  for (const Values& row : activity.rows) {
    at.has_activity = true;
    at.month = static_cast<int>(ToInteger(row[0]));
    at.year = static_cast<int>(ToInteger(row[1]));
    at.status = row[2];
    at.equipment_key = ToInteger(row[3]);
  }
  s.db.ForEach("SELECT ED_MERLU_EQUIP_ID,PD_ID_AK FROM ED_EQUIP_DESC ORDER BY ED_ID_AK LIMIT 1", {},
               [&](const RowView& row) {
                 at.has_equipment = true;
                 at.equipment = row.Text(0);
                 at.structure_key = row.Integer(1);
               });
  s.db.ForEach("SELECT RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK LIMIT 1", {},
               [&](const RowView& row) {
                 at.has_structure = true;
                 at.user = row.Text(0);
                 at.complex = row.Text(1);
                 at.structure = row.Text(2);
               });
  return at;
}

void PurgeInactiveStructures(Session& s) {
  // an ID that is Null is an empty text, or Null, in the findings
  s.db.Execute(
      "DELETE FROM QCInventory WHERE (ifnull(UserID,'') COLLATE NOCASE,ifnull(CmplxID,'') COLLATE NOCASE,"
      "ifnull(StructID,'') COLLATE NOCASE,[Month],[Year]) IN (SELECT ifnull(p.RIMA_CO_NUM,''),"
      "ifnull(p.CMPLX_ID_NUM,''),ifnull(p.STRUCT_NUM,''),a.PA_MO,a.PA_YR FROM PD_PLATFORM_DESC p JOIN "
      "PA_PLATFORM_ACTV a ON a.PD_ID_AK=p.PD_ID_AK WHERE a.status='I')");
}

void AddSummary(Session& s) {
  const std::int64_t count = ToInteger(s.db.Single("SELECT COUNT(*) FROM QCInventory"));
  const FindingPlace at{.level = "ZSUMMARY",
                        .user = NullToEmpty(s.db.Single("SELECT RIMA_CO_NUM FROM CO_COMPANY ORDER BY rowid LIMIT 1"))};
  AddInventoryFinding(s, at, "NA", "AA",
                      count == 0 ? "There are no missing data, outliers, or inconsistencies in this dataset."
                                 : std::to_string(count) + " errors found in this dataset.");
}

bool HasRecords(Session& s) {
  return !IsNull(
      s.db.Single("SELECT 1 WHERE EXISTS (SELECT 1 FROM PA_PLATFORM_ACTV WHERE status<>'I') OR EXISTS (SELECT 1 FROM "
                  "EA_EQUIP_ACTV WHERE EA_STATUS IS NULL OR EA_STATUS='A') OR EXISTS (SELECT 1 FROM ED_FUG)"));
}

}  // namespace

InventoryRun RunInventoryPasses(Session& s) {
  WriteBatch batch(s.db);
  s.db.Execute("DELETE FROM QCInventory");
  Pass pass{s, FirstRows(s)};
  const EquipmentIndex equipment(s.db);
  InventoryRun result;
  const std::vector<const EquipmentType*> types = TypesBy(&EquipmentType::in_year);
  const int total = static_cast<int>(types.size()) + 3;
  int done = 0;
  const auto run = [&](const std::string& what, auto&& work) {
    ShowProgress(s, what, done++, total);
    if (!NotingSheetFaults(s.notices, work)) result.broken.push_back(what);  // a fault is shown and ends this pass
  };
  run("Operator", [&] { OperatorPass(pass); });
  run("Structures", [&] { StructurePass(pass); });
  for (const EquipmentType* type : types)
    run(std::string(type->tree_name), [&] { TypePass(pass, equipment, type->code); });
  // last: they borrow the place where the pass before them ended
  run(TreeTypeName("FUG"), [&] { FugitivesPass(pass); });
  PurgeInactiveStructures(s);
  AddSummary(s);
  result.had_records = HasRecords(s);
  batch.Commit();
  return result;
}

}  // namespace merlu
