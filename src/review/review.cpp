#include "review/review.h"

#include <algorithm>
#include <tuple>

#include "base/text.h"
#include "review/review_keeper.h"
#include "session/place.h"

namespace merlu {
namespace {

constexpr int kMonthsOfYear = 12;

}  // namespace

const char* StateText(FindingState state) {
  return state == FindingState::kOpen ? "open" : state == FindingState::kExplained ? "explained" : "stale";
}

std::string MonthText(int year, int month) {
  return JoinPlace(month, year, "", "");
}

std::vector<YearMonth> MonthsOf(const Review& review) {
  std::vector<YearMonth> months;
  for (int month = 1; month <= std::min(review.last_month, kMonthsOfYear); ++month)
    months.push_back({review.year, month});
  for (const ReviewedRecord& record : review.records) {
    if (record.structure < 0 || record.month == 0) continue;
    const YearMonth month{record.year, record.month};
    if (std::find(months.begin(), months.end(), month) == months.end()) months.push_back(month);
  }
  std::sort(months.begin(), months.end(), [](const YearMonth& a, const YearMonth& b) {
    return std::tie(a.year, a.month) < std::tie(b.year, b.month);
  });
  return months;
}

QCLocation LocationOf(const Review& review, const ReviewedRecord& record) {
  if (record.gone) return *record.gone;
  const ReviewedStructure& structure = review.structures[static_cast<std::size_t>(record.structure)];
  QCLocation location{level::kStructure, structure.user,      record.month, record.year,
                      structure.complex, structure.structure, "",           ""};
  if (!record.IsEquipment()) return location;
  const ReviewedPiece& piece = review.pieces[static_cast<std::size_t>(record.piece)];
  location.Level = level::kEquipment;
  location.EquipType = piece.type;
  location.EquipID = piece.id;
  return location;
}

Mode ModeOf(const ReviewedRecord& record) {
  return record.month == 0 ? Mode::kDesc : Mode::kActv;
}

std::string PieceText(const ReviewedPiece& piece) {
  return EquipmentText(piece.type, piece.id);
}

std::string PlaceOf(const Review& review, const ReviewedRecord& record) {
  if (record.gone) {
    const QCLocation& l = *record.gone;
    const bool equipment = l.Is(level::kEquipment);
    const std::string structure = l.Is(level::kSurvey) ? "" : Trim(l.CmplxID) + "/" + Trim(l.StructID);
    return JoinPlace(l.Month, l.Year, structure, equipment ? EquipmentText(l.EquipType, l.EquipID) : "");
  }
  const std::string& structure = review.structures[static_cast<std::size_t>(record.structure)].text;
  if (!record.IsEquipment()) return JoinPlace(record.month, record.year, structure, "");
  return JoinPlace(record.month, record.year, structure,
                   PieceText(review.pieces[static_cast<std::size_t>(record.piece)]));
}

Review MakeReview(Database& db, const Companion& companion) {
  ReviewKeeper keeper;
  keeper.Build(db, companion);
  return keeper.Release();
}

}  // namespace merlu
