// Finds the record that a row of a step belongs to, also when the row has been deleted since.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

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
  // Whether a finding is one of the record.
  bool IsFindingOf(const QCLocation& record, std::int64_t qc_row);

 private:
  using Named = std::map<std::string, std::string>;
  using RowKey = std::pair<std::uint16_t, std::int64_t>;  // the recorded table's number, the row's
  const Named* Find(const std::string& table, std::int64_t rowid);
  const Named* InSteps(const RowKey& row);
  const Named* InInventory(const std::string& table, const RowKey& row);
  void Learn(std::int64_t step);
  std::string PlaceOfMonth(std::int64_t ea_id);
  std::string PlaceOfEquipment(int month, int year, std::int64_t ed_id);
  std::string Structure(std::int64_t pd_id);
  static std::string PlaceOfFinding(Database& db, const Named& row);
  std::string PlaceOfItsStep(const std::string& table, std::int64_t rowid);

  Session& s_;
  std::int64_t step_;
  std::deque<std::string> parts_;  // that the rows of `in_steps_` point into
  std::map<RowKey, std::string_view> in_steps_;
  std::map<RowKey, std::optional<Named>> known_;
  std::map<RowKey, std::string> places_;
  bool learned_own_ = false, learned_newer_ = false;
};

// Whether the step changed the record or its findings.
bool StepTouches(Session& s, std::int64_t step, const QCLocation& record, Mode mode);

// The name of a table of the equipment's type, by its prefix ("EA_").
bool IsTypeTable(const std::string& table, const char* prefix);
// The recorded table of that name and its number; null without one.
const RecordedTable* RecordedTableNamed(Database& db, const std::string& name, std::uint16_t* number = nullptr);

}  // namespace merlu
