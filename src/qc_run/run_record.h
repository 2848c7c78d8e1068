// The run over one record: judges it, updates its findings in the log, paints its sheet if it is shown, and stamps the
// date of last QC. A run in which a group of rules ended with a fault leaves the date empty: the record still needs
// one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "qc/qc_log.h"
#include "records/judge_records.h"
#include "session/session.h"

namespace merlu {

// A month's record that is typed elsewhere than on its sheet, before it is stored.
struct TypedView {
  RecordView view;                      // what its sheet would show; takes what the rules change
  bool inactive = false;                // its box "No Emissions to Report"
  const Context* context;               // of its month, as while saving; a structure's is read by the run
  std::vector<std::string> messages{};  // of the rules, on what they changed
  // That the log knows: a record that is not among them has nothing to be withdrawn, in any month. Null: look.
  EquipmentWithFindings* known = nullptr;
  std::optional<int> findings{};  // that it has now, where it had none in any month
  Verdicts verdicts{};            // what its rules said
};

// The equipment at the location in the session's mode: from its sheet if that is shown, with what the user has typed,
// or else from its rows. Sets EquipmentInactive and judges nothing when its structure reports nothing. Faults are
// passed on.
void RunSheetQC(Session& s, const SheetSpec& sheet, QCLocation& location);
// The equipment of one structure, run piece by piece.
struct StructureWalk {
  PiecesWithFindings known;
  std::vector<std::int64_t> checked{};  // months that are dated at its end
};
// The same for a record that was judged from its rows. Among those of a structure, its date is left to DateEquipment.
void RunJudged(Session& s, const QCLocation& location, const JudgedRecord& record, StructureWalk* walk = nullptr);

// Gives these months of equipment the date of last QC; returns how many there are.
int DateEquipment(Session& s, std::vector<std::int64_t> keys, const Value& date);

// The same for equipment that is typed and not yet stored, as the run that its save begins with; it is dated by what
// stores it. A group of rules that met a fault passes it on.
void RunTypedEquipment(Session& s, const SheetSpec& sheet, QCLocation location, TypedView& typed);
bool RunTypedStructureRules(Session& s, const QCLocation& location, TypedView& typed);

// The rules of the structure at the location, on its screen, or from its rows by a judge of structures by their keys.
// False, with StructureInactive, when it reports nothing.
bool RunStructureRules(Session& s, const QCLocation& location);
bool RunStoredStructureRules(Session& s, const QCLocation& location, Contexts& contexts, RecordJudge& judge);

// Dates the structure, the month in activity mode, otherwise the description; or, not checked, empties the date.
void StampStructure(Session& s, bool checked);

}  // namespace merlu
