#include "sheets/wording.h"

#include <gtest/gtest.h>

#include "rules/checks.h"

namespace merlu {
namespace {

const std::vector<FieldSpec> kFields = {
    Text(In::kDesc, "cmbX_Fuel", " Fuel Type: ", "Fuel", ""),
    Text(In::kDesc, "txtX_Rate", "", "Rate", ""),
};

TEST(Wording, calls_a_field_by_its_caption_or_its_name_in_findings) {
  EXPECT_EQ(CaptionOf(kFields, "cmbX_Fuel"), " Fuel Type: ");
  EXPECT_EQ(CaptionOf(kFields, "txtX_Rate"), "Rate");
  EXPECT_EQ(CaptionOf(kFields, "chkX_Status"), "chkX_Status");
  EXPECT_EQ(BareCaption(" Fuel Type: "), "Fuel Type");
  EXPECT_EQ(BareCaption("Comments;"), "Comments");
}

TEST(Wording, speaks_of_conditions_by_captions) {
  const std::string words = Reads("cmbX_Fuel", {"Oil", "Gas"}).Words();
  EXPECT_EQ(ConditionText(kFields, words, {"*", "*"}), "* Fuel Type: * reads \"Oil\" or \"Gas\"");
  EXPECT_EQ(ConditionText(kFields, words, {"“", "”", true}), "“Fuel Type” reads “Oil” or “Gas”");
}

TEST(Wording, says_what_a_check_demands) {
  EXPECT_EQ(DemandText(RequiredRange(0, 744)), "required, 0 to 744");
  EXPECT_EQ(DemandText(RangeIfFilled(0, 99.9)), "when filled, 0 to 99.9");
  EXPECT_EQ(DemandText(AtLeast(0)), "required, at least 0");
  EXPECT_EQ(DemandText(EmptyUnlessNumeric()), "emptied when it is no number");
  EXPECT_EQ(DemandText(NotOver("txtX_Rate", "too much")), "“too much”");
}

}  // namespace
}  // namespace merlu
