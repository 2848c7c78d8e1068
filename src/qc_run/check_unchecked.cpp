#include "qc_run/check_unchecked.h"

#include <vector>

#include "base/text.h"
#include "qc_run/run_record.h"
#include "session/act.h"
#include "session/place.h"
#include "session/wait.h"

namespace merlu {
namespace {

struct Unchecked {
  const SheetSpec* sheet;
  Mode mode;
  RecordKeys keys;
  QCLocation location;
};

// Restores the user's place at the end.
class Standing {
 public:
  explicit Standing(Session& s)
      : s_(s), mode_(s.mode), current_(s.current), equipment_(s.EquipmentInactive), checked_(s.record_checked) {}
  ~Standing() {
    s_.mode = mode_;
    s_.current = current_;
    s_.EquipmentInactive = equipment_;
    s_.record_checked = checked_;
  }
  Standing(const Standing&) = delete;
  Standing& operator=(const Standing&) = delete;

 private:
  Session& s_;
  const Mode mode_;
  const QCLocation current_;
  const bool equipment_, checked_;
};

std::vector<Unchecked> UncheckedOf(Session& s, int month) {
  std::vector<Unchecked> found;
  for (const Mode mode : {Mode::kDesc, Mode::kActv})
    JudgeAll(s.db, {.mode = mode, .month = mode == Mode::kActv ? month : 0, .only_unchecked = true},
             [&](const JudgedRecord& record) {
               const bool structure = record.IsOfStructure(), dated = mode == Mode::kActv || structure;
               if (!dated || record.checked || record.inactive || record.structure_inactive || !record.has_values)
                 return;
               found.push_back({record.sheet,
                                mode,
                                record.keys,
                                {structure ? level::kStructure : level::kEquipment, record.structure->user,
                                 record.month, record.year, record.structure->complex, record.structure->structure,
                                 structure ? "NA" : record.sheet->type, structure ? "NA" : std::string(record.id)}});
             });
  return found;
}

}  // namespace

CheckedRecords CheckUnchecked(Session& s, int month) {
  const std::string year = std::to_string(s.year);
  const Act act(s, "Check What Was Not", month == 0 ? year : JoinPlace(month, s.year, "", ""), s.current);
  CheckedRecords checked;
  if (!act.MayWrite()) return checked;
  const Standing standing(s);
  WriteBatch batch(s.db);
  AllOrNothing whole(s.db);
  const std::vector<Unchecked> unchecked = UncheckedOf(s, month);
  checked.of = static_cast<int>(unchecked.size());
  for (const Unchecked& each : unchecked) {
    ShowProgress(s, "Checking " + Trim(each.location.CmplxID) + "/" + Trim(each.location.StructID), checked.done,
                 checked.of);
    if (s.progress.IsStopWanted()) {
      checked.stopped = true;
      break;
    }
    s.mode = each.mode;
    s.current = each.location;
    const bool found = JudgeRecord(s.db, *each.sheet, each.mode, each.keys,
                                   [&](const JudgedRecord& record) { RunJudged(s, each.location, record); });
    checked.done += found ? 1 : 0;
  }
  whole.Keep();
  batch.Commit();
  return checked;
}

}  // namespace merlu
