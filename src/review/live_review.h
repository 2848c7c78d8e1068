// The review of the open inventory, updated record by record from the recorder of changes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "review/review_keeper.h"

namespace merlu {

class ChangedRecords;

class LiveReview {
 public:
  LiveReview();
  ~LiveReview();
  LiveReview(const LiveReview&) = delete;
  LiveReview& operator=(const LiveReview&) = delete;

  // Brings it up to date with the store, which may be another one than the last time, or null. True when anything may
  // have changed. In the middle of a batch it stays as it is. Never fails: what cannot be read leaves an empty review.
  bool Refresh(Database* db, const Companion& companion);

  const Review& review() const { return keeper_.review(); }
  // Why the review is empty; empty itself when all could be read.
  const std::string& unreadable() const { return unreadable_; }
  // Grows with every change.
  std::uint64_t revision() const { return revision_; }
  int Find(const QCLocation& location) const { return keeper_.Find(location); }
  int Find(RecordKind kind, std::int64_t key) const { return keeper_.Find(kind, key); }

 private:
  void ListenTo(Database& db);
  bool IsOther(const Database& db) const;
  void Update(Database& db, const Companion& companion);
  void UpdateParts(Database& db, const Companion& companion);

  ReviewKeeper keeper_;
  std::shared_ptr<ChangedRecords> changed_;
  Database* listened_to_ = nullptr;
  std::string path_;
  std::shared_ptr<const std::vector<RecordedTable>> tables_;  // what the connection records
  std::int64_t changes_ = -1;  // the store's change count at the last update, for a connection that records nothing
  bool had_companion_ = false;
  std::string unreadable_;
  std::uint64_t revision_ = 0;
};

}  // namespace merlu
