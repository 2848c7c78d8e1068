// The lists of findings that the sheets show.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/control.h"
#include "session/session.h"

namespace merlu {

// Text that marks a row of a list as a summary and not a finding: its last column.
inline constexpr const char* kSummaryMark = "n/a";

struct FindingQuery {
  std::string condition;
  Values values;
};

FindingQuery FindingsOfEquipment(const QCLocation& location, const std::string& type);
FindingQuery FindingsOfStructure(const QCLocation& location);
FindingQuery FindingsOfSurvey(const QCLocation& location);

// Replaces the list's rows by the findings: field, description, comment. Findings of both modes show.
void FillWithFindings(Session& s, Control& list, const FindingQuery& query);

// A row with the number of findings of a record, and that record's place in the location's month.
struct SummaryRow {
  std::string text;
  std::int64_t count = 0;
  QCLocation at;
};
std::vector<SummaryRow> EquipmentSummary(Session& s, const QCLocation& location);
std::vector<SummaryRow> StructureSummary(Session& s, const QCLocation& location);

// Adds a summary row per equipment of the structure with findings in the location's month, and per
// structure with findings in any month.
void AddEquipmentSummary(Session& s, Control& list, const QCLocation& location);
void AddStructureSummary(Session& s, Control& list, const QCLocation& location);

}  // namespace merlu
