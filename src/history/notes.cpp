#include "history/notes.h"

#include <cstdlib>
#include <sstream>

#include "history/layout.h"

namespace merlu {

void KeepCopied(Companion& companion, const std::string& table, std::int64_t key,
                const std::vector<CopiedField>& fields) {
  Database* db = companion.db();
  if (db == nullptr) return;
  db->Execute("DELETE FROM history.copied WHERE record=? AND record_key=?", {table, key});
  for (const CopiedField& field : fields)
    db->Execute("INSERT INTO history.copied (record,record_key,field,value) VALUES (?,?,?,?)",
                {table, key, field.column, field.value});
}

std::vector<CopiedField> CopiedOf(const Companion& companion, const std::string& table, std::int64_t key) {
  std::vector<CopiedField> fields;
  if (companion.db() == nullptr) return fields;
  companion.db()->ForEach("SELECT field,value FROM history.copied WHERE record=? AND record_key=? ORDER BY id",
                          {table, key}, [&](const RowView& row) {
                            fields.push_back({std::string(row.Text(0)), std::string(row.Text(1))});
                          });
  return fields;
}

std::vector<CopiedRecord> AllCopied(const Companion& companion) {
  std::vector<CopiedRecord> records;
  if (companion.db() == nullptr) return records;
  companion.db()->ForEach(
      "SELECT record,record_key,field,value FROM history.copied ORDER BY id", {}, [&](const RowView& row) {
        records.push_back(
            {std::string(row.Text(0)), row.Integer(1), {std::string(row.Text(2)), std::string(row.Text(3))}});
      });
  return records;
}

void KeepComment(Companion& companion, const std::string& finding, const KnownComment& comment) {
  Database* db = companion.db();
  if (db == nullptr) return;
  db->Execute("DELETE FROM history.comment WHERE finding=?", {finding});
  if (!comment.comment.empty())
    db->Execute("INSERT INTO history.comment (finding,comment,value) VALUES (?,?,?)",
                {finding, comment.comment, comment.value});
}

std::optional<KnownComment> CommentOf(const Companion& companion, const std::string& finding) {
  std::optional<KnownComment> known;
  if (companion.db() == nullptr) return known;
  companion.db()->ForEach("SELECT comment,value FROM history.comment WHERE finding=?", {finding},
                          [&](const RowView& row) {
                            known = KnownComment{std::string(row.Text(0)), std::string(row.Text(1))};
                          });
  return known;
}

namespace {

// The name of what is kept of the steps that were undone when the month was handed in.
std::string UndoneAtHandIn(int year, int month) {
  return "undone at the hand-in of " + std::to_string(year) + "/" + std::to_string(month);
}

std::vector<std::int64_t> Numbers(const std::string& text) {
  std::vector<std::int64_t> numbers;
  std::istringstream in(text);
  for (std::string number; std::getline(in, number, ',');) numbers.push_back(std::atoll(number.c_str()));
  return numbers;
}

}  // namespace

void KeepHandIn(Companion& companion, int year, int month, const std::string& when) {
  if (!companion.Want()) return;
  Database& db = *companion.db();
  try {
    db.Alone([&] {
      db.Execute(
          "INSERT INTO history.hand_in (year,month,made_at,step) VALUES (?,?,?,(SELECT COALESCE(MAX(id),0) FROM "
          "history.step))",
          {std::int64_t{year}, std::int64_t{month}, when});
      db.Execute(
          "INSERT INTO history.about (what,value) SELECT ?,COALESCE(group_concat(id),'') FROM history.step WHERE state "
          "IN (?,?) ON CONFLICT (what) DO UPDATE SET value=excluded.value",
          {UndoneAtHandIn(year, month), std::int64_t{step_state::kUndone}, std::int64_t{step_state::kEnded}});
    });
  } catch (const Fault&) {
    // the export is whole without it
  }
}

std::vector<HandIn> HandIns(const Companion& companion) {
  std::vector<HandIn> all;
  if (companion.db() == nullptr) return all;
  companion.db()->ForEach(
      "SELECT year,month,made_at,step FROM history.hand_in WHERE id IN (SELECT MAX(id) FROM history.hand_in GROUP BY "
      "year,month) ORDER BY year,month",
      {}, [&](const RowView& row) {
        all.push_back({static_cast<int>(row.Integer(0)), static_cast<int>(row.Integer(1)), std::string(row.Text(2)),
                       row.Integer(3)});
      });
  for (HandIn& hand_in : all) {
    const Value undone = companion.db()->Single("SELECT value FROM history.about WHERE what=?",
                                                {UndoneAtHandIn(hand_in.year, hand_in.month)});
    if (!IsNull(undone)) hand_in.undone = Numbers(NullToEmpty(undone));
  }
  return all;
}

bool KeepDraft(Companion& companion, Draft& draft) {
  if (draft.fields.empty()) {
    if (draft.id != 0) ForgetDraft(companion, draft.id);
    draft.id = 0;
    return true;
  }
  if (!companion.Want()) return false;
  Database& db = *companion.db();
  const std::int64_t id = draft.id;
  try {
    db.Alone([&] {
      if (draft.id == 0) {
        db.Execute("INSERT INTO history.draft (owner,place,at) VALUES (?,?,?)", {draft.owner, draft.place, draft.at});
        draft.id = ToInteger(db.Single("SELECT last_insert_rowid()"));
      }
      db.Execute("DELETE FROM history.draft_field WHERE draft=?", {draft.id});
      for (const DraftField& field : draft.fields)
        db.Execute("INSERT INTO history.draft_field (draft,control,field,stored,entered) VALUES (?,?,?,?,?)",
                   {draft.id, field.control, field.caption, field.stored, field.entered});
    });
    return true;
  } catch (const Fault&) {
    draft.id = id;
    return false;  // the next time, perhaps
  }
}

void ForgetDraft(Companion& companion, std::int64_t id) {
  if (companion.db() == nullptr || id == 0) return;
  Database& db = *companion.db();
  try {
    db.Alone([&] {
      db.Execute("DELETE FROM history.draft_field WHERE draft=?", {id});
      db.Execute("DELETE FROM history.draft WHERE id=?", {id});
    });
  } catch (const Fault&) {
    // it is asked about once more at the next start
  }
}

std::vector<Draft> Drafts(const Companion& companion) {
  std::vector<Draft> drafts;
  if (companion.db() == nullptr) return drafts;
  Database& db = *companion.db();
  db.ForEach("SELECT id,owner,place,at FROM history.draft ORDER BY id", {}, [&](const RowView& row) {
    drafts.push_back(
        {row.Integer(0), std::string(row.Text(1)), std::string(row.Text(2)), std::string(row.Text(3)), {}, false, 0});
  });
  for (Draft& draft : drafts)
    db.ForEach("SELECT control,field,stored,entered FROM history.draft_field WHERE draft=? ORDER BY rowid", {draft.id},
               [&](const RowView& row) {
                 draft.fields.push_back({std::string(row.Text(0)), std::string(row.Text(1)), std::string(row.Text(2)),
                                         std::string(row.Text(3))});
               });
  return drafts;
}

}  // namespace merlu
