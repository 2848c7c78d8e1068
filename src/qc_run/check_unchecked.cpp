#include "qc_run/check_unchecked.h"

#include <vector>

#include "qc_run/run_record.h"
#include "session/act.h"
#include "session/messages.h"

namespace merlu {
namespace {

struct Unchecked {
  const SheetSpec* sheet;
  Mode mode;
  RecordKeys keys;
  QCLocation location;
};

// Where the user stands, put back at the end.
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
               const bool dated = mode == Mode::kActv || record.sheet == nullptr;
               if (!dated || record.checked || record.inactive || record.structure_inactive || !record.has_values)
                 return;
               const bool structure = record.sheet == nullptr;
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

int CheckUnchecked(Session& s, int month) {
  const Act act(s, "Check What Was Not");
  if (!act.MayWrite()) return 0;
  const Standing standing(s);
  WriteBatch batch(s.db);
  AllOrNothing whole(s.db);
  const std::vector<Unchecked> unchecked = UncheckedOf(s, month);
  int done = 0;
  for (const Unchecked& each : unchecked) {
    Progress(s, "Checking " + each.location.CmplxID + " " + each.location.StructID, done,
             static_cast<int>(unchecked.size()));
    s.mode = each.mode;
    s.current = each.location;
    const bool found = JudgeRecord(s.db, each.sheet, each.mode, each.keys,
                                   [&](const JudgedRecord& record) { RunJudged(s, each.location, record); });
    done += found ? 1 : 0;
  }
  whole.Keep();
  batch.Commit();
  return done;
}

}  // namespace merlu
