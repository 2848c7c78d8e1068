// Judging all records of an inventory from their rows; nothing is written.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace merlu {

struct CheckedFinding {
  int year = 0, month = 0;  // 0 in a description
  std::string place, complex, structure, type, id;
  std::string field, control, value, expected, text, comment;
  std::string state;  // "open", "explained", "stale"
  std::string order;  // findings are sorted by it
};

// What is checked of a file.
struct CheckScope {
  int month = 0;  // 0 for all
  bool descriptions = true;
  bool months = true;
};

struct CheckedFile {
  std::vector<CheckedFinding> findings;  // descriptions before the months, then as the tree, then as the sheet
  std::int64_t records = 0;
  int open = 0, explained = 0, stale = 0;
  bool lacks_month = false;             // it has no record of the chosen month
  std::vector<std::string> not_judged;  // records whose rules met a fault, in words
};

// The faults of the store. `jobs` processors share the work. Nothing is written to the file or beside it.
CheckedFile CheckInventory(const std::string& path, const CheckScope& scope, int jobs);

// What the program lists: the findings of the review, of one month where it is not 0.
CheckedFile ListInventory(const std::string& path, int month);

}  // namespace merlu
