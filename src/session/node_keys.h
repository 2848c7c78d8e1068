// The keys of tree nodes. Every field is right-justified with leading blanks to its width, and the length of a key
// gives its level, so a location can be read back from the key alone.
//
//   activity:     K UUUUU MM YYYY CCCCCCC SS TTT EEEEEEEE
//   description:  K UUUUU         CCCCCCC SS TTT EEEEEEEE
#pragma once

#include <string>
#include <string_view>

#include "session/location.h"

namespace merlu {

inline constexpr std::size_t kUserKeyLength = 6;
inline constexpr std::size_t kSurveyKeyLength = 12;
inline constexpr std::size_t kStructureMonthKeyLength = 21;
inline constexpr std::size_t kEquipmentMonthKeyLength = 32;
inline constexpr std::size_t kStructureKeyLength = 15;
inline constexpr std::size_t kEquipmentKeyLength = 26;

// The operator's number is cut to its last five characters.
std::string UserKey(std::string_view user);
std::string SurveyKey(std::string_view user, int month, int year);
std::string StructureMonthKey(std::string_view user, int month, int year, std::string_view complex,
                              std::string_view structure);
std::string StructureKey(std::string_view user, std::string_view complex, std::string_view structure);
// Behind the structure's key of either mode.
std::string EquipmentSuffix(std::string_view type, std::string_view id);

// The key of the location at its level, in the mode's form; empty at an unknown level.
std::string KeyOf(const QCLocation& location, Mode mode);

// Reads a key back. Level "UNKNOWN" for a length that no level has.
QCLocation ParseNodeKey(const std::string& key);
QCLocation ParseDescNodeKey(const std::string& key);

}  // namespace merlu
