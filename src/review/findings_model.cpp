#include "review/findings_model.h"

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
#include <unordered_map>

#include "base/case_folding.h"
#include "session/place.h"

namespace merlu {
namespace {

enum Column { kPlace, kField, kValue, kExpected, kError, kComment, kState };

const std::string kBetweenParts = " · ";  // of a place

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream in(FoldedText(text));
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

// Which findings a filter lets through. What many findings share is searched once.
class Sieve {
 public:
  Sieve(const Review& review, const FindingFilter& filter)
      : review_(review),
        filter_(filter),
        words_(WordsOf(filter.words)),
        of_record_(review.records.size()),
        in_structure_(review.structures.size()),
        in_piece_(review.pieces.size()),
        in_kind_(review.kinds.size()) {
    if (words_.size() > kMostWords) words_.resize(kMostWords);
    all_ = (Mask{1} << words_.size()) - 1;
    for (const FindingState state : {FindingState::kOpen, FindingState::kExplained, FindingState::kStale})
      in_state_[static_cast<std::size_t>(state)] = WordsIn(StateText(state));
  }

  bool Passes(const FindingPlace& place) {
    const ReviewedRecord& record = review_.records[static_cast<std::size_t>(place.record)];
    OfRecord& known = of_record_[static_cast<std::size_t>(place.record)];
    if (!known.is_known) known = Look(record);
    return known.passes && Passes(record.findings[static_cast<std::size_t>(place.number)], known.found);
  }

 private:
  using Mask = std::uint64_t;
  static constexpr std::size_t kMostWords = 60;
  struct Part {
    bool is_known = false;
    Mask found = 0;  // words that it holds
  };
  struct OfRecord {
    bool is_known = false, passes = false;
    Mask found = 0;  // words that its place holds
  };

  OfRecord Look(const ReviewedRecord& record) {
    if (filter_.when == "Descriptions" && record.month != 0) return {true, false, 0};
    if (filter_.when.find('/') != std::string::npos &&
        (record.month == 0 || MonthText(record.year, record.month) != filter_.when))
      return {true, false, 0};
    return {true, true, words_.empty() ? 0 : InPlace(record)};
  }

  // No word is in two parts of a place, as there are blanks between them.
  Mask InPlace(const ReviewedRecord& record) {
    if (record.gone) return WordsIn(PlaceOf(review_, record));
    Part& month = in_month_[{record.year, record.month}];
    if (!month.is_known) month = {true, WordsIn(JoinPlace(record.month, record.year, "", "") + kBetweenParts)};
    Part& structure = in_structure_[static_cast<std::size_t>(record.structure)];
    if (!structure.is_known)
      structure = {true, WordsIn(review_.structures[static_cast<std::size_t>(record.structure)].text)};
    Mask found = structure.found | (record.month == 0 ? 0 : month.found);
    if (!record.IsEquipment()) return found;
    Part& piece = in_piece_[static_cast<std::size_t>(record.piece)];
    if (!piece.is_known)
      piece = {true, WordsIn(kBetweenParts + PieceText(review_.pieces[static_cast<std::size_t>(record.piece)]))};
    return found | piece.found;
  }

  bool Passes(const ReviewedFinding& finding, Mask found) {
    if (filter_.state == "Open" && finding.state != FindingState::kOpen) return false;
    if (filter_.state == "Explained" && finding.state != FindingState::kExplained) return false;
    if (filter_.state == "Stale" && finding.state != FindingState::kStale) return false;
    if (found != all_) found |= in_state_[static_cast<std::size_t>(finding.state)] | InKind(*finding.kind);
    if (found != all_ && !finding.value.empty()) found |= WordsIn(finding.value);
    if (found != all_ && !finding.comment.empty()) found |= WordsIn(finding.comment);
    return found == all_;
  }

  Mask WordsIn(std::string_view text) {
    folded_ = FoldedText(text);
    Mask found = 0;
    for (std::size_t i = 0; i < words_.size(); ++i)
      if (folded_.find(words_[i]) != std::string::npos) found |= Mask{1} << i;
    return found;
  }
  Mask InKind(const FindingKind& kind) {
    Part& known = in_kind_[kind.number];
    if (!known.is_known) known = {true, WordsIn(kind.tag) | WordsIn(kind.expected) | WordsIn(kind.text)};
    return known.found;
  }

  const Review& review_;
  const FindingFilter& filter_;
  std::vector<std::string> words_;
  Mask all_ = 0;
  std::vector<OfRecord> of_record_;
  std::map<std::pair<int, int>, Part> in_month_;
  std::vector<Part> in_structure_, in_piece_, in_kind_;
  std::array<Mask, 3> in_state_{};
  std::string folded_;
};

}  // namespace

std::string FindingText(const Review& review, const ReviewedRecord& record, const ReviewedFinding& finding,
                        int column) {
  switch (column) {
    case kPlace: return PlaceOf(review, record);
    case kField: return finding.kind->tag;
    case kValue: return finding.value;
    case kExpected: return finding.kind->expected;
    case kError: return finding.kind->text;
    case kComment: return finding.comment;
    case kState: return StateText(finding.state);
    default: return "";
  }
}

bool FindingsModel::Refresh() {
  const FindingFilter filter = source_.filter();
  const bool changed = live_.Refresh(source_.store(), source_.companion());
  if (!changed && filter == filter_) return false;
  filter_ = filter;
  if (changed) Arrange();
  Choose();
  return true;
}

const ReviewedRecord& FindingsModel::RecordAt(int row) const {
  return review().records[static_cast<std::size_t>(PlaceAt(row).record)];
}

const ReviewedFinding& FindingsModel::At(int row) const {
  return RecordAt(row).findings[static_cast<std::size_t>(PlaceAt(row).number)];
}

FindingName FindingsModel::NameAt(int row) const {
  const ReviewedRecord& record = RecordAt(row);
  return {record.kind, record.key, At(row).kind->tag};
}

std::vector<int> FindingsModel::RowsOf(const std::vector<FindingName>& names) const {
  std::vector<int> rows;
  if (names.empty()) return rows;
  std::unordered_map<int, std::vector<const std::string*>> tags;  // by record
  for (const FindingName& name : names)
    if (const int record = live_.Find(name.kind, name.key); record >= 0) tags[record].push_back(&name.tag);
  for (int row = 0; row < RowCount(); ++row) {
    const auto wanted = tags.find(PlaceAt(row).record);
    if (wanted == tags.end()) continue;
    const std::string& tag = At(row).kind->tag;
    if (std::any_of(wanted->second.begin(), wanted->second.end(), [&tag](const auto* each) { return *each == tag; }))
      rows.push_back(row);
  }
  return rows;
}

std::string FindingsModel::Text(int row, int column) const {
  return FindingText(review(), RecordAt(row), At(row), column);
}

void FindingsModel::Sort(int column, bool descending) {
  sorted_by_ = column;
  descending_ = descending;
  Arrange();
  Choose();
}

// All findings in the order asked for: what a filter lets through of them needs no ordering.
void FindingsModel::Arrange() {
  all_.clear();
  for (std::size_t record = 0; record < review().records.size(); ++record)
    for (std::size_t number = 0; number < review().records[record].findings.size(); ++number)
      all_.push_back({static_cast<int>(record), static_cast<int>(number)});
  if (sorted_by_ >= 0) Order();
}

void FindingsModel::Choose() {
  ++revision_;
  Sieve sieve(review(), filter_);
  shown_.clear();
  for (const FindingPlace& place : all_)
    if (sieve.Passes(place)) shown_.push_back(place);
}

// Equal texts are few beside the findings: they are ordered, and the findings after them.
void FindingsModel::Order() {
  std::unordered_map<std::string, int> places;
  std::vector<int> text_of;
  text_of.reserve(all_.size());
  std::vector<std::pair<SortKey, int>> keys;
  for (const FindingPlace& place : all_) {
    const ReviewedRecord& record = review().records[static_cast<std::size_t>(place.record)];
    std::string text =
        FindingText(review(), record, record.findings[static_cast<std::size_t>(place.number)], sorted_by_);
    const auto [known, fresh] = places.try_emplace(std::move(text), static_cast<int>(keys.size()));
    if (fresh) keys.emplace_back(SortKey(known->first), known->second);
    text_of.push_back(known->second);
  }
  std::stable_sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<int> rank(keys.size());
  int last = -1;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i == 0 || keys[i - 1].first < keys[i].first) ++last;
    rank[static_cast<std::size_t>(keys[i].second)] = last;
  }
  std::vector<std::pair<int, FindingPlace>> rows;
  rows.reserve(all_.size());
  for (std::size_t row = 0; row < all_.size(); ++row) {
    const int at = rank[static_cast<std::size_t>(text_of[row])];
    rows.emplace_back(descending_ ? -at : at, all_[row]);
  }
  std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (std::size_t row = 0; row < rows.size(); ++row) all_[row] = rows[row].second;
}

std::string FindingsModel::CountText() const {
  if (!live_.unreadable().empty()) return "The findings cannot be read: " + live_.unreadable();
  int count[3] = {};
  for (int row = 0; row < RowCount(); ++row) ++count[static_cast<int>(At(row).state)];
  return std::to_string(shown_.size()) + " of " + std::to_string(review().findings) + " findings · " +
         std::to_string(count[0]) + " open, " + std::to_string(count[1]) + " explained, " + std::to_string(count[2]) +
         " stale";
}

}  // namespace merlu
