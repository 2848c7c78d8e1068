// Whether an inventory, or a month of it, is ready to hand in.
#pragma once

#include <string>
#include <vector>

#include "review/review.h"

namespace merlu {

struct HandInRow {
  std::string state;  // "ok", "look", "stop"
  std::string check;
  std::int64_t count = 0;
  std::string what_to_do;
};

// The month, or 0 for the whole year. A month counts its records and the descriptions.
std::vector<HandInRow> HandInChecks(Database& db, const Companion& companion, const Review& review, int month);
// "Ready to hand in." or "Not ready: 2 things to settle."
std::string HandInVerdict(const std::vector<HandInRow>& rows);

// A record that holds values, reports something and was never checked, or changed since.
bool IsUnchecked(const ReviewedRecord& record);

}  // namespace merlu
