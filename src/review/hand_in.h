// Whether an inventory, or a month of it, is ready to hand in.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "review/review.h"

namespace merlu {

enum class HandInCheck : std::uint8_t {
  kMonthsMissing,
  kStructuresWithoutMonth,
  kUnfinished,
  kUnexplained,
  kStale,
  kCopied,
  kDrafts,
  kDamage,
  kChanged
};

struct HandInRow {
  std::string state;  // "ok", "look", "stop"
  std::string check;
  std::int64_t count = 0;
  std::string what_to_do;
};

// In the order of HandInCheck, for the month, or for the whole year (month 0). A month covers its own records and the
// descriptions. `present_draft` is the number of the draft of the edit in progress, which is no interrupted edit.
std::vector<HandInRow> HandInChecks(Database& db, const Companion& companion, const Review& review, int month,
                                    std::int64_t present_draft = 0);
// The records of the copied values that are not confirmed or changed; the places of the interrupted edits.
std::vector<const ReviewedRecord*> CopiedValues(Database& db, const Companion& companion, const Review& review,
                                                int month);
std::vector<QCLocation> InterruptedEdits(const Companion& companion, int month, std::int64_t present_draft);
// "Ready to hand in." or "Not ready: 2 things to settle."
std::string HandInVerdict(const std::vector<HandInRow>& rows);
bool IsReady(const std::vector<HandInRow>& rows);

// A record that holds values, reports something and was never checked, or changed since.
bool IsUnchecked(const ReviewedRecord& record);
// The same, or a month's record without any value.
bool IsUnfinished(const ReviewedRecord& record);
// What a month, or the whole year (0), counts: its records and the descriptions, without those that report nothing.
bool CountsFor(const ReviewedRecord& record, int month);

}  // namespace merlu
