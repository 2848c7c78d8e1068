// The log of findings: one row of QC per open finding. Runs write it by their verdicts (qc/apply.h).
//
// Every operation handles its own faults: number and description are shown in a box, and the run continues.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "session/session.h"

namespace merlu {

// Stands the QC cursor on the finding of that field; blanks at the end of the field's name do not count.
// Above equipment level the location's fields below its level become "NA".
bool FindQCRecord(Session& s, QCLocation& location, std::string_view field_id);

// Findings of one equipment, or of one structure at the location's level, in every month: of the current
// mode, or of both.
void DelQCRecordsForEquipMode(Session& s, const QCLocation& location);
void DelQCRecordsForEquip(Session& s, const QCLocation& location);
void DelQCRecordsForStructMode(Session& s, const QCLocation& location);
// All findings of a structure and of its equipment, in every month and both modes: for one that is deleted.
void DelQCRecordsForStructure(Session& s, const QCLocation& location);

// Findings of the location's month on the structure, at equipment level those of all equipment of the
// type. At survey level nothing is deleted. The three differ in what they spare: comments and the other
// mode; the other mode; nothing. Always true.
bool DelQCRecordsForLocAndBelow(Session& s, const QCLocation& location);
bool DelQCRecordsForLocAndBelowAll(Session& s, const QCLocation& location);
bool DelQCRecordsForLocAndBelowAnyMode(Session& s, const QCLocation& location);

// The pieces of equipment that have findings, in whatever month and mode: read once where many records are saved, so
// that those without are not looked for one by one.
class EquipmentWithFindings {
 public:
  explicit EquipmentWithFindings(Database& db);
  bool Has(const QCLocation& location) { return !known_.empty() && known_.contains(KeyOf(location)); }
  void Add(const QCLocation& location) { known_.insert(KeyOf(location)); }

 private:
  // Valid until the next call.
  const std::string& KeyOf(const QCLocation& location);
  std::unordered_set<std::string> known_;
  std::string key_;
};

// The pieces of equipment on a structure that have findings in a month: read once where all of them run, so that those
// without are not looked for one by one.
class PiecesWithFindings {
 public:
  PiecesWithFindings(Database& db, const QCLocation& structure);
  bool Has(const QCLocation& location) const;
  void Add(const QCLocation& location);

 private:
  struct Piece {
    std::string type, id;
  };
  std::vector<Piece> pieces_;
};

// Findings at the location and below it in its month, in both modes; 0 above survey level.
int CountQCErrors(Session& s, const QCLocation& location);

}  // namespace merlu
