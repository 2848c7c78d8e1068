// Makes the review of an inventory, and makes parts of it anew when their rows have changed.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/text.h"
#include "history/notes.h"
#include "records/judge_records.h"
#include "review/review.h"

namespace merlu {

// Texts of the log, each kept once.
class LogTexts {
 public:
  const std::string* Of(std::string_view text);

 private:
  std::unordered_set<std::string, TextHash, std::equal_to<>> texts_;
};

// A row of the log, at the place of its record.
struct LogRow {
  std::int64_t place = -1;
  std::int64_t row = 0;
  const std::string *tag = nullptr, *text = nullptr;
  std::string comment;
  bool taken = false;
};

// The rows of the log by their places.
class LoggedRows {
 public:
  void Add(LogRow row) { rows_.push_back(std::move(row)); }
  // Once, when all are there.
  void Arrange();
  // Those of the place that no finding has taken yet, in the order of the log.
  void Of(std::int64_t place, std::vector<LogRow*>& to);
  const std::vector<LogRow>& rows() const { return rows_; }

 private:
  std::vector<LogRow> rows_;
  std::vector<std::pair<std::int64_t, std::uint32_t>> by_place_;
};

// What the companion knows of comments: asked one by one, or all read at once.
class KnownComments {
 public:
  KnownComments(const Companion& companion, bool many) : companion_(companion), many_(many) {}
  // Nothing is known at all.
  bool IsEmpty();
  std::optional<KnownComment> Of(const std::string& finding);

 private:
  void ReadAll();
  const Companion& companion_;
  bool many_, read_ = false;
  std::unordered_map<std::string, KnownComment> all_;
};

class ReviewKeeper {
 public:
  const Review& review() const { return review_; }
  Review Release() { return std::move(review_); }
  void Clear();

  // Faults of the store are passed on; the review is then empty, or as it was.
  void Build(Database& db, const Companion& companion);
  // The records of these structures, by PD_ID_AK, which keep their names, and the rows of the log without a record.
  void Replace(Database& db, const Companion& companion, const std::set<std::int64_t>& structures);
  // Judges one record together with its rows of the log. False when its rows are gone.
  using ContextsOf = std::map<std::int64_t, Contexts>;
  bool Renew(Database& db, const Companion& companion, int record, const std::set<std::int64_t>& rows,
             ContextsOf& contexts);
  // Rows of the log without a record.
  void RenewGone(Database& db, const Companion& companion, const std::set<std::int64_t>& rows);

  // The record of the review; -1 without one.
  int Find(RecordKind kind, std::int64_t key) const;
  int Find(const QCLocation& location) const;

 private:
  struct Named {
    std::int64_t place = -1;
    int structure = -1;
  };
  using Logged = std::vector<LogRow*>;
  // The structure and the piece of a record: indexes into the review's.
  struct Owner {
    int structure = -1, piece = -1;
  };
  // What records are sorted by: year, month, structure, piece, key.
  using Order = std::tuple<int, int, int, int, std::int64_t>;

  struct LastStructure {
    std::string user, complex, structure;
    int index = -1;
    bool known = false;
  };

  void ReadMonths(Database& db);
  void ReadNames(Database& db);
  int StructureNamed(std::string_view user, std::string_view complex, std::string_view structure) const;
  Named NameOf(std::string_view level, std::string_view user, int month, std::string_view complex,
               std::string_view structure, std::string_view type, std::string_view id) const;
  static std::int64_t PlaceKey(int structure, int piece, int month);
  Named NameOfRow(const RowView& row) const;
  LoggedRows ReadLog(Database& db);
  LoggedRows ReadLogOf(Database& db, const std::set<int>& structures);
  LogRow RowOfLog(const RowView& row, std::int64_t place);
  // Judges the records of one structure, or of all (0), in both modes, and lays the rows of the log beside them.
  void ReviewRecords(Database& db, std::int64_t PD_ID_AK, LoggedRows& log, KnownComments& known,
                     std::vector<ReviewedRecord>& to);
  // -1 for a structure that the review lacks.
  Owner OwnerOf(const JudgedRecord& judged) const;
  ReviewedRecord ReviewedOf(const JudgedRecord& judged, const Owner& owner, Mode mode, const Logged& logged,
                            KnownComments& known);
  ReviewedFinding Raised(const JudgedRecord& judged, const JudgedFinding& finding, const Logged& logged,
                         const ReviewedRecord& record, KnownComments& known);
  static bool IsLogged(const Logged& logged, const JudgedFinding& finding);
  ReviewedFinding Kept(const JudgedRecord& judged, LogRow& row, const ReviewedRecord& record, KnownComments& known);
  // `where` gives the record's location.
  template <typename WhereOf>
  void Explain(ReviewedFinding& finding, KnownComments& known, WhereOf where);
  ReviewedRecord Gone(Database& db, const LogRow& row, KnownComments& known);
  const FindingKind& FindingKindOf(const RuleSet* rules, std::string_view tag, std::string_view text,
                                   std::string_view expected, int field);
  void Arrange();
  Order OrderOf(const ReviewedRecord& record) const;
  void Number() const;

  Review review_;
  LogTexts texts_;
  using KindKey = std::array<const void*, 4>;
  std::map<KindKey, const FindingKind*> kinds_;
  std::unordered_map<std::int64_t, int> structure_of_key_, piece_of_key_;
  std::unordered_map<std::string, int, TextHash, std::equal_to<>> structure_of_name_, piece_of_name_;
  mutable LastStructure last_structure_;
  // The numbers of the records, made when one is looked for.
  mutable bool numbered_ = false;
  mutable std::unordered_map<std::int64_t, int> record_at_;                 // by place
  mutable std::array<std::unordered_map<std::int64_t, int>, 5> record_of_;  // by kind and key
};

}  // namespace merlu
