#include "session/node_keys.h"

#include "base/numbers.h"
#include "base/text.h"

namespace merlu {
namespace {

// Cuts a key field by field.
class Cutter {
 public:
  explicit Cutter(const std::string& key) : key_(key) {}
  std::string Text(std::size_t width) { return Trim(Next(width)); }
  // A few characters can name any number: one with more digits than characters is none of a key's.
  int Number(std::size_t width) {
    const double number = LeadingNumber(Next(width));
    return number > -10000 && number < 10000 ? static_cast<int>(number) : 0;
  }

 private:
  std::string Next(std::size_t width) {
    const std::string field = FirstCharacters(key_.substr(at_), width);
    at_ += field.size();
    return field;
  }
  const std::string& key_;
  std::size_t at_ = 1;  // after the letter
};

void CutStructure(Cutter& cut, QCLocation& location) {
  location.CmplxID = cut.Text(7);
  location.StructID = cut.Text(2);
}

void CutEquipment(Cutter& cut, QCLocation& location) {
  location.EquipType = cut.Text(3);
  location.EquipID = cut.Text(8);
}

// Room for the longest key, so that it is built in one place.
std::string NewKey() {
  std::string key;
  key.reserve(kEquipmentMonthKeyLength);
  return key;
}

void AppendUser(std::string& key, std::string_view user) {
  key += 'K';
  AppendPadded(key, LastCharacters(user, 5), 5);
}

void AppendMonth(std::string& key, int month, int year) {
  AppendPadded(key, std::to_string(month), 2);
  AppendPadded(key, std::to_string(year), 4);
}

}  // namespace

std::string UserKey(std::string_view user) {
  std::string key = NewKey();
  AppendUser(key, user);
  return key;
}

std::string SurveyKey(std::string_view user, int month, int year) {
  std::string key = NewKey();
  AppendUser(key, user);
  AppendMonth(key, month, year);
  return key;
}

std::string StructureMonthKey(std::string_view user, int month, int year, std::string_view complex,
                              std::string_view structure) {
  std::string key = NewKey();
  AppendUser(key, user);
  AppendMonth(key, month, year);
  AppendPadded(key, complex, 7);
  AppendPadded(key, structure, 2);
  return key;
}

std::string StructureKey(std::string_view user, std::string_view complex, std::string_view structure) {
  std::string key = NewKey();
  AppendUser(key, user);
  AppendPadded(key, complex, 7);
  AppendPadded(key, structure, 2);
  return key;
}

std::string EquipmentSuffix(std::string_view type, std::string_view id) {
  std::string suffix;
  AppendPadded(suffix, type, 3);
  AppendPadded(suffix, id, 8);
  return suffix;
}

std::string KeyOf(const QCLocation& l, Mode mode) {
  const bool activity = mode == Mode::kActv;
  if (l.Is(level::kUser)) return UserKey(l.UserID);
  if (l.Is(level::kSurvey)) return SurveyKey(l.UserID, l.Month, l.Year);
  const std::string structure = activity ? StructureMonthKey(l.UserID, l.Month, l.Year, l.CmplxID, l.StructID)
                                         : StructureKey(l.UserID, l.CmplxID, l.StructID);
  if (l.Is(level::kStructure)) return structure;
  if (l.Is(level::kEquipment)) return structure + EquipmentSuffix(l.EquipType, l.EquipID);
  return "";
}

QCLocation ParseNodeKey(const std::string& key) {
  QCLocation location;
  location.Level = level::kUnknown;
  const std::size_t length = CountCharacters(key);
  if (length != kUserKeyLength && length != kSurveyKeyLength && length != kStructureMonthKeyLength &&
      length != kEquipmentMonthKeyLength)
    return location;
  Cutter cut(key);
  location.Level = level::kUser;
  location.UserID = cut.Text(5);
  if (length >= kSurveyKeyLength) {
    location.Level = level::kSurvey;
    location.Month = cut.Number(2);
    location.Year = cut.Number(4);
  }
  if (length >= kStructureMonthKeyLength) {
    location.Level = level::kStructure;
    CutStructure(cut, location);
  }
  if (length >= kEquipmentMonthKeyLength) {
    location.Level = level::kEquipment;
    CutEquipment(cut, location);
  }
  return location;
}

QCLocation ParseDescNodeKey(const std::string& key) {
  QCLocation location;
  location.Level = level::kUnknown;
  const std::size_t length = CountCharacters(key);
  if (length != kUserKeyLength && length != kStructureKeyLength && length != kEquipmentKeyLength) return location;
  Cutter cut(key);
  location.Level = level::kUser;
  location.UserID = cut.Text(5);
  if (length >= kStructureKeyLength) {
    location.Level = level::kStructure;
    CutStructure(cut, location);
  }
  if (length >= kEquipmentKeyLength) {
    location.Level = level::kEquipment;
    CutEquipment(cut, location);
  }
  return location;
}

}  // namespace merlu
