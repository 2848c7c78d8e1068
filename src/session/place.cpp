#include "session/place.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include "base/text.h"
#include "session/types.h"

namespace merlu {
namespace {

constexpr char kBetween = '\x1f';

}  // namespace

std::string StructureText(std::string_view area, std::string_view block, std::string_view name) {
  return std::string(area).append(", ").append(block).append(", ").append(name);
}

std::string EquipmentText(std::string_view type_code, std::string_view id) {
  return TreeTypeName(type_code) + ": " + Trim(id);
}

std::string JoinPlace(int month, int year, const std::string& structure, const std::string& equipment) {
  std::array<char, 32> date{};
  if (month != 0) std::snprintf(date.data(), date.size(), "%04d/%02d", year, month);
  std::string place;
  for (const std::string& part : {std::string(date.data()), structure, equipment})
    if (!part.empty()) place += (place.empty() ? "" : " · ") + part;
  return place;
}

std::string StructureTextOf(Database& db, const std::string& complex, const std::string& structure) {
  std::string text;
  db.ForEach(
      "SELECT Area,Block,Name FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM=? AND STRUCT_NUM=? ORDER BY rowid LIMIT 1",
      {Trim(complex), Trim(structure)},
      [&](const RowView& row) { text = StructureText(row.Text(0), row.Text(1), row.Text(2)); });
  return text.empty() ? Trim(complex) + "/" + Trim(structure) : text;
}

std::string PlaceText(Database& db, const QCLocation& location) {
  const bool equipment = location.Is(level::kEquipment);
  const bool structure = equipment || location.Is(level::kStructure);
  if (!structure && !location.Is(level::kSurvey)) return "Operator: " + Trim(location.UserID);
  return JoinPlace(location.Month, location.Year,
                   structure ? StructureTextOf(db, location.CmplxID, location.StructID) : "",
                   equipment ? EquipmentText(location.EquipType, location.EquipID) : "");
}

std::string PackLocation(const QCLocation& l, Mode mode) {
  std::string text = ModeText(mode);
  for (const std::string& part : {l.Level, l.UserID, std::to_string(l.Month), std::to_string(l.Year), l.CmplxID,
                                  l.StructID, l.EquipType, l.EquipID})
    text.append(1, kBetween).append(part);
  return text;
}

bool UnpackLocation(const std::string& text, QCLocation& location, Mode& mode) {
  std::array<std::string, 9> parts;
  std::size_t part = 0;
  for (const char c : text) {
    if (c != kBetween)
      parts[part] += c;
    else if (++part == parts.size())
      return false;
  }
  if (part + 1 != parts.size()) return false;
  mode = parts[0] == "ACTV" ? Mode::kActv : Mode::kDesc;
  location = {parts[1], parts[2], std::atoi(parts[3].c_str()), std::atoi(parts[4].c_str()), parts[5], parts[6],
              parts[7], parts[8]};
  return true;
}

}  // namespace merlu
