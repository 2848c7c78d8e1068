// What the companion keeps beside the steps. Whatever is written here belongs to the batch of the act that it is part
// of, and is taken back with it; without a companion nothing is kept and nothing is found.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "history/companion.h"

namespace merlu {

// ---- values taken over from the month before, not yet confirmed ----

// A record by its table and key; a field by its column.
struct CopiedField {
  std::string column;
  std::string value;  // as it was stored: a field that holds another value since is no copied one
};
// Replaces what is kept of the record. An empty list confirms all of it.
void KeepCopied(Companion& companion, const std::string& table, std::int64_t key,
                const std::vector<CopiedField>& fields);
std::vector<CopiedField> CopiedOf(const Companion& companion, const std::string& table, std::int64_t key);
// All records that have some, with their tables and keys.
struct CopiedRecord {
  std::string table;
  std::int64_t key = 0;
  CopiedField field;
};
std::vector<CopiedRecord> AllCopied(const Companion& companion);

// ---- comments of findings ----

// A finding by a text of the caller's, e.g. its place, field and error.
struct KnownComment {
  std::string comment;
  std::string value;  // of the field when the comment was written
};
// Also keeps what was known before the finding was wiped: an empty comment forgets.
void KeepComment(Companion& companion, const std::string& finding, const KnownComment& comment);
std::optional<KnownComment> CommentOf(const Companion& companion, const std::string& finding);

// ---- hand-ins: survey exports of a month ----

struct HandIn {
  int year = 0, month = 0;
  std::string when;
  std::int64_t step = 0;  // the newest step of then; what came later is newer than the hand-in
  // Steps up to it that were undone then; none when it is not known.
  std::optional<std::vector<std::int64_t>> undone{};
};
// Written in a commit of the companion alone. A failure does not make the export fail.
void KeepHandIn(Companion& companion, int year, int month, const std::string& when);
// The newest of each month, in the order of the months.
std::vector<HandIn> HandIns(const Companion& companion);

// ---- an interrupted edit ----

struct DraftField {
  std::string control, caption, stored, entered;
};
struct Draft {
  std::int64_t id = 0;
  std::string owner;  // the program that keeps it
  std::string place;  // for the user
  std::string at;     // the location
  std::vector<DraftField> fields;
  // While the edit is open:
  bool behind = false;            // something was typed that is not kept yet
  std::int64_t kept_at = 0;       // in milliseconds of the steady clock
  std::int64_t file_version = 0;  // as the edit began; the commits of other programs change it
};
// Written at once, in a commit of the companion alone. The first time gives the draft its number; without fields it is
// forgotten. False when it could not be kept.
bool KeepDraft(Companion& companion, Draft& draft);
void ForgetDraft(Companion& companion, std::int64_t id);
std::vector<Draft> Drafts(const Companion& companion);

}  // namespace merlu
