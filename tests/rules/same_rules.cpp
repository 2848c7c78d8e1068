#include "rules/same_rules.h"

#include <gtest/gtest.h>

namespace merlu::test {

void ExpectMissing(const std::string& type, Mode mode, const std::string& fields) {
  SheetRecord record(type, mode);
  record.Run();
  EXPECT_EQ(record.Fields(), fields);
  EXPECT_TRUE(record.FindsOnlyBlanks());
}

std::vector<ListCase> CasesOfDestination(const char* list, const char* remote, const std::string& combustion) {
  return {{list, "Vented Locally", "Flared Locally", {"Ventilation Exit Temperature"}},
          {list,
           "Flared Locally",
           "Vented Locally",
           {"Flare Feed Rate", combustion + " Temperature", combustion + " Efficiency"}},
          {list,
           "Vented Locally",
           remote,
           {"Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
            "Ventilation Outlet Orientation"}}};
}

void ExpectWithdrawnWithoutTheChoice(const std::string& type, const std::vector<ListCase>& cases) {
  SheetRecord record(type, Mode::kDesc);
  for (const ListCase& one : cases) {
    record.Set(one.list, one.with);
    record.Run();
    for (const std::string& tag : one.tags) EXPECT_EQ(record.Finding(tag), kBlankFinding) << tag;
    record.Set(one.list, one.without);
    record.Run();
    for (const std::string& tag : one.tags) EXPECT_EQ(record.Finding(tag), "") << tag;
  }
}

void ExpectNoMoreThanTheStructure(const std::string& type, const TotalRule& rule) {
  const std::string above = std::to_string(rule.most + 1), far_above = std::to_string(rule.most + 100000);
  const struct {
    std::string total, value, finding;
  } cases[] = {{"NULL", "10", ""},
               {"0", "10", ""},
               {"0.4", "10", ""},
               {"0.6", "10", rule.finding},
               {"10", "10", ""},
               {"10", "10.5", rule.finding},
               {"100", above, rule.finding},
               {far_above, above, RangeFinding(0, rule.most)},
               {"10", "", kBlankFinding},
               {"10", "9.5", ""},
               {rule.single.total, rule.single.same, ""},
               {rule.single.total, rule.single.more, rule.finding}};
  SheetRecord record(type, Mode::kActv);
  for (const auto& one : cases) {
    record.SetTotal(rule.column, one.total);
    record.Set(rule.control, one.value);
    record.Run();
    EXPECT_EQ(record.Finding(rule.tag), one.finding) << one.value << " of " << one.total;
    EXPECT_EQ(record.MarkOf(rule.control), one.finding.empty() ? Mark::kPlain : Mark::kFlag)
        << one.value << " of " << one.total;
  }
}

void ExpectPassedOnceFilled(const std::string& type, const Values& setting, const Values& fields) {
  SheetRecord record(type, Mode::kDesc);
  record.Put(setting);
  record.Run();
  for (const auto& [name, text] : fields) EXPECT_EQ(record.MarkOf(name), Mark::kFlag) << name;
  record.Put(fields);
  record.Run();
  for (const auto& [name, text] : fields) EXPECT_EQ(record.MarkOf(name), Mark::kPlain) << name;
}

}  // namespace merlu::test
