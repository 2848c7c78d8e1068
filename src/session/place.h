// What a record is called where it is named outside its sheet: "2017/03 · GI, 43, A · Combustion Flare: F1".
#pragma once

#include <string>

#include "session/location.h"
#include "store/database.h"

namespace merlu {

// Parts that are empty are left out.
std::string JoinPlace(int month, int year, const std::string& structure, const std::string& equipment);
// The structure's part of a place: "GI, 43, A", as in the tree.
std::string StructurePart(Database& db, const std::string& complex, const std::string& structure);
std::string PlaceText(Database& db, const QCLocation& location);

// A location, and the mode that it is seen in, as one text and back.
std::string PackLocation(const QCLocation& location, Mode mode);
bool UnpackLocation(const std::string& text, QCLocation& location, Mode& mode);

}  // namespace merlu
