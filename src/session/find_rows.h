// Finding the rows of the hierarchy, and the keys of new ones. The session's current keys always match the rows of the
// cursors.
#pragma once

#include <cstdint>
#include <string_view>

#include "session/session.h"

namespace merlu {

// Each moves its cursor to the row and sets the session's current key; nothing moves when the cursor is there already.
// If the row is missing: a message ("Platform Desc ID 7 not found!"), false, and no current row. A fault is shown by
// the plain handler, and the result is false.
bool MoveToPDRecord(Session& s, std::int64_t PD_ID_AK);
bool MoveToPARecord(Session& s, std::int64_t SA_ID_AK);
bool MoveToPAActvRecordByMo(Session& s, std::int64_t PD_ID_AK, int month, int year);
// To the current structure and, as its month, to a structure month that was just added. Without a current structure, or
// for the key 0, nothing moves.
void MoveToNewMonth(Session& s, std::int64_t SA_ID_AK);

// Brings all rows of the current equipment into place: the master rows, the type's rows (`ed_table`,
// `ea_table`; no ea_table for fugitives), the structure's row and, in activity mode, its month. False when
// one is missing.
bool FindEquipRecord(Session& s, const QCLocation& location, std::string_view ed_table, std::string_view ea_table);
// The current structure's rows: the description and, in activity mode, the month by its key.
bool FindStructureRecord(Session& s);
bool FindOperatorRecord(Session& s);

// Notices what other programs have written since; the rows at hand are looked up again then, as one may be gone.
void NoticeOthers(Session& s);

// A fault while another program holds the file: it is unknown then whether what was read before is still true.
void RequireReadable(Session& s);

// Keeps the keys of the current rows during work that makes new ones, and restores them when it ends with a fault, so
// that a save still goes to the record that is shown.
class CurrentKeys {
 public:
  explicit CurrentKeys(Session& s);
  ~CurrentKeys();
  CurrentKeys(const CurrentKeys&) = delete;
  CurrentKeys& operator=(const CurrentKeys&) = delete;

  // The work is done; the keys stay as it left them.
  void Advance() { done_ = true; }

 private:
  Session& s_;
  const std::int64_t PD_ID_AK_, SA_ID_AK_, ED_ID_AK_, EA_ID_AK_;
  bool done_ = false;
};

// Reads the inventory year and the last month from the file: another program may have added a month.
void ReadMonths(Session& s);

// The key after the highest one in use. Keys are 32-bit: past the last one a Fault (kSubscript).
std::int64_t KeyAfter(std::int64_t highest);
// The same Fault when fewer than `count` keys are left after `last_used`.
void RequireKeys(std::int64_t last_used, std::int64_t count);

// Keys are the highest in use plus 1. MaxEAId is the highest itself, for callers that add 1 before each row.
// Faults are passed on, so that nothing is written with a key that could not be read.
std::int64_t NextPDId(Session& s);
std::int64_t NextSAId(Session& s);
std::int64_t NextEDId(Session& s);
std::int64_t MaxEAId(Session& s);
std::int64_t NextEAId(Session& s);

}  // namespace merlu
