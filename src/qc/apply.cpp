#include "qc/apply.h"

#include <algorithm>
#include <functional>

#include "base/text.h"
#include "session/notices.h"

namespace merlu {
namespace {

constexpr const char* kAtLocation =
    "UserID=? AND CmplxID=? AND StructID=? AND EquipType=? AND EquipID=? AND [Month]=? AND [Year]=? AND [Level]=?";

// A finding of the location, as the run leaves it.
struct Finding {
  std::int64_t row = 0;  // 0 for one that the run adds
  std::string tag, text;
  bool changed = false;  // it takes the text, and loses its comment
  bool gone = false;
};

struct Log {
  std::vector<Finding> findings;
  std::vector<std::size_t> written;  // the findings to add or to delete, in the order of the run
};

// A location as its findings are kept: what lies below its level is "NA".
QCLocation Kept(QCLocation location) {
  const bool equipment = location.Is(level::kEquipment);
  if (!equipment && !location.Is(level::kStructure)) location.CmplxID = location.StructID = "NA";
  if (!equipment) location.EquipType = location.EquipID = "NA";
  return location;
}

Log Read(Session& s, const QCLocation& location) {
  static const std::string kSelect =
      std::string("SELECT rowid,FieldID,[Desc] FROM QC WHERE ") + kAtLocation + " ORDER BY rowid";
  Log log;
  s.db.ForEach(kSelect,
               {Trim(location.UserID), Trim(location.CmplxID), Trim(location.StructID), location.EquipType,
                Trim(location.EquipID), std::int64_t{location.Month}, std::int64_t{location.Year}, location.Level},
               [&](const RowView& row) {
                 log.findings.push_back({row.Integer(0), std::string(row.Text(1)), std::string(row.Text(2))});
               });
  return log;
}

void Play(const Verdict& verdict, Log& log) {
  if (verdict.log == Verdict::Log::kNothing) return;
  const auto found = std::find_if(log.findings.begin(), log.findings.end(), [&](const Finding& finding) {
    return !finding.gone && IsSameTag(finding.tag, verdict.tag);
  });
  const bool raises = verdict.log == Verdict::Log::kRaise;
  if (found == log.findings.end()) {
    if (!raises) return;
    log.written.push_back(log.findings.size());
    log.findings.push_back({0, std::string(verdict.tag), std::string(verdict.text)});
  } else if (raises) {
    if (found->text == verdict.text) return;
    found->text = verdict.text;
    found->changed = true;
  } else if (Withdraws(verdict, found->text)) {
    found->gone = true;
    if (found->row != 0) log.written.push_back(static_cast<std::size_t>(found - log.findings.begin()));
  }
}

void Add(Session& s, const QCLocation& location, const Finding& finding) {
  static const std::string kInsert =
      "INSERT INTO QC "
      "(UserID,[Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
      "VALUES (?,?,?,?,?,?,?,?,?,?,'',?)";
  s.db.ExecuteOn(s.db.ChangesOf("QC"), kInsert,
                 {Trim(location.UserID), std::int64_t{s.current.Month}, std::int64_t{s.current.Year}, s.current.Level,
                  Trim(location.CmplxID), Trim(location.StructID), Trim(location.EquipType), Trim(location.EquipID),
                  finding.tag, finding.text, std::string(ModeText(s.mode))});
}

void Change(Session& s, const Finding& finding) {
  s.db.ExecuteOn(s.db.ChangesOf("QC"), "UPDATE QC SET [Desc]=?,Comments='' WHERE rowid=?", {finding.text, finding.row});
}

// Where the log had none.
int AddAll(Session& s, const QCLocation& location, const Log& log) {
  int added = 0;
  for (const std::size_t number : log.written) {
    const Finding& finding = log.findings[number];
    if (finding.gone) continue;
    NotingSheetFaults(s.notices, [&] { Add(s, location, finding); });
    ++added;
  }
  return added;
}

}  // namespace

int RaiseFirst(Session& s, const QCLocation& at, const Verdicts& verdicts) {
  Log log;
  for (const Verdict& verdict : verdicts.all) Play(verdict, log);
  return AddAll(s, Kept(at), log);
}

void ApplyVerdicts(Session& s, const QCLocation& at, const Verdicts& verdicts, PiecesWithFindings* known) {
  const QCLocation location = Kept(at);
  Log log;
  const bool has_none = known != nullptr && !known->Has(location);
  if (!has_none && !NotingSheetFaults(s.notices, [&] { log = Read(s, location); })) return;
  for (const Verdict& verdict : verdicts.all) Play(verdict, log);
  for (const Finding& finding : log.findings)
    if (finding.row != 0 && finding.changed && !finding.gone) NotingSheetFaults(s.notices, [&] { Change(s, finding); });
  if (has_none && !log.written.empty()) known->Add(location);
  for (const std::size_t number : log.written) {
    const Finding& finding = log.findings[number];
    if (finding.row != 0)
      NotingSheetFaults(s.notices, [&] { s.db.Execute("DELETE FROM QC WHERE rowid=?", {finding.row}); });
    else if (!finding.gone)
      NotingSheetFaults(s.notices, [&] { Add(s, location, finding); });
  }
}

}  // namespace merlu
