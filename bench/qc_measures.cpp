// A survey's QC run beside the plain reads and writes of its rows; and the judging alone beside the reading.
//
// The plain side judges nothing. In one transaction it reads the month's structures joined with their descriptions, the
// equipment of each by the types that a walk takes in one join each, of all of them the columns that a rule of theirs
// reads, and the findings of every place in one look-up; then it writes the findings that the program found, the date
// of last QC of each equipment and of each structure. It does not count the findings, and does not ask whether a
// structure has equipment. Both sides end with the same rows in every table.
#include <memory>
#include <stdexcept>

#include "measures.h"
#include "plain.h"
#include "records/judge_records.h"
#include "session/node_keys.h"
#include "session/types.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "shell/qc_command.h"
#include "shell/sheet_acts.h"

namespace merlu::bench {
namespace {

constexpr int kMonth = 6;
constexpr int kFindingColumns = 12;

// The columns that rules read, of the rows that are called so.
std::string JudgedOf(const SheetSpec* sheet, const char* description, const char* month) {
  const RuleSet& rules = sheet == nullptr ? RulesOf(StructureSheet()) : RulesOf(*sheet);
  return RowReader(sheet == nullptr ? StructureSheet().fields : sheet->fields, rules, Mode::kActv,
                   Wanted::kWhatRulesRead)
      .Columns(description, month);
}

std::string Structures() {
  return "SELECT a.SA_ID_AK,p.PD_ID_AK,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,a.status" +
         JudgedOf(nullptr, "p", "a") +
         " FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK WHERE a.PA_MO=? AND a.PA_YR=? "
         "ORDER BY a.SA_ID_AK";
}

constexpr const char* kFindings = R"(
    SELECT * FROM QC WHERE UserID=? AND CmplxID=? AND StructID=? AND EquipType=? AND EquipID=?
    AND [Month]=? AND [Year]=? AND [Level]=?)";
// The types with activity that the walk over a structure takes.
std::vector<std::string> Walked() {
  std::vector<std::string> types;
  for (const EquipmentType* type : TypesBy(&EquipmentType::in_walk))
    if (type->has_activity) types.emplace_back(type->code);
  return types;
}

std::string EquipmentOf(const std::string& type) {
  return "SELECT t.EA_ID_AK,d.ED_MERLU_EQUIP_ID,a.EA_STATUS,a.EA_QC_DT" + JudgedOf(FindSheet(type), "e", "t") +
         " FROM ED_EQUIP_DESC d JOIN EA_EQUIP_ACTV a ON a.ED_ID_AK=d.ED_ID_AK JOIN EA_" + type +
         " t ON t.EA_ID_AK=a.EA_ID_AK JOIN ED_" + type +
         " e ON e.ED_ID_AK=d.ED_ID_AK WHERE d.PD_ID_AK=? AND d.ED_EQUIP_TYP='" + type + "' AND a.EA_MO=? AND a.EA_YR=?";
}

using Finding = std::vector<std::string>;  // in the order of the table's columns

struct Outcome {
  double seconds = 0;
  std::vector<Finding> findings;
};

std::vector<Finding> ReadFindings(PlainFile& file) {
  std::vector<Finding> findings;
  PlainStatement query(file, "SELECT * FROM QC ORDER BY rowid");
  while (query.Step()) {
    Finding& finding = findings.emplace_back();
    for (int i = 0; i < kFindingColumns; ++i) finding.push_back(query.Text(i));
  }
  return findings;
}

enum class History { kKept, kNone };

Outcome RunOurs(const Workshop& shop, const std::string& inventory, History history) {
  const std::string path = shop.FreshCopy(inventory, "qc-ours");
  Outcome outcome;
  {
    Opened opened(path);
    Session& s = opened.s;
    opened.ExpectSilence();
    if (history == History::kNone) CloseHistory(s);
    ClickNode(s, s.tree.Find(SurveyKey(s.current.UserID, kMonth, s.year)));
    outcome.seconds = Seconds([&] { RunQCAndTell(s, s.current, true); });
    if (opened.platform.boxes() != 1) throw std::runtime_error("the program told: " + opened.platform.last_box());
  }
  PlainFile file(path);
  outcome.findings = ReadFindings(file);
  return outcome;
}

// The plain side's statements, prepared before the time is taken.
struct PlainRun {
  PlainRun(PlainFile& plain, const std::vector<std::string>& codes) : file(plain) {
    for (const std::string& code : codes) types.push_back({code, PlainStatement(plain, EquipmentOf(code))});
  }

  struct Type {
    std::string code;
    PlainStatement rows;
  };

  PlainFile& file;
  std::vector<Type> types;
  PlainStatement structures{file, Structures()};
  PlainStatement findings{file, kFindings};
  PlainStatement new_finding{file, "INSERT INTO QC VALUES (?,?,?,?,?,?,?,?,?,?,?,?)"};
  PlainStatement stamp_equipment{file, "UPDATE EA_EQUIP_ACTV SET EA_QC_DT=? WHERE EA_ID_AK=?"};
  PlainStatement stamp_structure{file, "UPDATE PA_PLATFORM_ACTV SET PA_QC_DT=? WHERE SA_ID_AK=?"};
  const std::string date = "2017-12-31 12:00:00";
  std::size_t sum = 0;

  void LookUp(const QCLocation& l) {
    findings.Bind(1, l.UserID).Bind(2, l.CmplxID).Bind(3, l.StructID).Bind(4, l.EquipType).Bind(5, l.EquipID);
    sum += findings.Bind(6, l.Month).Bind(7, l.Year).Bind(8, l.Level).ReadAll();
  }

  void Equipment(std::int64_t PD_ID_AK, QCLocation l) {
    l.Level = level::kEquipment;
    for (Type& type : types) {
      l.EquipType = type.code;
      type.rows.Bind(1, PD_ID_AK).Bind(2, l.Month).Bind(3, l.Year);
      while (type.rows.Step()) {
        sum += type.rows.ReadRow();
        l.EquipID = type.rows.Text(1);
        LookUp(l);
        stamp_equipment.Bind(1, date).Bind(2, type.rows.Integer(0)).Execute();
      }
      type.rows.Reset();
    }
  }

  void Survey(int month, int year) {
    structures.Bind(1, month).Bind(2, year);
    while (structures.Step()) {
      sum += structures.ReadRow();
      QCLocation l{level::kStructure,  structures.Text(2), month, year,
                   structures.Text(3), structures.Text(4), "NA",  "NA"};
      LookUp(l);
      Equipment(structures.Integer(1), l);
      stamp_structure.Bind(1, date).Bind(2, structures.Integer(0)).Execute();
    }
    structures.Reset();
  }

  void Write(const std::vector<Finding>& findings) {
    for (const Finding& row : findings) {
      for (int i = 0; i < kFindingColumns; ++i) new_finding.Bind(i + 1, row[static_cast<std::size_t>(i)]);
      new_finding.Execute();
    }
  }
};

double RunPlain(const Workshop& shop, const std::string& inventory, const std::vector<std::string>& types,
                const std::vector<Finding>& findings) {
  PlainFile file(shop.FreshCopy(inventory, "qc-plain"));
  PlainRun run(file, types);
  const double seconds = Seconds([&] {
    file.Run("BEGIN");
    run.Survey(kMonth, InventoryPlan{}.year);
    run.Write(findings);
    file.Run("COMMIT");
  });
  benchmark::DoNotOptimize(run.sum);
  return seconds;
}

// ---- judging without writing ----

double JudgeOurs(Database& db) {
  std::size_t raised = 0;
  int records = 0;
  const RecordScope all{.mode = Mode::kActv, .asks_values = false};
  const double seconds = Seconds([&] {
    Contexts contexts(db);
    for (const SheetSpec* sheet : AllSheets())
      JudgeRecords(db, contexts, *sheet, all, [&](const JudgedRecord& record) {
        ++records;
        raised += record.verdicts->all.size();
      });
  });
  benchmark::DoNotOptimize(raised);
  if (records == 0) throw std::runtime_error("nothing was judged");
  return seconds;
}

// The same columns of the same rows in the same joins.
double ReadPlain(PlainFile& file) {
  std::size_t sum = 0;
  const double seconds = Seconds([&] {
    for (const std::string& type : MonthlyTypes())
      sum += PlainStatement(file,
                            "SELECT d.PD_ID_AK,d.ED_ID_AK,d.ED_MERLU_EQUIP_ID,a.EA_ID_AK,a.EA_YR,a.EA_MO,"
                            "a.EA_STATUS,a.EA_QC_DT" +
                                JudgedOf(FindSheet(type), "e", "t") + " FROM EA_" + type +
                                " t CROSS JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK CROSS JOIN ED_EQUIP_DESC "
                                "d ON d.ED_ID_AK=a.ED_ID_AK CROSS JOIN ED_" +
                                type + " e ON e.ED_ID_AK=d.ED_ID_AK WHERE d.ED_EQUIP_TYP='" + type + "'")
                 .ReadAll();
  });
  benchmark::DoNotOptimize(sum);
  return seconds;
}

struct BothOpen {
  explicit BothOpen(const std::string& path) : plain(path) { ours.OpenReadOnly(path); }
  Database ours;
  PlainFile plain;
};

}  // namespace

std::vector<Measure> QCMeasures(const Workshop& shop) {
  const auto run = [&shop](const std::string& inventory, const std::vector<std::string>& types, History history) {
    // what the plain side writes is known from a run that is not measured
    return [&shop, inventory, types, history, turn = InTurn(), findings = std::vector<Finding>()]() mutable {
      if (findings.empty()) findings = RunOurs(shop, inventory, history).findings;
      const Pair pair = turn([&] { return RunOurs(shop, inventory, history).seconds; },
                             [&] { return RunPlain(shop, inventory, types, findings); });
      RequireSameTables(shop.Path("qc-ours"), shop.Path("qc-plain"));
      return pair;
    };
  };
  const auto judge = [&shop, turn = InTurn(), both = std::shared_ptr<BothOpen>()]() mutable {
    if (!both) both = std::make_shared<BothOpen>(shop.full);
    return turn([&] { return JudgeOurs(both->ours); }, [&] { return ReadPlain(both->plain); });
  };
  return {{"QC of a month of flares, a tenth faulty", 5, 9, run(shop.flares, {"FLA"}, History::kKept)},
          {"QC of a month of mixed types", 1.8, 9, run(shop.mixed, Walked(), History::kNone)},
          {"the same with its history", 2.3, 9, run(shop.mixed, Walked(), History::kKept)},
          {"39,996 records judged from their rows", 1.5, 9, judge}};
}

}  // namespace merlu::bench
