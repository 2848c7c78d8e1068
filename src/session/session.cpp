#include "session/session.h"

#include "base/fault.h"
#include "store/engine.h"

namespace merlu {

Cursor& Cursors::At(std::string_view table) {
  const auto found = by_table_.find(table);
  if (found == by_table_.end()) throw Fault(fault_number::kNotSet, kStoreSource, "No inventory is open.");
  return *found->second;
}

void Cursors::Open(Database& db, std::string_view table) {
  by_table_[std::string(table)] = std::make_unique<Cursor>(db, std::string(table));
}

}  // namespace merlu
