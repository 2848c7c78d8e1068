// What a record is called where it is named outside its sheet: "2017/03 · GI, 43, A · Combustion Flare: F1".
#pragma once

#include <string>
#include <string_view>

#include "session/location.h"
#include "store/database.h"

namespace merlu {

// A structure as the tree names it: "GI, 43, A".
std::string StructureText(std::string_view area, std::string_view block, std::string_view name);
// A piece of equipment as the tree names it: "Combustion Flare: F1". Blanks around the ID are left out.
std::string EquipmentText(std::string_view type_code, std::string_view id);
// The parts joined by " · ". Month 0 is a description, whose place has no date; parts that are empty are left out.
std::string JoinPlace(int month, int year, const std::string& structure, const std::string& equipment);
// Looks the structure up; "1001/1" for one that the inventory does not have.
std::string StructureTextOf(Database& db, const std::string& complex, const std::string& structure);
std::string PlaceText(Database& db, const QCLocation& location);

// A location and its mode as one text, and back; false for a text that holds none.
std::string PackLocation(const QCLocation& location, Mode mode);
bool UnpackLocation(const std::string& text, QCLocation& location, Mode& mode);

}  // namespace merlu
