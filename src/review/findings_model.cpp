#include "review/findings_model.h"

#include <algorithm>
#include <sstream>

#include "base/text.h"

namespace merlu {
namespace {

enum Column { kPlace, kField, kValue, kExpected, kError, kComment, kState };

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream in(Lower(text));
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

}  // namespace

bool FindingsModel::Refresh() {
  Database* db = source_.store();
  const FindingFilter filter = source_.filter();
  const std::int64_t changes = db == nullptr ? -1 : db->ChangeCount();
  const std::string path = db == nullptr ? "" : db->path();
  const bool same_store = path == path_ && changes == changes_;
  if (same_store && filter == filter_) return false;
  if (!same_store) {
    review_ = db == nullptr ? Review() : MakeReview(*db, source_.companion());
    ++review_number_;
    texts_.clear();
  }
  path_ = path;
  changes_ = changes;
  filter_ = filter;
  Choose();
  return true;
}

const ReviewedFinding& FindingsModel::At(int row) const {
  return review_.findings[static_cast<std::size_t>(Origin(row))];
}

std::string FindingsModel::TextOf(const ReviewedFinding& finding, int column) const {
  switch (column) {
    case kPlace: return PlaceOf(review_, review_.records[static_cast<std::size_t>(finding.record)]);
    case kField: return finding.tag;
    case kValue: return finding.value;
    case kExpected: return finding.expected;
    case kError: return finding.text;
    case kComment: return finding.comment;
    case kState: return StateText(finding.state);
    default: return "";
  }
}

std::string FindingsModel::Text(int row, int column) const {
  return TextOf(At(row), column);
}

bool FindingsModel::Passes(std::size_t number, const std::vector<std::string>& words) const {
  const ReviewedFinding& finding = review_.findings[number];
  if (filter_.state == "Open" && finding.state != FindingState::kOpen) return false;
  if (filter_.state == "Explained" && finding.state != FindingState::kExplained) return false;
  if (filter_.state == "Stale" && finding.state != FindingState::kStale) return false;
  const QCLocation& at = review_.records[static_cast<std::size_t>(finding.record)].location;
  if (filter_.when == "Descriptions" && at.Month != 0) return false;
  if (filter_.when.find('/') != std::string::npos && (at.Month == 0 || MonthText(at.Year, at.Month) != filter_.when))
    return false;
  return std::all_of(words.begin(), words.end(),
                     [&](const std::string& word) { return texts_[number].find(word) != std::string::npos; });
}

void FindingsModel::Choose() {
  const std::vector<std::string> words = WordsOf(filter_.words);
  if (!words.empty() && texts_.empty())
    for (const ReviewedFinding& finding : review_.findings) {
      std::string& text = texts_.emplace_back();
      for (int column = kPlace; column <= kState; ++column) (text += Lower(TextOf(finding, column))) += '\n';
    }
  shown_.clear();
  for (std::size_t i = 0; i < review_.findings.size(); ++i)
    if (Passes(i, words)) shown_.push_back(static_cast<int>(i));
  Order();
}

void FindingsModel::Sort(int column, bool descending) {
  sorted_by_ = column;
  descending_ = descending;
  std::sort(shown_.begin(), shown_.end());
  Order();
}

void FindingsModel::Order() {
  ++revision_;
  if (sorted_by_ < 0) return;
  std::vector<std::pair<SortKey, int>> keys;
  keys.reserve(shown_.size());
  for (const int finding : shown_)
    keys.emplace_back(SortKey(TextOf(review_.findings[static_cast<std::size_t>(finding)], sorted_by_)), finding);
  std::stable_sort(keys.begin(), keys.end(),
                   [&](const auto& a, const auto& b) { return descending_ ? b.first < a.first : a.first < b.first; });
  for (std::size_t i = 0; i < keys.size(); ++i) shown_[i] = keys[i].second;
}

std::string FindingsModel::CountText() const {
  int count[3] = {};
  for (const int finding : shown_) ++count[static_cast<int>(review_.findings[static_cast<std::size_t>(finding)].state)];
  return std::to_string(shown_.size()) + " of " + std::to_string(review_.findings.size()) + " findings · " +
         std::to_string(count[0]) + " open, " + std::to_string(count[1]) + " explained, " + std::to_string(count[2]) +
         " stale";
}

}  // namespace merlu
