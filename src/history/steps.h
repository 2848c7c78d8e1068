// What one step wrote, as the companion keeps it: rows that came and went whole, of rows that changed the values that
// differ and a check number over the others.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/changes.h"

namespace merlu {

struct KeptValue {
  std::size_t column = 0;
  StoredValue before, after;
};

struct KeptRow {
  std::string table;
  std::int64_t rowid = 0;
  enum class Kind : std::uint8_t { kAdded, kRemoved, kChanged } kind = Kind::kChanged;
  std::string_view row;           // of a row that came or went
  std::vector<KeptValue> values;  // of one that changed
  std::uint64_t others = 0;       // check number of the values that are the same
};

struct PackedChanges {
  std::string bytes;
  std::int64_t shown = 0;  // values in them that the user sees, as many as the list of a step's values has rows
};
PackedChanges PackChanges(const Changes& changes);
// The rows point into the bytes. A fault (kDamaged) when these are no packed changes.
std::vector<KeptRow> UnpackChanges(std::string_view bytes);

// Whether a column of a table is a value to the user, and no key.
bool IsShownColumn(std::string_view table, std::string_view column);

// What the row was, or is, on the other side of the step; `row` is its present form. False when the row is not as the
// step left it (backwards) or found it (forwards).
bool OtherSide(const KeptRow& kept, std::string_view row, bool backwards, std::string& other);

}  // namespace merlu
