// What one can go to or do by its name: structures, equipment, fields, months, commands, help pages, rules.
#pragma once

#include <string>
#include <vector>

#include "base/fuzzy.h"
#include "session/session.h"

namespace merlu {

enum class ThingKind { kStructure, kEquipment, kField, kMonth, kCommand, kHelp, kRule };
const char* KindName(ThingKind kind);

struct Thing {
  ThingKind kind = ThingKind::kStructure;
  std::string what, where;  // its name, and what it belongs to, as the list shows them
  // What leads there
  int node = -1;        // in the tree that shows
  std::string key;      // in the tree of the other mode
  std::string control;  // a menu command, or a field
  // Type of the sheet that a field or a rule is of, empty for a structure's; file of a page of help without a command.
  std::string sheet;
  Mode mode = Mode::kNone;
  bool shows = false;  // a field or a rule of the sheet that shows
  FuzzyText name, place;
};

// All of them as they are now, in the order in which equal matches are listed.
std::vector<Thing> CollectThings(Session& s);

// The best matches first, no more than so many. Without words those that were chosen last, and then the first ones.
// `recent` holds what was chosen before, the last first, as RecentText gives it.
std::vector<int> FindThings(const std::vector<Thing>& things, const std::string& typed,
                            const std::vector<std::string>& recent, std::size_t most);
std::string RecentText(const Thing& thing);

}  // namespace merlu
