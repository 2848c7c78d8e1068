#include "session/limits.h"

#include "base/fault.h"
#include "session/types.h"

namespace merlu {
namespace {

std::string WithThousands(std::int64_t number) {
  std::string text = std::to_string(number);
  for (int at = static_cast<int>(text.size()) - 3; at > 0; at -= 3) text.insert(static_cast<std::size_t>(at), ",");
  return text;
}

// "'FUG'", as a list of SQL.
std::string TypesWithoutMonths() {
  std::string codes;
  for (const EquipmentType& type : EquipmentTypes())
    if (!type.has_activity) codes += (codes.empty() ? "'" : ",'") + std::string(type.code) + "'";
  return codes;
}

std::string TooMuch(std::int64_t count, const char* what, std::int64_t most) {
  return "The inventory would have " + WithThousands(count) + " " + what + ", the program has room for " +
         WithThousands(most) + ".";
}

}  // namespace

const char* const kLimitsInWords =
    "The program has room for 1,001 structures with 12,001 structure months, 40,001 pieces of equipment and 39,999 "
    "equipment months. What is in the file has not been changed. Structures can be put into files of their own on the "
    "command line, with merlu export FILE --structures COMPLEX/STRUCTURE,... -o OUT.mdb.";

InventorySize SizeOf(Database& db, int months) {
  InventorySize size;
  size.months = months;
  size.structures = ToInteger(db.Single("SELECT COUNT(*) FROM PD_PLATFORM_DESC"));
  db.ForEach("SELECT COUNT(*),COALESCE(SUM(ED_EQUIP_TYP NOT IN (" + TypesWithoutMonths() + ")),0) FROM ED_EQUIP_DESC",
             {}, [&](const RowView& row) {
               size.equipment = row.Integer(0);
               size.equipment_with_months = row.Integer(1);
             });
  return size;
}

std::string WhyTooLarge(const InventorySize& size) {
  if (size.structures > kMostStructures) return TooMuch(size.structures, "structures", kMostStructures);
  if (const std::int64_t months = size.structures * size.months; months > kMostStructureMonths)
    return TooMuch(months, "structure months", kMostStructureMonths);
  if (size.equipment > kMostEquipment) return TooMuch(size.equipment, "pieces of equipment", kMostEquipment);
  if (const std::int64_t months = size.equipment_with_months * size.months; months > kMostEquipmentMonths)
    return TooMuch(months, "equipment months", kMostEquipmentMonths);
  return "";
}

void RequireRoom(const InventorySize& size) {
  if (const std::string why = WhyTooLarge(size); !why.empty()) throw Fault(fault_number::kSubscript, kTreeSource, why);
}

}  // namespace merlu
