// Judges stored records from their rows: nothing is written, shown or moved, and no form is built. A connection is used
// by one thread; several threads can judge at the same time, each over its own connection.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "records/record_keys.h"
#include "rules/judge.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"
#include "store/database.h"

namespace merlu {

// A structure as its records know it.
struct StructureFacts {
  std::string user, complex, structure, area, block, name;
  std::vector<std::string> vents, flares;
  bool has_equipment = false;
  std::vector<std::string> types;  // of its equipment, each once
};

struct StructureMonth {
  std::int64_t SA_ID_AK = 0;
  bool inactive = false;
  std::array<double, kTotals> totals{};
};

// What a record of a structure's month, or of a description, is judged against; null for what is not there.
struct Surroundings {
  Context context;
  const StructureFacts* structure = nullptr;
  const StructureMonth* month = nullptr;
};

// What records are judged against, read once: all structures, or one, with their months (or one), vents and flares.
class Contexts {
 public:
  // A fault of the reading is kept for the rules that need what it read.
  explicit Contexts(Database& db, std::int64_t only_PD_ID_AK = 0, int only_month = 0);
  Contexts(Contexts&&) = default;

  const Surroundings& At(std::int64_t PD_ID_AK, int year, int month);
  const Context& Of(std::int64_t PD_ID_AK, int year, int month);
  const StructureFacts* Structure(std::int64_t PD_ID_AK) const;
  const StructureMonth* Month(std::int64_t PD_ID_AK, int year, int month) const;
  // False when no equipment that was read has the type; true as well when the reading failed.
  bool MayHave(std::string_view type) const;

 private:
  using MonthKey = std::pair<std::int64_t, int>;  // the structure; year and month
  struct MonthHash {
    std::size_t operator()(const MonthKey& key) const {
      constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15U;
      return static_cast<std::size_t>((static_cast<std::uint64_t>(key.first) * kSpread) ^
                                      static_cast<std::uint64_t>(key.second));
    }
  };
  std::unordered_map<std::int64_t, StructureFacts> structures_;
  std::vector<std::string> types_;  // of any equipment, each once
  std::unordered_map<MonthKey, StructureMonth, MonthHash> months_;
  std::unordered_map<MonthKey, Surroundings, MonthHash> surroundings_;
  std::shared_ptr<const Fault> fault_;
};

// What the sheet that shows is judged against: the month by its key, in activity mode, and whether the structure has
// equipment.
Context ContextOf(Database& db, Mode mode, const RecordKeys& keys);

// A judged record. Its pointers are valid only during the callback that receives it.
struct JudgedRecord {
  const RuleSet* rules = nullptr;
  const SheetSpec* sheet = nullptr;
  RecordKeys keys;
  int year = 0, month = 0;  // 0 for a description
  const StructureFacts* structure = nullptr;
  std::string_view id;    // of the equipment, empty for a structure
  bool inactive = false;  // its own status in the month
  bool structure_inactive = false;
  bool has_values = true;              // of a month: any of its columns is not Null
  bool checked = false;                // it has a date of last QC
  const RecordView* view = nullptr;    // as the rules leave it
  const RecordView* stored = nullptr;  // as it was before they changed a field
  const Context* context = nullptr;
  const Verdicts* verdicts = nullptr;
  const RowView* row = nullptr;  // that the record was read from
  int more = 0;                  // its first column of the scope's `more`

  bool IsOfStructure() const { return sheet == &StructureSheet(); }
};
using EachRecord = std::function<void(const JudgedRecord&)>;

// Which records: all of the mode, or those of a month, of a structure, or one by its key.
struct RecordScope {
  Mode mode = Mode::kActv;
  int month = 0;              // 0 for all
  std::int64_t PD_ID_AK = 0;  // 0 for all
  std::int64_t key = 0;       // of one record: EA_ID_AK or ED_ID_AK; of a structure SA_ID_AK or PD_ID_AK
  Wanted wanted = Wanted::kWhatRulesRead;
  bool only_unchecked = false;  // an inactive month, and one with a date of last QC, is handed out unjudged
  bool asks_values = true;      // no: `has_values` is not looked up
  bool judged = true;           // no: records are handed out as they show, without verdicts
  std::string more{};           // further columns of a month: ",a.[COL]" of its master row, ",t.[COL]" of its type's
};

// Judges the records of one kind scope by scope: what that takes beside the rows is made ready once.
class RecordJudge {
 public:
  // Of the structures, or of a type with records in the scope's mode.
  RecordJudge(const SheetSpec& sheet, const RecordScope& scope);
  ~RecordJudge();
  RecordJudge(const RecordJudge&) = delete;
  RecordJudge& operator=(const RecordJudge&) = delete;

  // Those of the structure, or of the one record; the scope names one, too, and what it says otherwise counts.
  void JudgeRows(Database& db, Contexts& contexts, std::int64_t PD_ID_AK, std::int64_t key, const EachRecord& each);

 private:
  struct Ready;
  void JudgeStructures(Database& db, Contexts& contexts, const Values& values, const EachRecord& each);
  void JudgeEquipment(Database& db, Contexts& contexts, const Values& values, const EachRecord& each);

  const SheetSpec& sheet_;
  RecordScope scope_;
  std::string sql_;
  std::unique_ptr<Ready> ready_;
};

// The structures, or the equipment of a type, in the order of their keys in the mode. None in the months for a type
// without activity.
void JudgeRecords(Database& db, Contexts& contexts, const SheetSpec& sheet, const RecordScope& scope,
                  const EachRecord& each);
// Structures, then all types.
void JudgeAll(Database& db, const RecordScope& scope, const EachRecord& each);

// One record by its keys (its own is enough); false when a row of it is missing.
bool JudgeRecord(Database& db, const SheetSpec& sheet, Mode mode, const RecordKeys& keys, const EachRecord& each);

}  // namespace merlu
