#include "inventory_qc/inventory_run.h"

#include <array>
#include <map>

#include "inventory_qc/checks_table.h"
#include "session/messages.h"
#include "session/types.h"

namespace merlu {
namespace {

constexpr const char* kBlank = "Required field left blank";
constexpr const char* kTimeStamp = "1976-07-04 00:00:00";  // a constant, not the time of any event
constexpr int kNoMonth = 99, kNoYear = 9999;

// In the order of the run. Fugitives come last: they borrow the place where the pass before them ended.
constexpr std::array<std::string_view, 15> kTypePasses = {"AMI", "BOI", "DIE", "FLA", "GLY", "DRI", "MUD", "NGE",
                                                          "NGT", "LOA", "LOS", "PNE", "PRE", "STO", "VEN"};

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
struct Place {
  std::string level, user;
  int month = kNoMonth, year = kNoYear;
  std::string complex = "NA", structure = "NA", type = "NA", equipment = "NA";
};

// The rows on which the pass's own cursors stand.
struct Standing {
  bool has_activity = false, has_equipment = false, has_structure = false;
  int month = 0, year = 0;
  std::string equipment, user, complex, structure;
};

struct Pass {
  Session& s;
  Standing at;
};

// One row by column name.
class NamedRow {
 public:
  NamedRow(const std::vector<std::string>& columns, const Values& values) : columns_(columns), values_(values) {}
  const Value& operator[](std::string_view column) const {
    for (std::size_t i = 0; i < columns_.size(); ++i)
      if (columns_[i] == column) return values_[i];
    throw Fault(fault_number::kNoSuchItem, "MERLU inventory QC",
                "Item not found in this collection: " + std::string(column) + ".");
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

void AddInventoryFinding(Session& s, const Place& at, std::string_view field_id, std::string_view field_desc,
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
std::string Judge(const InventoryRow& line, const NamedRow& row) {
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
    const Place at{.level = "USER", .user = NullToEmpty(row["RIMA_CO_NUM"])};
    for (const InventoryRow* line : lines)
      if (std::string text = Judge(*line, row); !text.empty())
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
      "JOIN PA_PLATFORM_ACTV a ON a.PD_ID_AK=p.PD_ID_AK LEFT JOIN ED_EQUIP_DESC e ON e.PD_ID_AK=p.PD_ID_AK "
      "GROUP BY c.RIMA_CO_NUM,a.PA_MO,a.PA_YR,p.CMPLX_ID_NUM,p.STRUCT_NUM HAVING COUNT(e.ED_ID_AK)=0",
      {std::string(kTimeStamp)});
}

void StructurePass(Pass& pass) {
  AddPlatformsWithoutEquipment(pass.s);
  const auto lines = LinesOf("STRUCTURE");
  const Rows rows = pass.s.db.Query(
      "SELECT p.*,a.PA_MO,a.PA_YR,a.PROD_NG,a.PROD_OIL FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON "
      "p.PD_ID_AK=a.PD_ID_AK "
      "WHERE a.status IS NOT NULL AND a.status<>'I' ORDER BY a.SA_ID_AK");
  for (const Values& values : rows.rows) {
    const NamedRow row(rows.columns, values);
    const Place at{.level = "STRUCTURE",
                   .user = NullToEmpty(row["RIMA_CO_NUM"]),
                   .month = static_cast<int>(ToInteger(row["PA_MO"])),
                   .year = static_cast<int>(ToInteger(row["PA_YR"])),
                   .complex = NullToEmpty(row["CMPLX_ID_NUM"]),
                   .structure = NullToEmpty(row["STRUCT_NUM"])};
    for (const InventoryRow* line : lines)
      if (std::string text = Judge(*line, row); !text.empty())
        AddInventoryFinding(pass.s, at, line->field_id, line->field_desc, text);
    pass.at.has_structure = true;
    pass.at.user = at.user;
    pass.at.complex = at.complex;
    pass.at.structure = at.structure;
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
    findings[line] = Judge(*line, NamedRow(first.columns, first.rows.front()));
  }
  return findings;
}

void TellMissing(Session& s, const char* what, std::int64_t id) {
  Tell(s, std::string(what) + " ID " + std::to_string(id) + " not found!");
}

// Moves the pass to one month of equipment; what is missing is told, and the cursors from there on stay.
bool MoveToActivity(Pass& pass, const NamedRow& row) {
  if (IsNull(row["master"])) {
    TellMissing(pass.s, "Equip Activity", ToInteger(row["type_key"]));
    return false;
  }
  pass.at.has_activity = true;
  pass.at.month = static_cast<int>(ToInteger(row["EA_MO"]));
  pass.at.year = static_cast<int>(ToInteger(row["EA_YR"]));
  return true;
}

void MoveToDescription(Pass& pass, const NamedRow& row) {
  if (IsNull(row["equipment"])) return TellMissing(pass.s, "Equip Desc", ToInteger(row["equipment_key"]));
  pass.at.has_equipment = true;
  pass.at.equipment = NullToEmpty(row["ED_MERLU_EQUIP_ID"]);
  if (IsNull(row["structure"])) return TellMissing(pass.s, "Platform Desc", ToInteger(row["structure_key"]));
  pass.at.has_structure = true;
  pass.at.user = NullToEmpty(row["RIMA_CO_NUM"]);
  pass.at.complex = NullToEmpty(row["CMPLX_ID_NUM"]);
  pass.at.structure = NullToEmpty(row["STRUCT_NUM"]);
}

Place EquipmentPlace(const Standing& at, std::string_view type) {
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

void TypePass(Pass& pass, std::string_view code) {
  const std::string type(code);
  const auto lines = LinesOf(code);
  const Rows rows = pass.s.db.Query(
      "SELECT t.*,t.EA_ID_AK AS type_key,a.EA_ID_AK AS master,a.EA_STATUS,a.EA_MO,a.EA_YR,a.ED_ID_AK AS equipment_key,"
      "d.ED_ID_AK AS equipment,d.ED_MERLU_EQUIP_ID,d.PD_ID_AK AS structure_key,p.PD_ID_AK AS structure,p.RIMA_CO_NUM,"
      "p.CMPLX_ID_NUM,p.STRUCT_NUM FROM EA_" +
      type +
      " t LEFT JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK "
      "LEFT JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK LEFT JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK ORDER "
      "BY t.EA_ID_AK");
  if (rows.rows.empty()) return;
  const auto of_description = DescriptionFindings(pass.s, type, lines);
  for (const Values& values : rows.rows) {
    const NamedRow row(rows.columns, values);
    const bool has_master = MoveToActivity(pass, row);
    if (!IsActive(row["EA_STATUS"])) continue;
    if (has_master) MoveToDescription(pass, row);
    const Place at = EquipmentPlace(pass.at, code);
    for (const InventoryRow* line : lines) {
      const auto known = of_description.find(line);
      if (known == of_description.end() && line->table.starts_with("ED_")) throw NoCurrentRow();
      const std::string text = known != of_description.end() ? known->second : Judge(*line, row);
      if (!text.empty()) AddInventoryFinding(pass.s, at, line->field_id, line->field_desc, text);
    }
  }
}

void FugitivesPass(Pass& pass) {
  const auto lines = LinesOf("FUG");
  const Rows rows = pass.s.db.Query("SELECT * FROM ED_FUG ORDER BY rowid");
  for (const Values& values : rows.rows) {
    if (!pass.at.has_activity || !pass.at.has_equipment || !pass.at.has_structure) throw NoCurrentRow();
    const NamedRow row(rows.columns, values);
    const Place at = EquipmentPlace(pass.at, "FUG");
    for (const InventoryRow* line : lines)
      if (std::string text = Judge(*line, row); !text.empty())
        AddInventoryFinding(pass.s, at, line->field_id, line->field_desc, text);
  }
}

// The pass's cursors stand on the first rows of their tables.
Standing FirstRows(Session& s) {
  Standing at;
  s.db.ForEach("SELECT EA_MO,EA_YR FROM EA_EQUIP_ACTV ORDER BY EA_ID_AK LIMIT 1", {}, [&](const RowView& row) {
    at.has_activity = true;
    at.month = static_cast<int>(row.Integer(0));
    at.year = static_cast<int>(row.Integer(1));
  });
  s.db.ForEach("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC ORDER BY ED_ID_AK LIMIT 1", {}, [&](const RowView& row) {
    at.has_equipment = true;
    at.equipment = row.Text(0);
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
  s.db.Execute(
      "DELETE FROM QCInventory WHERE EXISTS (SELECT 1 FROM PD_PLATFORM_DESC p JOIN PA_PLATFORM_ACTV a ON "
      "a.PD_ID_AK=p.PD_ID_AK "
      "WHERE a.status='I' AND p.CMPLX_ID_NUM=QCInventory.CmplxID AND p.STRUCT_NUM=QCInventory.StructID AND "
      "p.RIMA_CO_NUM=QCInventory.UserID AND a.PA_MO=QCInventory.[Month] AND a.PA_YR=QCInventory.[Year])");
}

void AddSummary(Session& s) {
  const std::int64_t count = ToInteger(s.db.Single("SELECT COUNT(*) FROM QCInventory"));
  const Place at{.level = "ZSUMMARY",
                 .user = NullToEmpty(s.db.Single("SELECT RIMA_CO_NUM FROM CO_COMPANY ORDER BY rowid LIMIT 1"))};
  AddInventoryFinding(s, at, "NA", "AA",
                      count == 0 ? "There are no missing data, outliers, or inconsistencies in this dataset."
                                 : std::to_string(count) + " errors found in this dataset.");
}

}  // namespace

void RunInventoryPasses(Session& s) {
  WriteBatch batch(s.db);
  s.db.Execute("DELETE FROM QCInventory");
  Pass pass{s, FirstRows(s)};
  const int total = static_cast<int>(kTypePasses.size()) + 3;
  int done = 0;
  const auto run = [&](const std::string& what, auto&& work) {
    Progress(s, what, done++, total);
    OnSheet(s, work);  // a fault is told and ends this pass
  };
  run("Operator", [&] { OperatorPass(pass); });
  run("Structures", [&] { StructurePass(pass); });
  for (std::string_view type : kTypePasses) run(TreeTypeName(type), [&] { TypePass(pass, type); });
  run(TreeTypeName("FUG"), [&] { FugitivesPass(pass); });
  PurgeInactiveStructures(s);
  AddSummary(s);
  batch.Commit();
}

}  // namespace merlu
