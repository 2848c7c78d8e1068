// The rows of a step as the user knows them: the record's place, the field, and its values as the sheet shows them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "history/steps.h"
#include "session/session.h"

namespace merlu {

// Looks rows up where they can be found: in the step itself, in the inventory, or in a newer step that took them away.
class RowFinder {
 public:
  RowFinder(Session& s, std::int64_t step) : s_(s), step_(step) {}

  // The place of the record that the row belongs to.
  std::string PlaceOf(const std::string& table, std::int64_t rowid);
  // The field of a finding, by the number of its row.
  std::string FieldOf(std::int64_t qc_row);

 private:
  using Named = std::map<std::string, std::string>;
  const Named* Find(const std::string& table, std::int64_t rowid);
  void Learn(std::int64_t step);
  std::string PlaceOfMonth(std::int64_t ea_id);
  std::string PlaceOfEquipment(int month, int year, std::int64_t ed_id);
  std::string Structure(std::int64_t pd_id);
  static std::string PlaceOfFinding(Database& db, const Named& row);

  Session& s_;
  std::int64_t step_;
  std::map<std::pair<std::string, std::int64_t>, std::optional<Named>> known_;
  std::map<std::string, std::string> places_;
  bool learned_ = false;
};

struct ShownChange {
  std::string place, field, before, after;
};

// In the order in which the step wrote them.
std::vector<ShownChange> ValuesOfStep(Session& s, std::int64_t step);

// Whether the step changed the record, its findings aside.
bool StepTouches(Session& s, std::int64_t step, const QCLocation& record, Mode mode);

}  // namespace merlu
