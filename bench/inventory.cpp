#include "inventory.h"

#include <map>
#include <memory>
#include <random>

#include "session/types.h"
#include "sheets/operator.h"
#include "sheets/units.h"
#include "sound_values.h"
#include "store/database.h"
#include "store/files.h"

namespace merlu {
namespace {

// The values of one row, written again and again with what differs.
class Row {
 public:
  explicit Row(std::string table, const std::vector<SoundValue>& values = {}) : table_(std::move(table)) {
    for (const SoundValue& value : values) {
      if (!value.faults.empty()) judged_.push_back({columns_.size(), value.faults});
      Set(value.column, value.value);
    }
  }

  void Set(std::string_view column, Value value) {
    for (std::size_t i = 0; i < columns_.size(); ++i)
      if (columns_[i] == column) {
        values_[i] = std::move(value);
        return;
      }
    columns_.emplace_back(column);
    values_.push_back(std::move(value));
    sql_.clear();
  }

  void Write(Database& db) {
    if (sql_.empty()) BuildStatement();
    db.Execute(sql_, values_);
  }

  // Writes the row with one faulty value; false when no rule reads any of its fields, and it is sound.
  bool WriteFaulty(Database& db, std::mt19937& random) {
    if (judged_.empty()) {
      Write(db);
      return false;
    }
    const Judged& field = judged_[random() % judged_.size()];
    const Value sound = std::exchange(values_[field.column], field.faults[random() % field.faults.size()]);
    Write(db);
    values_[field.column] = sound;
    return true;
  }

 private:
  struct Judged {
    std::size_t column;
    std::vector<Value> faults;
  };

  void BuildStatement() {
    std::string names, marks;
    for (const std::string& column : columns_) {
      names += (names.empty() ? "[" : ",[") + column + "]";
      marks += marks.empty() ? "?" : ",?";
    }
    sql_ = "INSERT INTO [" + table_ + "] (" + names + ") VALUES (" + marks + ")";
  }

  std::string table_, sql_;
  std::vector<std::string> columns_;
  Values values_;
  std::vector<Judged> judged_;
};

struct TypeRows {
  Row description;
  Row month;
};

struct Piece {
  std::int64_t ED_ID_AK;
  const EquipmentType* type;
};

class Maker {
 public:
  Maker(Database& db, const InventoryPlan& plan) : db_(db), plan_(plan), random_(plan.seed) {}

  InventoryCounts Make() {
    WriteOperator();
    WriteStructures();
    WriteEquipment();
    for (int month = 1; month <= plan_.months; ++month) {
      WriteStructureMonth(month);
      WriteEquipmentMonth(month);
    }
    return counts_;
  }

 private:
  void WriteOperator() {
    db_.Execute("INSERT INTO SYS_CONFIG (sys_yr,SYS_MAX_MO,ERR_CHK_LVL) VALUES (?,?,0)",
                {std::int64_t{plan_.year}, std::int64_t{plan_.months}});
    Row row("CO_COMPANY");
    row.Set("RIMA_CO_NUM", plan_.operator_number);
    row.Set("CO_NAME", "Sample Operator");
    row.Set("ADDR1", "1 Harbor Road");
    row.Set("City", "Port Sample");
    row.Set("State", "LA");
    row.Set("Zip", "70000");
    row.Set("Contact", "A. Sample");
    row.Set("Phone", Masked(kPhoneMask, "55555501000000"));
    row.Set("Fax", Masked(kFaxMask, "5555550101"));
    row.Set("Email", "office@example.com");
    row.Write(db_);
  }

  void WriteStructures() {
    Row row("PD_PLATFORM_DESC", SoundStructure().description);
    row.Set("RIMA_CO_NUM", plan_.operator_number);
    row.Set("status", "A");
    for (int i = 0; i < plan_.structures; ++i) {
      row.Set("PD_ID_AK", std::int64_t{i + 1});
      row.Set("CMPLX_ID_NUM", std::to_string(10001 + i / 2));  // two structures make a complex
      row.Set("STRUCT_NUM", std::to_string(1 + i % 2));
      row.Set("Area", "GC");
      row.Set("Block", std::to_string(101 + i / 2));
      row.Set("Name", i % 2 == 0 ? "A" : "B");
      row.Set("LEASE_NUM", "G" + std::to_string(20001 + i / 2));
      row.Write(db_);
    }
  }

  void WriteEquipment() {
    Row master("ED_EQUIP_DESC");
    for (int i = 0; i < plan_.equipment; ++i) {
      const Piece& piece = pieces_.emplace_back(Piece{i + 1, TypeOf(i)});
      master.Set("ED_ID_AK", piece.ED_ID_AK);
      master.Set("PD_ID_AK", 1 + std::int64_t{i} * plan_.structures / plan_.equipment);
      master.Set("ED_EQUIP_TYP", std::string(piece.type->code));
      master.Set("ED_MERLU_EQUIP_ID", std::string(piece.type->code) + std::to_string(i + 1));
      master.Write(db_);
      Row& row = RowsOf(*piece.type).description;
      row.Set("ED_ID_AK", piece.ED_ID_AK);
      counts_.faulty_descriptions += WriteMaybeFaulty(row);
    }
  }

  void WriteStructureMonth(int month) {
    if (!structure_month_) structure_month_ = std::make_unique<Row>("PA_PLATFORM_ACTV", SoundStructure().month);
    Row& row = *structure_month_;
    row.Set("PA_MO", std::int64_t{month});
    row.Set("PA_YR", std::int64_t{plan_.year});
    row.Set("status", "A");
    if (month > 1) ++last_SA_ID_AK_;  // each added month leaves a key unused
    for (int i = 0; i < plan_.structures; ++i) {
      row.Set("SA_ID_AK", ++last_SA_ID_AK_);
      row.Set("PD_ID_AK", std::int64_t{i + 1});
      row.Write(db_);
      ++counts_.structure_months;
    }
  }

  void WriteEquipmentMonth(int month) {
    Row master("EA_EQUIP_ACTV");
    for (const Piece& piece : pieces_) {
      // new fugitives get no month, each month added later writes one
      if (!piece.type->has_activity && month == 1) continue;
      master.Set("EA_ID_AK", ++last_EA_ID_AK_);
      master.Set("ED_ID_AK", piece.ED_ID_AK);
      master.Set("EA_MO", std::int64_t{month});
      master.Set("EA_YR", std::int64_t{plan_.year});
      master.Set("EA_EQUIP_TYP", std::string(piece.type->code));
      master.Set("EA_STATUS", "A");
      master.Write(db_);
      if (!piece.type->has_activity) continue;
      Row& row = RowsOf(*piece.type).month;
      row.Set("EA_ID_AK", last_EA_ID_AK_);
      counts_.faulty_months += WriteMaybeFaulty(row);
      ++counts_.equipment_months;
    }
  }

  const EquipmentType* TypeOf(int equipment) const {
    const auto i = static_cast<std::size_t>(equipment);
    if (plan_.types.empty()) return &EquipmentTypes()[i % EquipmentTypes().size()];
    return FindType(plan_.types[i % plan_.types.size()]);
  }

  TypeRows& RowsOf(const EquipmentType& type) {
    const auto found = rows_.find(type.code);
    if (found != rows_.end()) return found->second;
    const SoundRecord record = SoundEquipment(*FindSheet(type.code));
    const std::string code(type.code);
    return rows_.emplace(type.code, TypeRows{Row("ED_" + code, record.description), Row("EA_" + code, record.month)})
        .first->second;
  }

  int WriteMaybeFaulty(Row& row) {
    // a fixed draw for every row, so that the same seed makes the same file wherever it runs
    if (random_() < plan_.fault_share * 4294967296.0) return row.WriteFaulty(db_, random_) ? 1 : 0;
    row.Write(db_);
    return 0;
  }

  Database& db_;
  const InventoryPlan& plan_;
  std::mt19937 random_;
  InventoryCounts counts_;
  std::vector<Piece> pieces_;
  std::map<std::string_view, TypeRows> rows_;
  std::unique_ptr<Row> structure_month_;
  std::int64_t last_SA_ID_AK_ = 0, last_EA_ID_AK_ = 0;
};

}  // namespace

InventoryPlan EverydayInventory() {
  return {};
}

InventoryPlan FullInventory() {
  InventoryPlan plan;
  plan.structures = 300;
  plan.equipment = 3333;
  return plan;
}

InventoryPlan OneOfEachType(int structures, int months) {
  InventoryPlan plan;
  plan.structures = structures;
  plan.equipment = structures * 16;
  plan.months = months;
  return plan;
}

std::vector<std::string> MonthlyTypes() {
  std::vector<std::string> codes;
  for (const EquipmentType& type : EquipmentTypes())
    if (type.has_activity) codes.emplace_back(type.code);
  return codes;
}

InventoryCounts MakeInventory(const std::string& template_path, const std::string& path, const InventoryPlan& plan) {
  CopyDatabase(template_path, path);
  Database db;
  db.Open(path);
  WriteBatch batch(db);
  const InventoryCounts counts = Maker(db, plan).Make();
  batch.Commit();
  return counts;
}

}  // namespace merlu
