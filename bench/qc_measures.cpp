// A survey's QC run beside the plain reads and writes of its rows.
//
// The plain side judges nothing. In one transaction it reads the month's structures joined with their
// descriptions, the flares of each with all their rows in one join, and, once for every rule of the month,
// the finding that the rule's field may have at that place; then it writes the findings that the program
// found, the date of last QC of each flare and of each structure. It does not count the findings, does not
// ask whether a structure has equipment, does not look for equipment of the eleven other types that a
// structure's walk asks for, and reads a finding once where a rule of two parts looks twice.
#include <stdexcept>

#include "measures.h"
#include "plain.h"
#include "qc_run/run_qc.h"
#include "records/structure_fields.h"
#include "records/structure_record.h"
#include "session/node_keys.h"
#include "sheets/units.h"
#include "shell/routing.h"

namespace merlu::bench {
namespace {

constexpr int kMonth = 6;
constexpr int kFindingColumns = 12;

constexpr const char* kStructures = R"(
    SELECT a.SA_ID_AK,p.PD_ID_AK,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,a.*,p.*
    FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK
    WHERE a.PA_MO=? AND a.PA_YR=? ORDER BY a.SA_ID_AK)";
constexpr const char* kFlares = R"(
    SELECT t.EA_ID_AK,d.ED_MERLU_EQUIP_ID,t.*,a.*,d.*,e.*
    FROM ED_EQUIP_DESC d JOIN EA_EQUIP_ACTV a ON a.ED_ID_AK=d.ED_ID_AK
         JOIN EA_FLA t ON t.EA_ID_AK=a.EA_ID_AK JOIN ED_FLA e ON e.ED_ID_AK=d.ED_ID_AK
    WHERE d.PD_ID_AK=? AND a.EA_MO=? AND a.EA_YR=? ORDER BY t.EA_ID_AK)";
constexpr const char* kFinding = R"(
    SELECT * FROM QC WHERE UserID=? AND CmplxID=? AND StructID=? AND EquipType=? AND EquipID=?
    AND [Month]=? AND [Year]=? AND [Level]=? AND FieldID=?)";

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

Outcome RunOurs(const Workshop& shop) {
  const std::string path = shop.FreshCopy(shop.flares, "qc-ours");
  Outcome outcome;
  {
    Opened opened(path);
    Session& s = opened.s;
    opened.ExpectSilence();
    ClickNode(s, s.tree.Find(SurveyKey(s.current.UserID, kMonth, s.year)));
    outcome.seconds = Seconds([&] { RunQC(s, s.current, true); });
    if (opened.platform.boxes() != 1) throw std::runtime_error("the program told: " + opened.platform.last_box());
  }
  PlainFile file(path);
  outcome.findings = ReadFindings(file);
  return outcome;
}

std::vector<std::string> TagsOfMonth(const std::vector<RuleGroup>& groups, const std::vector<FieldSpec>& fields) {
  std::vector<std::string> tags;
  for (const RuleGroup& group : groups)
    for (const Rule& rule : group.rules) {
      if (rule.mode != In::kActv) continue;
      std::string tag = rule.field;
      for (const FieldSpec& field : fields)
        if (field.control == rule.field) tag = field.tag;
      tags.push_back(tag);
    }
  return tags;
}

// The plain side's statements, prepared before the time is taken.
struct PlainRun {
  PlainFile& file;
  PlainStatement structures{file, kStructures};
  PlainStatement flares{file, kFlares};
  PlainStatement finding{file, kFinding};
  PlainStatement new_finding{file, "INSERT INTO QC VALUES (?,?,?,?,?,?,?,?,?,?,?,?)"};
  PlainStatement stamp_flare{file, "UPDATE EA_EQUIP_ACTV SET EA_QC_DT=? WHERE EA_ID_AK=?"};
  PlainStatement stamp_structure{file, "UPDATE PA_PLATFORM_ACTV SET PA_QC_DT=? WHERE SA_ID_AK=?"};
  const std::string date = "2017-12-31 12:00:00";
  const std::vector<std::string> structure_tags = TagsOfMonth(StructureRules(), StructureFields());
  const SheetSpec& sheet = *FindSheet("FLA");
  const std::vector<std::string> flare_tags = TagsOfMonth(sheet.rules, sheet.fields);
  std::size_t sum = 0;

  void LookUp(const QCLocation& l, const std::vector<std::string>& tags) {
    finding.Bind(1, l.UserID).Bind(2, l.CmplxID).Bind(3, l.StructID).Bind(4, l.EquipType).Bind(5, l.EquipID);
    finding.Bind(6, l.Month).Bind(7, l.Year).Bind(8, l.Level);
    for (const std::string& tag : tags) sum += finding.Bind(9, tag).ReadAll();
  }

  void Flares(std::int64_t PD_ID_AK, QCLocation l) {
    l.Level = level::kEquipment;
    l.EquipType = "FLA";
    flares.Bind(1, PD_ID_AK).Bind(2, l.Month).Bind(3, l.Year);
    while (flares.Step()) {
      sum += flares.ReadRow();
      l.EquipID = flares.Text(1);
      LookUp(l, flare_tags);
      stamp_flare.Bind(1, date).Bind(2, flares.Integer(0)).Execute();
    }
    flares.Reset();
  }

  void Survey(int month, int year) {
    structures.Bind(1, month).Bind(2, year);
    while (structures.Step()) {
      sum += structures.ReadRow();
      QCLocation l{level::kStructure,  structures.Text(2), month, year,
                   structures.Text(3), structures.Text(4), "NA",  "NA"};
      LookUp(l, structure_tags);
      Flares(structures.Integer(1), l);
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

double RunPlain(const Workshop& shop, const std::vector<Finding>& findings) {
  PlainFile file(shop.FreshCopy(shop.flares, "qc-plain"));
  PlainRun run{file};
  const double seconds = Seconds([&] {
    file.Run("BEGIN");
    run.Survey(kMonth, InventoryPlan{}.year);
    run.Write(findings);
    file.Run("COMMIT");
  });
  benchmark::DoNotOptimize(run.sum);
  if (ReadFindings(file) != findings) throw std::runtime_error("the two sides do not write the same findings");
  return seconds;
}

}  // namespace

std::vector<Measure> QCMeasures(const Workshop& shop) {
  return {{"QC of a month of 3,333 flares", 5, 9, [&shop] {
             const Outcome ours = RunOurs(shop);
             return Pair{ours.seconds, RunPlain(shop, ours.findings)};
           }}};
}

}  // namespace merlu::bench
