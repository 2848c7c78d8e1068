#include "command/inventory_file.h"

#include <filesystem>

#include "base/fault.h"
#include "session/types.h"
#include "store/engine.h"
#include "store/image.h"

namespace merlu {
namespace {

[[noreturn]] void Refuse(const std::string& why) {
  throw Fault(fault_number::kNotADatabase, kStoreSource, why);
}

void RequireLayout(Database& db) {
  if (db.HasTable("CO_COMPANY") && !db.HasTable("EA_LOA")) Refuse("It is an inventory of the earlier version.");
  const auto require = [&](const std::string& table) {
    if (!db.HasTable(table)) Refuse("It is no inventory: it has no table " + table + ".");
  };
  for (const char* table :
       {"SYS_CONFIG", "CO_COMPANY", "PD_PLATFORM_DESC", "PA_PLATFORM_ACTV", "ED_EQUIP_DESC", "EA_EQUIP_ACTV", "QC"})
    require(table);
  for (const EquipmentType& type : EquipmentTypes()) {
    require("ED_" + std::string(type.code));
    if (type.has_activity) require("EA_" + std::string(type.code));
  }
}

}  // namespace

void OpenUntouched(Database& db, const std::string& path, Database::Use use) {
  OpenUntouched(db, ReadImage(path), use);
}

void OpenUntouched(Database& db, const Image& image, Database::Use use) {
  db.OpenImage(image, use);
  RequireLayout(db);
}

}  // namespace merlu
