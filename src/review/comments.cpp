#include "review/comments.h"

#include <set>

#include "base/text.h"
#include "history/notes.h"
#include "qc/comment_key.h"
#include "rules/judge.h"
#include "session/act.h"
#include "session/place.h"

namespace merlu {
namespace {

// As the log holds it: what lies below its level is "NA", and so is what lies above a structure.
Values KeptAt(const QCLocation& l) {
  const bool equipment = l.Is(level::kEquipment), structure = equipment || l.Is(level::kStructure);
  return {Trim(l.UserID),
          std::int64_t{l.Month},
          std::int64_t{l.Year},
          l.Level,
          structure ? Trim(l.CmplxID) : "NA",
          structure ? Trim(l.StructID) : "NA",
          equipment ? Trim(l.EquipType) : "NA",
          equipment ? Trim(l.EquipID) : "NA"};
}

// The row that a run would find there under the tag; one with the same text before others. 0 without one.
std::int64_t FindRow(Session& s, const FindingToExplain& at) {
  std::int64_t first = 0, same = 0;
  s.db.ForEach(
      "SELECT rowid,FieldID,[Desc] FROM QC WHERE UserID=? AND [Month]=? AND [Year]=? AND [Level]=? AND CmplxID=? AND "
      "StructID=? AND EquipType=? AND EquipID=? ORDER BY rowid",
      KeptAt(at.location), [&](const RowView& row) {
        if (!IsSameTag(row.Text(1), at.tag)) return;
        if (first == 0) first = row.Integer(0);
        if (same == 0 && row.Text(2) == at.text) same = row.Integer(0);
      });
  return same != 0 ? same : first;
}

std::int64_t WriteRow(Session& s, const FindingToExplain& at) {
  Values values = KeptAt(at.location);
  values.emplace_back(at.tag);
  values.emplace_back(at.text);
  values.emplace_back(std::string(ModeText(at.mode)));
  s.db.Execute(
      "INSERT INTO QC (UserID,[Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,"
      "EditMode) VALUES (?,?,?,?,?,?,?,?,?,?,'',?)",
      values);
  return ToInteger(s.db.Single("SELECT last_insert_rowid()"));
}

// The records that are explained, which need not be the one that shows: the first, and how many more.
std::string PlacesOf(Session& s, const std::vector<FindingToExplain>& findings) {
  std::set<std::string> places;
  for (const FindingToExplain& each : findings) places.insert(PackLocation(each.location, each.mode));
  std::string place = findings.empty() ? "" : PlaceText(s.db, findings.front().location);
  if (places.size() > 1) place += " and " + std::to_string(places.size() - 1) + " more";
  return place;
}

}  // namespace

bool ExplainFindings(Session& s, const std::vector<FindingToExplain>& findings, const std::string& comment) {
  const Act act(s, "Comment", PlacesOf(s, findings), s.current);
  if (!act.MayWrite()) return false;
  WriteBatch batch(s.db);
  AllOrNothing whole(s.db);
  for (const FindingToExplain& each : findings) {
    std::int64_t row = each.row;
    // another program may have taken it, or put another one there
    if (row == 0 || IsNull(s.db.Single("SELECT 1 FROM QC WHERE rowid=? AND trim(FieldID)=trim(?)", {row, each.tag})))
      row = FindRow(s, each);
    if (row == 0) row = WriteRow(s, each);
    s.db.Execute("UPDATE QC SET [Desc]=?,Comments=? WHERE rowid=?", {each.text, comment, row});
    KeepComment(s.companion, CommentKey(each.location, each.tag, each.text), {comment, each.value});
  }
  whole.Keep();
  batch.Commit();
  return true;
}

}  // namespace merlu
