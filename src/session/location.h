// The user's place in the inventory, which is also the place of a finding.
#pragma once

#include <string>

namespace merlu {

// Levels of the hierarchy, as texts, since they are stored in findings.
namespace level {
inline constexpr const char* kUser = "USER";
inline constexpr const char* kSurvey = "SURVEY";
inline constexpr const char* kStructure = "STRUCTURE";
inline constexpr const char* kEquipment = "EQUIPMENT";
inline constexpr const char* kUnknown = "UNKNOWN";
}  // namespace level

struct QCLocation {
  std::string Level;      // one of level::, empty before the first selection
  std::string UserID;     // the operator's company number
  int Month = 0;          // 1 to 12; 0 in description mode
  int Year = 0;           // 0 in description mode
  std::string CmplxID;    // complex
  std::string StructID;   // structure within the complex
  std::string EquipType;  // code of the equipment type
  std::string EquipID;    // the user's equipment ID

  bool operator==(const QCLocation&) const = default;
  bool Is(const char* wanted) const { return Level == wanted; }
};

// Descriptions are valid for the whole year and are edited in DESC; a month's activity is edited in ACTV. kNone until a
// database is open.
enum class Mode { kNone, kDesc, kActv };

inline const char* ModeText(Mode mode) {
  return mode == Mode::kDesc ? "DESC" : mode == Mode::kActv ? "ACTV" : "";
}

}  // namespace merlu
