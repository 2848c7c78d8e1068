#include "qc/qc_log.h"

#include <algorithm>

#include "base/text.h"
#include "session/notices.h"

namespace merlu {
namespace {

enum class Spare { kCommentsAndOtherMode, kOtherMode, kNothing };

void Delete(Session& s, const std::string& condition, const Values& values) {
  NotingSheetFaults(s.notices, [&] {
    s.db.Execute("DELETE FROM QC WHERE " + condition, values);
    s.At("QC").Requery();
  });
}

bool DeleteBelow(Session& s, const QCLocation& location, Spare spare) {
  if (location.Is(level::kSurvey)) return true;
  std::string condition = "UserID=? AND [Month]=? AND [Year]=?";
  Values values = {Trim(location.UserID), std::int64_t{location.Month}, std::int64_t{location.Year}};
  if (location.Is(level::kStructure) || location.Is(level::kEquipment)) {
    condition += " AND CmplxID=? AND StructID=?";
    values.insert(values.end(), {Trim(location.CmplxID), Trim(location.StructID)});
    if (location.Is(level::kEquipment)) {
      condition += " AND EquipType=?";
      values.emplace_back(Trim(location.EquipType));
    }
    if (spare == Spare::kCommentsAndOtherMode) condition += " AND Comments=''";
    if (spare != Spare::kNothing) {
      condition += " AND EditMode=?";
      values.emplace_back(std::string(ModeText(s.mode)));
    }
  }
  Delete(s, condition, values);
  return true;
}

const char* const kEquipment = "UserID=? AND CmplxID=? AND StructID=? AND [Level]=? AND EquipType=? AND EquipID=?";

Values EquipmentKey(const QCLocation& l) {
  return {Trim(l.UserID), Trim(l.CmplxID), Trim(l.StructID), l.Level, Trim(l.EquipType), Trim(l.EquipID)};
}

// Writes "NA" into the fields that a location of that level has no values for.
void BlankOutBelow(QCLocation& location, bool has_structure, bool has_equipment) {
  if (!has_structure) location.CmplxID = location.StructID = "NA";
  if (!has_equipment) location.EquipType = location.EquipID = "NA";
}

constexpr const char* kAtLocation =
    "UserID=? AND CmplxID=? AND StructID=? AND EquipType=? AND EquipID=? AND [Month]=? AND [Year]=? AND [Level]=?";

Values AtLocation(const QCLocation& location) {
  return {Trim(location.UserID),  Trim(location.CmplxID),       Trim(location.StructID),     location.EquipType,
          Trim(location.EquipID), std::int64_t{location.Month}, std::int64_t{location.Year}, location.Level};
}

// The find itself, with faults passed on.
bool Find(Session& s, QCLocation& location, std::string_view field_id) {
  BlankOutBelow(location, !s.current.Is(level::kSurvey), s.current.Is(level::kEquipment));
  Values values = AtLocation(location);
  values.emplace_back(TrimRight(field_id));
  return s.At("QC").FindFirstWhere(std::string(kAtLocation) + " AND rtrim(FieldID)=? COLLATE NOCASE", values);
}

}  // namespace

bool FindQCRecord(Session& s, QCLocation& location, std::string_view field_id) {
  bool found = false;
  NotingSheetFaults(s.notices, [&] { found = Find(s, location, field_id); });
  return found;
}

void DelQCRecordsForEquipMode(Session& s, const QCLocation& location) {
  Values values = EquipmentKey(location);
  values.emplace_back(std::string(ModeText(s.mode)));
  Delete(s, std::string(kEquipment) + " AND EditMode=?", values);
}

void DelQCRecordsForEquip(Session& s, const QCLocation& location) {
  Delete(s, kEquipment, EquipmentKey(location));
}

void DelQCRecordsForStructMode(Session& s, const QCLocation& l) {
  Delete(s, "UserID=? AND CmplxID=? AND StructID=? AND [Level]=? AND EditMode=?",
         {Trim(l.UserID), Trim(l.CmplxID), Trim(l.StructID), l.Level, std::string(ModeText(s.mode))});
}

void DelQCRecordsForStructure(Session& s, const QCLocation& l) {
  Delete(s, "UserID=? AND CmplxID=? AND StructID=?", {Trim(l.UserID), Trim(l.CmplxID), Trim(l.StructID)});
}

bool DelQCRecordsForLocAndBelow(Session& s, const QCLocation& location) {
  return DeleteBelow(s, location, Spare::kCommentsAndOtherMode);
}

bool DelQCRecordsForLocAndBelowAll(Session& s, const QCLocation& location) {
  return DeleteBelow(s, location, Spare::kOtherMode);
}

bool DelQCRecordsForLocAndBelowAnyMode(Session& s, const QCLocation& location) {
  return DeleteBelow(s, location, Spare::kNothing);
}

EquipmentWithFindings::EquipmentWithFindings(Database& db) {
  db.ForEach("SELECT DISTINCT UserID,CmplxID,StructID,EquipType,EquipID FROM QC", {}, [&](const RowView& row) {
    std::string key;
    for (int column = 0; column < row.size(); ++column) key.append(row.Text(column)) += '\x1f';
    known_.insert(Lower(key));
  });
}

const std::string& EquipmentWithFindings::KeyOf(const QCLocation& l) {
  key_.clear();
  for (const std::string* part : {&l.UserID, &l.CmplxID, &l.StructID, &l.EquipType, &l.EquipID}) {
    const std::size_t first = std::min(part->find_first_not_of(' '), part->size());
    key_.append(*part, first);
    while (!key_.empty() && key_.back() == ' ') key_.pop_back();
    key_ += '\x1f';
  }
  for (char& c : key_)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return key_;
}

PiecesWithFindings::PiecesWithFindings(Database& db, const QCLocation& l) {
  db.ForEach("SELECT EquipType,EquipID FROM QC WHERE UserID=? AND CmplxID=? AND StructID=? AND [Month]=? AND [Year]=?",
             {Trim(l.UserID), Trim(l.CmplxID), Trim(l.StructID), std::int64_t{l.Month}, std::int64_t{l.Year}},
             [&](const RowView& row) {
               pieces_.push_back({std::string(row.Text(0)), std::string(row.Text(1))});
             });
}

bool PiecesWithFindings::Has(const QCLocation& l) const {
  return std::any_of(pieces_.begin(), pieces_.end(), [id = Trim(l.EquipID), &l](const Piece& piece) {
    return EqualsIgnoringCase(piece.id, id) && EqualsIgnoringCase(piece.type, l.EquipType);
  });
}

void PiecesWithFindings::Add(const QCLocation& l) {
  pieces_.push_back({l.EquipType, Trim(l.EquipID)});
}

int CountQCErrors(Session& s, const QCLocation& l) {
  std::string condition = "UserID=? AND [Month]=? AND [Year]=?";
  Values values = {Trim(l.UserID), std::int64_t{l.Month}, std::int64_t{l.Year}};
  if (l.Is(level::kStructure) || l.Is(level::kEquipment)) {
    condition += " AND CmplxID=? AND StructID=?";
    values.insert(values.end(), {Trim(l.CmplxID), Trim(l.StructID)});
    if (l.Is(level::kEquipment)) {
      condition += " AND EquipType=? AND EquipID=?";
      values.insert(values.end(), {Trim(l.EquipType), Trim(l.EquipID)});
    }
  } else if (!l.Is(level::kSurvey)) {
    condition += " AND 0";
  }
  return static_cast<int>(
      ToInteger(s.db.Single("SELECT COUNT(UserID) AS ErrorCount FROM QC WHERE " + condition, values)));
}

}  // namespace merlu
