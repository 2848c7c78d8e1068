#include "review/review.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

#include "base/text.h"
#include "history/notes.h"
#include "qc/comment_key.h"
#include "records/judge_records.h"
#include "session/place.h"
#include "session/types.h"

namespace merlu {
namespace {

// A row of the log.
struct Logged {
  std::int64_t row = 0;
  QCLocation location;
  std::string tag, text, comment, mode;
  bool taken = false;
};

std::string RecordKey(const QCLocation& l) {
  const bool equipment = l.Is(level::kEquipment);
  std::string key = l.Level + '|' + std::to_string(l.Month);
  for (const std::string& part : {l.CmplxID, l.StructID, equipment ? l.EquipType : "", equipment ? l.EquipID : ""})
    key += '|' + Lower(Trim(part));
  return key;
}

class Log {
 public:
  explicit Log(Database& db) {
    db.ForEach(
        "SELECT "
        "rowid,UserID,[Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode "
        "FROM QC ORDER BY rowid",
        {}, [&](const RowView& row) {
          const auto text = [&](int column) { return std::string(row.Text(column)); };
          const QCLocation location{Upper(text(4)),
                                    text(1),
                                    static_cast<int>(row.Integer(2)),
                                    static_cast<int>(row.Integer(3)),
                                    text(5),
                                    text(6),
                                    text(7),
                                    text(8)};
          rows_.push_back({row.Integer(0), location, text(9), text(10), text(11), text(12)});
        });
    for (std::size_t i = 0; i < rows_.size(); ++i) by_record_[RecordKey(rows_[i].location)].push_back(i);
  }

  std::vector<Logged*> Of(const QCLocation& location) {
    std::vector<Logged*> found;
    if (rows_.empty()) return found;
    if (const auto at = by_record_.find(RecordKey(location)); at != by_record_.end())
      for (const std::size_t i : at->second) found.push_back(&rows_[i]);
    return found;
  }
  std::vector<Logged>& rows() { return rows_; }

 private:
  std::vector<Logged> rows_;
  std::unordered_map<std::string, std::vector<std::size_t>> by_record_;
};

int TypeOrder(std::string_view type) {
  int order = 0;
  for (const EquipmentType& each : EquipmentTypes()) {
    ++order;
    if (each.code == type) return order;
  }
  return type.empty() ? 0 : order + 1;
}

class Maker {
 public:
  Maker(Database& db, const Companion& companion) : db_(db), companion_(companion), log_(db) {}

  Review Make() {
    ReadStructures();
    for (const Mode mode : {Mode::kDesc, Mode::kActv})
      JudgeAll(db_, {.mode = mode}, [&](const JudgedRecord& record) { Take(mode, record); });
    for (Logged& row : log_.rows())
      if (!row.taken) TakeStray(row);
    Sort();
    return std::move(review_);
  }

 private:
  struct Order {
    int month, structure, type;
    std::int64_t key;
    auto operator<=>(const Order&) const = default;
  };

  void ReadStructures() {
    db_.ForEach(
        "SELECT PD_ID_AK,CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK", {},
        [&](const RowView& row) {
          const auto text = [&](int column) { return std::string(row.Text(column)); };
          places_[row.Integer(0)] = static_cast<int>(review_.structures.size());
          review_.structures.push_back({row.Integer(0), text(1), text(2), text(3) + ", " + text(4) + ", " + text(5)});
        });
  }

  void Take(Mode mode, const JudgedRecord& judged) {
    if (judged.structure == nullptr) return;
    ReviewedRecord record;
    record.mode = mode;
    record.location = {judged.sheet == nullptr ? level::kStructure : level::kEquipment,
                       judged.structure->user,
                       judged.month,
                       judged.year,
                       judged.structure->complex,
                       judged.structure->structure,
                       judged.sheet == nullptr ? "" : judged.sheet->type,
                       std::string(judged.id)};
    record.structure = places_.at(judged.keys.PD_ID_AK);
    record.inactive = judged.inactive;
    record.structure_inactive = judged.structure_inactive;
    record.has_values = judged.has_values;
    record.checked = judged.checked;
    std::vector<Logged*> logged = log_.Of(record.location);
    std::vector<std::pair<int, ReviewedFinding>> found;
    const bool raises = mode == Mode::kDesc || (judged.has_values && !judged.inactive && !judged.structure_inactive);
    if (raises)
      for (const JudgedFinding& finding : StandingFindings(*judged.verdicts))
        found.emplace_back(finding.field, Raised(judged, finding, logged));
    for (Logged* row : logged)
      if (!row->taken) found.push_back(Kept(judged, *row));
    Add(std::move(record),
        {judged.month, 0, TypeOrder(judged.sheet == nullptr ? "" : judged.sheet->type),
         mode == Mode::kActv ? judged.keys.EA_ID_AK : judged.keys.ED_ID_AK},
        std::move(found));
  }

  // What a rule says, with the comment of the row that says the same.
  ReviewedFinding Raised(const JudgedRecord& judged, const JudgedFinding& finding, std::vector<Logged*>& logged) {
    ReviewedFinding made;
    made.tag = finding.tag;
    made.control = judged.rules->fields()[finding.field].control;
    made.value = judged.view->Text(finding.field);
    made.expected = finding.expected;
    made.text = finding.text;
    for (Logged* row : logged) {
      if (row->taken || !IsSameTag(row->tag, finding.tag)) continue;
      row->taken = true;
      made.row = row->row;
      if (row->text == finding.text) Explain(made, *row);
      break;
    }
    return made;
  }

  // A row that no rule would raise now.
  std::pair<int, ReviewedFinding> Kept(const JudgedRecord& judged, Logged& row) {
    row.taken = true;
    ReviewedFinding made;
    made.tag = row.tag;
    made.text = row.text;
    made.row = row.row;
    made.expected = ExpectedOf(*judged.rules, row.tag, row.text);
    int place = judged.rules->fields().size();
    for (int field = judged.rules->fields().size() - 1; field >= 0; --field)
      if (IsSameTag(judged.rules->fields()[field].tag, row.tag)) place = field;
    if (place < judged.rules->fields().size()) {
      made.control = judged.rules->fields()[place].control;
      made.value = judged.view->Text(place);
    }
    Explain(made, row);
    return {place, made};
  }

  void Explain(ReviewedFinding& finding, const Logged& row) {
    finding.comment = row.comment;
    if (Trim(row.comment).empty()) return;
    const auto known = CommentOf(companion_, CommentKey(row.location, row.tag, row.text));
    const bool stale = known && known->comment == row.comment && known->value != finding.value;
    finding.state = stale ? FindingState::kStale : FindingState::kExplained;
  }

  // A row of a survey, or of a record that is gone.
  void TakeStray(Logged& row) {
    ReviewedRecord record;
    record.mode = row.mode == "DESC" ? Mode::kDesc : Mode::kActv;
    record.location = row.location;
    row.taken = true;
    ReviewedFinding made;
    made.tag = row.tag;
    made.text = row.text;
    made.row = row.row;
    Explain(made, row);
    Add(std::move(record), {row.location.Month, static_cast<int>(review_.structures.size()), 0, row.row}, {{0, made}});
  }

  void Add(ReviewedRecord record, Order order, std::vector<std::pair<int, ReviewedFinding>> found) {
    if (record.structure >= 0) order.structure = record.structure;
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& [field, finding] : found) {
      finding.record = static_cast<int>(review_.records.size());
      int& count = finding.state == FindingState::kOpen        ? record.open
                   : finding.state == FindingState::kExplained ? record.explained
                                                               : record.stale;
      ++count;
      review_.findings.push_back(std::move(finding));
    }
    review_.records.push_back(std::move(record));
    orders_.push_back(order);
  }

  void Sort() {
    std::vector<int> by_order(orders_.size()), place(orders_.size());
    for (std::size_t i = 0; i < by_order.size(); ++i) by_order[i] = static_cast<int>(i);
    const auto at = [](int i) { return static_cast<std::size_t>(i); };
    std::stable_sort(by_order.begin(), by_order.end(), [&](int a, int b) { return orders_[at(a)] < orders_[at(b)]; });
    std::vector<ReviewedRecord> sorted;
    sorted.reserve(by_order.size());
    for (std::size_t i = 0; i < by_order.size(); ++i) {
      place[at(by_order[i])] = static_cast<int>(i);
      sorted.push_back(std::move(review_.records[at(by_order[i])]));
    }
    review_.records = std::move(sorted);
    for (ReviewedFinding& finding : review_.findings) finding.record = place[at(finding.record)];
    std::stable_sort(review_.findings.begin(), review_.findings.end(),
                     [](const ReviewedFinding& a, const ReviewedFinding& b) { return a.record < b.record; });
  }

  Database& db_;
  const Companion& companion_;
  Log log_;
  Review review_;
  std::map<std::int64_t, int> places_;
  std::vector<Order> orders_;
};

}  // namespace

const char* StateText(FindingState state) {
  return state == FindingState::kOpen ? "open" : state == FindingState::kExplained ? "explained" : "stale";
}

std::string MonthText(int year, int month) {
  return JoinPlace(month, year, "", "");
}

Review MakeReview(Database& db, const Companion& companion) {
  return Maker(db, companion).Make();
}

std::string PlaceOf(const Review& review, const ReviewedRecord& record) {
  const QCLocation& l = record.location;
  std::string structure;
  if (record.structure >= 0)
    structure = review.structures[static_cast<std::size_t>(record.structure)].text;
  else if (!l.Is(level::kSurvey))
    structure = Trim(l.CmplxID) + "/" + Trim(l.StructID);
  return JoinPlace(l.Month, l.Year, structure,
                   l.Is(level::kEquipment) ? TreeTypeName(l.EquipType) + ": " + Trim(l.EquipID) : "");
}

}  // namespace merlu
