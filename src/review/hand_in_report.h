// The report on what is handed in: its checks, and every finding by structure.
#pragma once

#include <string>
#include <vector>

#include "forms/hand_in_report.h"
#include "review/hand_in.h"

namespace merlu {

// The findings in the report of the month, or of the whole year (month 0), in the order of the review.
struct HandInFinding {
  const ReviewedRecord* record;
  const ReviewedFinding* finding;
};
std::vector<HandInFinding> FindingsOf(const Review& review, int month);

// "2017/03", "Whole year 2017"
std::string WhenText(const Review& review, int month);

// Date and program are the caller's.
HandInReport MakeHandInReport(Database& db, const Review& review, const std::vector<HandInRow>& checks, int month);

}  // namespace merlu
