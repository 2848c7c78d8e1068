// The findings of the open inventory, filtered and sorted. It is brought up to date with the store before it is read.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forms/list_model.h"
#include "review/live_review.h"

namespace merlu {

struct FindingFilter {
  std::string words;  // each must occur in some column, without regard to case
  std::string state;  // "Open", "Explained", "Stale"; anything else: all
  std::string when;   // "Descriptions" or "2017/01"; anything else: all
  bool operator==(const FindingFilter&) const = default;
};

inline const std::vector<std::string> kFindingColumns = {
    "Place", "Field", "Value", "Expected", "Error Description", "Operator Comment", "State"};
std::string FindingText(const Review& review, const ReviewedRecord& record, const ReviewedFinding& finding, int column);

// A finding by its record's index in the review and its own in the record.
struct FindingPlace {
  int record = -1, number = -1;
  bool operator==(const FindingPlace&) const = default;
};

// Identifies the finding when the review has changed.
struct FindingName {
  RecordKind kind = RecordKind::kGone;
  std::int64_t key = 0;
  std::string tag;
  bool operator==(const FindingName&) const = default;
};

// The finding that the user went to last, or picked since, its field's index on the sheet, and the user's place then.
struct Walk {
  FindingName to;
  int field = 0;
  QCLocation from;
  bool picked = false;
};

class FindingsModel : public ListModel {
 public:
  // `store` returns the open inventory, or null; `filter` the filter in force.
  struct Source {
    std::function<Database*()> store;
    std::function<const Companion&()> companion;
    std::function<FindingFilter()> filter;
  };
  explicit FindingsModel(Source source) : source_(std::move(source)) {}

  // Brings everything up to date; true when the rows have changed.
  bool Refresh();
  const LiveReview& live() const { return live_; }
  const Review& review() const { return live_.review(); }

  FindingPlace PlaceAt(int row) const { return shown_[static_cast<std::size_t>(row)]; }
  const ReviewedRecord& RecordAt(int row) const;
  const ReviewedFinding& At(int row) const;
  FindingName NameAt(int row) const;
  // The rows that these have now.
  std::vector<int> RowsOf(const std::vector<FindingName>& names) const;
  // "12 of 340 findings · 8 open, 3 explained, 1 stale"
  std::string CountText() const;

  Walk walk;

  int RowCount() const override { return static_cast<int>(shown_.size()); }
  std::string Text(int row, int column) const override;
  std::uint64_t Revision() const override { return revision_; }
  bool CanSort() const override { return true; }
  void Sort(int column, bool descending) override;

 private:
  void Arrange();
  void Choose();
  void Order();

  Source source_;
  LiveReview live_;
  FindingFilter filter_;
  std::vector<FindingPlace> all_, shown_;  // in the order asked for
  int sorted_by_ = -1;
  bool descending_ = false;
  std::uint64_t revision_ = 0;
};

}  // namespace merlu
