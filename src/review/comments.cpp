#include "review/comments.h"

#include "base/text.h"
#include "history/notes.h"
#include "qc/comment_key.h"
#include "session/act.h"
#include "session/messages.h"

namespace merlu {
namespace {

std::int64_t WriteRow(Session& s, const FindingToExplain& at) {
  const QCLocation& l = at.location;
  const bool equipment = l.Is(level::kEquipment);
  s.db.Execute(
      "INSERT INTO QC (UserID,[Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,"
      "EditMode) VALUES (?,?,?,?,?,?,?,?,?,?,'',?)",
      {Trim(l.UserID), std::int64_t{l.Month}, std::int64_t{l.Year}, l.Level, Trim(l.CmplxID), Trim(l.StructID),
       equipment ? Trim(l.EquipType) : "NA", equipment ? Trim(l.EquipID) : "NA", at.finding.tag, at.finding.text,
       std::string(ModeText(at.mode))});
  return ToInteger(s.db.Single("SELECT last_insert_rowid()"));
}

}  // namespace

bool ExplainFindings(Session& s, const std::vector<FindingToExplain>& findings, const std::string& comment) {
  const Act act(s, "Comment");
  if (!act.MayWrite()) return false;
  return OnSheet(s, [&] {
    WriteBatch batch(s.db);
    AllOrNothing whole(s.db);
    for (const FindingToExplain& each : findings) {
      const std::int64_t row = each.finding.row != 0 ? each.finding.row : WriteRow(s, each);
      s.db.Execute("UPDATE QC SET [Desc]=?,Comments=? WHERE rowid=?", {each.finding.text, comment, row});
      KeepComment(s.companion, CommentKey(each.location, each.finding.tag, each.finding.text),
                  {comment, each.finding.value});
    }
    whole.Keep();
    batch.Commit();
  });
}

}  // namespace merlu
