// The log of findings: one row of QC per open finding. A field has at most one open finding at a location;
// a second rule that fails on the same field replaces the first one's.
//
// Every operation traps its own faults: it tells number and description, and the run goes on.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "session/session.h"

namespace merlu {

// Texts of findings that more than one rule raises, and those that are kept for files of older versions.
namespace finding {
inline constexpr const char* kBlank = "Required field left blank";
inline constexpr const char* kRetiredSum = "Value exceeded by equipment sum";
}  // namespace finding

// Stands the QC cursor on the finding of that field; blanks at the end of the field's name do not count.
// Above equipment level the location's fields below its level become "NA".
bool FindQCRecord(Session& s, QCLocation& location, std::string_view field_id);

// False when the location has no finding at all, at its own level: then there is none to withdraw. A pass
// over a sound record asks the store once.
bool HasFindings(Session& s, QCLocation& location);

// Records a finding. An equal one is left untouched, with its comment; one with another text takes the new
// text and loses its comment. Level, month and year are those of the session's current location.
void AddQCError(Session& s, QCLocation& location, const std::string& field_id, const std::string& description);
// Withdraws the finding when its text is this one.
void ClearQCError(Session& s, QCLocation& location, const std::string& field_id, const std::string& description);
// The same for one of several texts, with one look-up.
void ClearQCErrors(Session& s, QCLocation& location, const std::string& field_id,
                   std::initializer_list<std::string> descriptions);
// Withdraws the field's finding whatever its text.
void ClearQCField(Session& s, QCLocation& location, const std::string& field_id);

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

// Findings at the location and below it in its month, in both modes; 0 above survey level.
int CountQCErrors(Session& s, const QCLocation& location);

// True when at least one equipment hangs from the location's structure.
bool HasEquipment(Session& s, const QCLocation& location);

}  // namespace merlu
