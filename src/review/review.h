// A review of an inventory before it is handed in: every record with the findings that its rules raise now, and the
// comments that explain them. Records are judged from their rows; nothing is run or written.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "history/companion.h"
#include "session/location.h"
#include "store/database.h"

namespace merlu {

enum class FindingState : std::uint8_t { kOpen, kExplained, kStale };
const char* StateText(FindingState state);

struct ReviewedStructure {
  std::int64_t PD_ID_AK = 0;
  std::string user, complex, structure, text;  // the text as in the tree
  int rank = 0;                                // position in the tree, to sort by
};

// A piece of equipment; `structure` is -1 when its structure was deleted.
struct ReviewedPiece {
  std::int64_t ED_ID_AK = 0;
  int structure = -1;
  std::string type, id;
  int rank = 0;
};

// A rule's finding, or a row of the log, without the record: kept once for all findings that share it.
struct FindingKind {
  std::string tag, control, expected, text;
  int field = 0;           // index among the sheet's fields
  std::size_t number = 0;  // among those of the review
};

struct ReviewedFinding {
  const FindingKind* kind = nullptr;
  std::string value, comment;
  std::int64_t row = 0;  // of the log, 0 where it lacks the finding
  FindingState state = FindingState::kOpen;
};

enum class RecordKind : std::uint8_t { kStructure, kStructureMonth, kEquipment, kEquipmentMonth, kGone };

struct ReviewedRecord {
  RecordKind kind = RecordKind::kGone;
  std::int64_t key = 0;  // by its kind PD_ID_AK, SA_ID_AK, ED_ID_AK, EA_ID_AK, or the row of the log
  int structure = -1;    // of the review's structures, and of its pieces
  int piece = -1;
  int year = 0, month = 0;
  bool inactive = false, structure_inactive = false, has_values = true, checked = false;
  int open = 0, explained = 0, stale = 0;
  std::vector<ReviewedFinding> findings;   // as on the sheet
  std::shared_ptr<const QCLocation> gone;  // location of a log row whose record was deleted or never existed

  bool IsEquipment() const { return kind == RecordKind::kEquipment || kind == RecordKind::kEquipmentMonth; }
  bool IsStructureMonth() const { return kind == RecordKind::kStructureMonth; }
  bool ReportsNothing() const { return inactive || structure_inactive; }
};

// Sorted by month, descriptions first; within a month as in the tree.
struct Review {
  std::vector<ReviewedStructure> structures;
  std::vector<ReviewedPiece> pieces;
  std::vector<ReviewedRecord> records;
  std::deque<FindingKind> kinds;  // findings point into it
  int findings = 0;               // of all records
  int year = 0, last_month = 0;   // as the inventory says

  Review() = default;
  Review(Review&&) = default;
  Review& operator=(Review&&) = default;
};

// "2017/03"
std::string MonthText(int year, int month);
// The months that the inventory has, in their order.
struct YearMonth {
  int year = 0, month = 0;
  bool operator==(const YearMonth&) const = default;
};
std::vector<YearMonth> MonthsOf(const Review& review);

QCLocation LocationOf(const Review& review, const ReviewedRecord& record);
Mode ModeOf(const ReviewedRecord& record);
// "Combustion Flare: F1"
std::string PieceText(const ReviewedPiece& piece);
// "2017/03 · GI, 43, A · Combustion Flare: F1"
std::string PlaceOf(const Review& review, const ReviewedRecord& record);

// Faults of the store are passed on.
Review MakeReview(Database& db, const Companion& companion);

}  // namespace merlu
