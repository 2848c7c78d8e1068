#include "script/rule_reference.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace merlu {
namespace {

TEST(RuleReference, in_the_docs_is_what_the_tables_say) {
  std::ifstream in(std::string(MERLU_SOURCE_FOLDER) + "/docs/rules.md");
  std::stringstream text;
  text << in.rdbuf();
  EXPECT_EQ(text.str(), RuleReference()) << "make it anew with tools/make-docs";
}

TEST(RuleReference, tells_a_field_its_bounds_and_its_condition) {
  const std::string text = RuleReference();
  EXPECT_NE(text.find("| Hours Operated (hrs), including upsets: | required, 0 to 744 |  | each month |"),
            std::string::npos);
  EXPECT_NE(text.find("| Pilot Fuel Feed Rate (Mscf/day): | required, 0 to 100 | *Is there a continuous pilot?* reads "
                      "\"Yes\" | description |"),
            std::string::npos);
}

}  // namespace
}  // namespace merlu
