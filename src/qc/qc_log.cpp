#include "qc/qc_log.h"

#include <algorithm>

#include "base/text.h"
#include "session/messages.h"

namespace merlu {
namespace {

enum class Spare { kCommentsAndOtherMode, kOtherMode, kNothing };

void Delete(Session& s, const std::string& condition, const Values& values) {
  OnSheet(s, [&] {
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

bool AnyAt(Session& s, QCLocation& location) {
  BlankOutBelow(location, !s.current.Is(level::kSurvey), s.current.Is(level::kEquipment));
  KnownFindings& known = s.known_findings;
  if (known.changes != s.db.ChangeCount() || known.location != location) {
    static const std::string kAny = std::string("SELECT 1 FROM QC WHERE ") + kAtLocation + " LIMIT 1";
    known = {location, s.db.ChangeCount(), !IsNull(s.db.Single(kAny, AtLocation(location)))};
  }
  return known.any;
}

// The find itself, with faults passed on.
bool Find(Session& s, QCLocation& location, std::string_view field_id) {
  if (!AnyAt(s, location)) {
    s.At("QC").Leave();
    return false;
  }
  Values values = AtLocation(location);
  values.emplace_back(TrimRight(field_id));
  return s.At("QC").FindFirstWhere(std::string(kAtLocation) + " AND rtrim(FieldID)=? COLLATE NOCASE", values);
}

void DeleteCurrent(Session& s) {
  s.At("QC").Delete();
  s.At("QC").Requery();
}

void AddRow(Session& s, const QCLocation& location, const std::string& field_id, const std::string& description) {
  Cursor& qc = s.At("QC");
  qc.AddNew();
  qc.SetField("UserID", Trim(location.UserID));
  qc.SetField("Month", std::int64_t{s.current.Month});
  qc.SetField("Year", std::int64_t{s.current.Year});
  qc.SetField("Level", s.current.Level);
  qc.SetField("CmplxID", Trim(location.CmplxID));
  qc.SetField("StructID", Trim(location.StructID));
  qc.SetField("EquipType", Trim(location.EquipType));
  qc.SetField("EquipID", Trim(location.EquipID));
  qc.SetField("FieldID", field_id);
  qc.SetField("Desc", description);
  qc.SetField("Comments", std::string());
  qc.SetField("EditMode", std::string(ModeText(s.mode)));
  qc.Update();
}

}  // namespace

bool HasFindings(Session& s, QCLocation& location) {
  bool any = true;
  OnSheet(s, [&] { any = AnyAt(s, location); });
  return any;
}

bool FindQCRecord(Session& s, QCLocation& location, std::string_view field_id) {
  bool found = false;
  OnSheet(s, [&] { found = Find(s, location, field_id); });
  return found;
}

void AddQCError(Session& s, QCLocation& location, const std::string& field_id, const std::string& description) {
  OnSheet(s, [&] {
    const bool equipment = location.Is(level::kEquipment);
    BlankOutBelow(location, equipment || location.Is(level::kStructure), equipment);
    Cursor& qc = s.At("QC");
    if (!Find(s, location, field_id)) return AddRow(s, location, field_id, description);
    if (NullToEmpty(qc.Field("Desc")) == description) return;
    qc.Edit();
    qc.SetField("Desc", description);
    qc.SetField("Comments", std::string());
    qc.Update();
  });
}

void ClearQCError(Session& s, QCLocation& location, const std::string& field_id, const std::string& description) {
  ClearQCErrors(s, location, field_id, {description});
}

void ClearQCErrors(Session& s, QCLocation& location, const std::string& field_id,
                   std::initializer_list<std::string> descriptions) {
  OnSheet(s, [&] {
    if (!Find(s, location, field_id)) return;
    const std::string text = NullToEmpty(s.At("QC").Field("Desc"));
    if (std::find(descriptions.begin(), descriptions.end(), text) != descriptions.end()) DeleteCurrent(s);
  });
}

void ClearQCField(Session& s, QCLocation& location, const std::string& field_id) {
  OnSheet(s, [&] {
    if (Find(s, location, field_id)) DeleteCurrent(s);
  });
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

bool HasEquipment(Session& s, const QCLocation& location) {
  const Value id = s.db.Single("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM=? AND STRUCT_NUM=?",
                               {location.CmplxID, location.StructID});
  return ToInteger(s.db.Single("SELECT COUNT(ED_ID_AK) AS EquipmentCount FROM ED_EQUIP_DESC WHERE PD_ID_AK=?", {id})) >=
         1;
}

}  // namespace merlu
