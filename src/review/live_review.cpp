#include "review/live_review.h"

#include "base/fault.h"
#include "review/changed_records.h"

namespace merlu {
namespace {

// With more than one in so many structures the whole is made anew.
constexpr std::size_t kShareOfStructures = 8;

// The stored structure of a piece of equipment, or of one of its months; 0 when it was deleted.
std::int64_t StructureOfPiece(Database& db, std::int64_t piece) {
  return ToInteger(db.Single("SELECT PD_ID_AK FROM ED_EQUIP_DESC WHERE ED_ID_AK=?", {piece}));
}

std::int64_t StructureOfMonth(Database& db, std::int64_t month) {
  return ToInteger(
      db.Single("SELECT d.PD_ID_AK FROM EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK "
                "WHERE a.EA_ID_AK=?",
                {month}));
}

}  // namespace

LiveReview::LiveReview() : changed_(std::make_shared<ChangedRecords>()) {}
LiveReview::~LiveReview() = default;

// The connection keeps notifying as long as it is open, also after this is destroyed.
void LiveReview::ListenTo(Database& db) {
  if (listened_to_ == &db) return;
  listened_to_ = &db;
  db.Listen([changed = changed_](const Changes& changes) { changed->Note(changes); });
}

bool LiveReview::IsOther(const Database& db) const {
  if (path_ != db.path() || tables_ != db.recorder().tables()) return true;
  return !db.recorder().IsOn() && changes_ != db.ChangeCount();
}

bool LiveReview::Refresh(Database* db, const Companion& companion) {
  if (db == nullptr || !db->IsOpen()) {
    if (path_.empty()) return false;
    path_.clear();
    keeper_.Clear();
    unreadable_.clear();
    ++revision_;
    return true;
  }
  ListenTo(*db);
  const bool other = IsOther(*db) || !unreadable_.empty() || (had_companion_ && !companion.IsAttached());
  if (!other && (changed_->IsEmpty() || db->InBatch())) return false;
  if (other) changed_->all = true;
  path_ = db->path();
  tables_ = db->recorder().tables();
  changes_ = db->ChangeCount();
  had_companion_ = companion.IsAttached();
  Update(*db, companion);
  changed_->Forget();
  ++revision_;
  return true;
}

void LiveReview::Update(Database& db, const Companion& companion) {
  unreadable_.clear();
  try {
    if (!changed_->all) UpdateParts(db, companion);
    if (changed_->all) keeper_.Build(db, companion);
  } catch (const Fault& fault) {
    keeper_.Clear();
    unreadable_ = fault.description;
  }
}

// Sets `all` where the parts are not known well enough.
void LiveReview::UpdateParts(Database& db, const Companion& companion) {
  ChangedRecords& changed = *changed_;
  const Review& review = keeper_.review();
  std::set<std::int64_t> structures = changed.structures;
  const auto add = [&structures](std::int64_t structure) {
    if (structure != 0) structures.insert(structure);
  };
  const auto add_of = [&](int record) {
    if (record < 0) return;
    const int structure = review.records[static_cast<std::size_t>(record)].structure;
    add(review.structures[static_cast<std::size_t>(structure)].PD_ID_AK);
  };
  // where rows came or went: the structure that has them now, and the one that had them
  for (const std::int64_t month : changed.of_months) {
    add(StructureOfMonth(db, month));
    add_of(keeper_.Find(RecordKind::kEquipmentMonth, month));
  }
  for (const std::int64_t piece : changed.of_pieces) {
    add(StructureOfPiece(db, piece));
    add_of(keeper_.Find(RecordKind::kEquipment, piece));
  }
  if (structures.size() > 1 && structures.size() * kShareOfStructures > review.structures.size()) {
    changed.all = true;
    return;
  }
  if (!structures.empty()) keeper_.Replace(db, companion, structures);

  std::map<int, std::set<std::int64_t>> records;  // with the rows of the log that may be theirs now
  const auto find = [&](RecordKind kind, std::int64_t key) {
    if (const int record = keeper_.Find(kind, key); record >= 0) records[record];
  };
  for (const std::int64_t key : changed.descriptions) find(RecordKind::kStructure, key);
  for (const std::int64_t key : changed.structure_months) find(RecordKind::kStructureMonth, key);
  for (const std::int64_t key : changed.months) find(RecordKind::kEquipmentMonth, key);
  for (std::size_t i = 0; !changed.pieces.empty() && i < review.records.size(); ++i)
    if (const int piece = review.records[i].piece;
        piece >= 0 && changed.pieces.contains(review.pieces[static_cast<std::size_t>(piece)].ED_ID_AK))
      records[static_cast<int>(i)];
  for (const auto& [name, place] : changed.places)
    if (const int record = keeper_.Find(place.at); record >= 0)
      records[record].insert(place.rows.begin(), place.rows.end());
  ReviewKeeper::ContextsOf contexts;
  for (const auto& [record, rows] : records)
    if (!keeper_.Renew(db, companion, record, rows, contexts)) {
      changed.all = true;
      return;
    }
  if (!changed.rows.empty()) keeper_.RenewGone(db, companion, changed.rows);
}

}  // namespace merlu
