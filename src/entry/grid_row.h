// A row of the month grid: a record as it is stored, and what is typed into it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "entry/month_grid.h"

namespace merlu {

struct MonthGrid::Row {
  explicit Row(MonthRow read) : stored(std::move(read)), view(stored.view) { TakeStored(); }

  MonthRow stored;  // as it was read
  RecordView view;  // with what is typed
  std::string comments;
  bool inactive = false;
  std::shared_ptr<Contexts> contexts;  // the contexts of its structures and months
  std::int64_t read_at = -1;           // the store's count of changes, when all of this was read
  std::vector<std::string> shown;      // by field: the stored text
  std::vector<std::string> before;     // by field: the month before
  std::vector<bool> copied;            // by field: taken over and not confirmed
  std::vector<bool> kept;              // by field: of these, what is stored so
  std::string problem;                 // why the last save stopped at it
  std::vector<bool> clash;             // by field: typed here, and changed by another program
  bool gone = false;                   // another program has deleted it

  const SheetSpec* sheet() const { return stored.sheet; }
  const std::vector<const FieldSpec*>& fields() const { return stored.kind->fields; }
  int IndexOf(std::size_t field) const { return stored.kind->indexes[field]; }

  void TakeStored();
  bool IsTyped(std::size_t field) const { return view.Text(IndexOf(field)) != shown[field]; }
  // Typed into, or confirmed by typing: a save has something to do.
  bool IsChanged() const;
  TypedRecord Typed() const;
  // Another program has changed the record: what is typed stays, on what is stored now.
  void Rebase(MonthRow now);

  // By field; computed on demand.
  const std::vector<bool>& Locked() const;
  const std::map<std::string, std::string, std::less<>>& Findings() const;
  void Unjudge() { judged_ = false; }

 private:
  mutable std::vector<bool> locked_;
  mutable bool judged_ = false;
  mutable std::map<std::string, std::string, std::less<>> findings_;  // by control
};

}  // namespace merlu
