// The catalogue's words for rules beyond their names and bounds.
#include "script/catalogue.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace merlu::test {
namespace {

Json RuleOf(const std::string& type, const std::string& group, int order) {
  const Json catalogue = Catalogue();
  for (const Json& sheet : catalogue["sheets"])
    for (const Json& rule : sheet["rules"])
      if (sheet["type"] == type && rule["group"] == group && rule["order"] == order) return rule;
  throw std::runtime_error("no rule " + group + " " + std::to_string(order));
}

TEST(CatalogueOfRules, tells_the_conditions_that_a_check_tests_by_itself) {
  const std::map<std::string, std::string> of_checks = {
      {"NotOver txtNGE_MaxHP", "the field is filled and txtNGE_MaxHP is filled"},
      {"WithinStructureTotal", "the structure's month is found"},
      {"EmptyUnlessNumeric", "the field holds no number"},
      {"DieselNotOver txtNGT_MaxHP_Diesel", "the field is filled"},
      {"GreaterThanZero", "is filled and over 0"},
      {"ZeroHours",
       "the field is filled and the field is within 0 to 744 and chkAMI_Status is off and "
       "txtAMI_TotalGasThru is filled and over 0"}};
  const Json catalogue = Catalogue();
  std::set<std::string> met;
  for (const Json& sheet : catalogue["sheets"])
    for (const Json& rule : sheet["rules"]) {
      const auto found = of_checks.find(rule["check"]);
      if (found == of_checks.end()) continue;
      met.insert(found->first);
      EXPECT_NE(std::string(rule["when"]).find(found->second), std::string::npos) << rule;
    }
  EXPECT_EQ(met.size(), of_checks.size());
}

TEST(CatalogueOfRules, leaves_no_comparison_of_two_fields_without_a_condition) {
  const Json catalogue = Catalogue();
  int met = 0;
  for (const Json& sheet : catalogue["sheets"])
    for (const Json& rule : sheet["rules"]) {
      const std::string check = rule["check"];
      if (check.find("NotOver") == std::string::npos) continue;
      ++met;
      EXPECT_FALSE(std::string(rule["when"]).empty()) << rule;
    }
  EXPECT_EQ(met, 10);
}

TEST(CatalogueOfRules, numbers_the_amine_unit_s_other_device_behind_its_control_equipment) {
  EXPECT_EQ(RuleOf("AMI", "CheckAMIOtherControl", 46)["field"], "txtAMI_OtherControlDesc");
  EXPECT_EQ(RuleOf("AMI", "CheckAMIOtherControl", 51)["field"], "txtAMI_OtherControlEffPM10");
  EXPECT_EQ(RuleOf("FLA", "CheckFLAOtherControl", 1)["field"], "txtFLA_OtherControlDesc");
}

TEST(CatalogueOfRules, calls_the_total_of_the_composition_by_its_primitive) {
  const Json rule = RuleOf("AMI", "CheckAMIFields", 17);
  EXPECT_EQ(rule["check"], "CheckRequiredRange");
  EXPECT_EQ(rule["low"], 99.8);
  EXPECT_EQ(rule["high"], 100);
}

}  // namespace
}  // namespace merlu::test
