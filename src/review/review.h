// What an inventory says of itself before it is handed in: every record with what it raises now, and the comments that
// explain it. Records are judged from their rows; nothing is run or written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "history/companion.h"
#include "session/location.h"
#include "store/database.h"

namespace merlu {

enum class FindingState { kOpen, kExplained, kStale };
const char* StateText(FindingState state);

struct ReviewedStructure {
  std::int64_t PD_ID_AK = 0;
  std::string complex, structure, text;  // as in the tree
};

struct ReviewedRecord {
  QCLocation location;
  Mode mode = Mode::kDesc;
  int structure = -1;  // of the review's structures; -1 for a row of the log whose structure is gone
  bool inactive = false, structure_inactive = false, has_values = true, checked = false;
  int open = 0, explained = 0, stale = 0;
  int findings() const { return open + explained + stale; }
};

struct ReviewedFinding {
  int record = 0;  // of the review's records
  std::string tag, control, value, expected, text, comment;
  FindingState state = FindingState::kOpen;
  std::int64_t row = 0;  // of the log, 0 where it lacks the finding
};

// Months from the first, the descriptions before them; then as the tree, then as the sheet.
struct Review {
  std::vector<ReviewedStructure> structures;
  std::vector<ReviewedRecord> records;
  std::vector<ReviewedFinding> findings;
};

// "2017/03"
std::string MonthText(int year, int month);

Review MakeReview(Database& db, const Companion& companion);

// "2017/03 · GI, 43, A · Combustion Flare: F1"
std::string PlaceOf(const Review& review, const ReviewedRecord& record);

}  // namespace merlu
