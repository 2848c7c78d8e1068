// The findings that show: filtered, in the order asked for, never older than what the store holds.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/list_model.h"
#include "review/review.h"

namespace merlu {

struct FindingFilter {
  std::string words;  // each must occur in some column, without regard to case
  std::string state;  // "Open", "Explained", "Stale"; anything else: all
  std::string when;   // "Descriptions" or "2017/01"; anything else: all
  bool operator==(const FindingFilter&) const = default;
};

inline const std::vector<std::string> kFindingColumns = {
    "Place", "Field", "Value", "Expected", "Error Description", "Operator Comment", "State"};

class FindingsModel : public ListModel {
 public:
  // `store` gives the open inventory, or null; `filter` what is asked for now.
  struct Source {
    std::function<Database*()> store;
    std::function<const Companion&()> companion;
    std::function<FindingFilter()> filter;
  };
  explicit FindingsModel(Source source) : source_(std::move(source)) {}

  // Brings everything up to date; true when the rows have changed.
  bool Refresh();
  const Review& review() const { return review_; }
  // Grows when the review was made anew.
  std::uint64_t review_number() const { return review_number_; }
  // The finding of a row that shows.
  const ReviewedFinding& At(int row) const;
  // Its place in the review, and back; -1 when it does not show.
  int Origin(int row) const { return shown_[static_cast<std::size_t>(row)]; }
  // "12 of 340 findings · 8 open, 3 explained, 1 stale"
  std::string CountText() const;

  int RowCount() const override { return static_cast<int>(shown_.size()); }
  std::string Text(int row, int column) const override;
  std::uint64_t Revision() const override { return revision_; }
  bool CanSort() const override { return true; }
  void Sort(int column, bool descending) override;

 private:
  std::string TextOf(const ReviewedFinding& finding, int column) const;
  bool Passes(std::size_t finding, const std::vector<std::string>& words) const;
  void Choose();
  void Order();

  Source source_;
  Review review_;
  std::string path_;
  std::int64_t changes_ = -1;
  FindingFilter filter_;
  std::vector<std::string> texts_;  // of the findings' columns in lower case, made when words are first asked for
  std::vector<int> shown_;
  int sorted_by_ = -1;
  bool descending_ = false;
  std::uint64_t revision_ = 0, review_number_ = 0;
};

}  // namespace merlu
