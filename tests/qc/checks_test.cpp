#include "qc/checks.h"

#include <gtest/gtest.h>

#include "qc/qc_log.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char* kBlank = "Required field left blank";

// A field of a flare that the checks look at.
struct Checked {
  Checked() {
    run.StartWith("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    location = run.s.current;
    field.tag = "Field";
  }
  Control& Reads(const std::string& text) {
    field.text = text;
    return field;
  }
  bool Required(const std::string& text) { return CheckRequired(run.s, location, Reads(text)); }
  bool Range(const std::string& text, double low, double high) {
    return CheckRange(run.s, location, Reads(text), low, high);
  }
  bool RequiredRange(const std::string& text, double low, double high) {
    return CheckRequiredRange(run.s, location, Reads(text), low, high);
  }
  bool Min(const std::string& text, float minimum) { return CheckMin(run.s, location, Reads(text), minimum); }
  std::string Finding() { return run.Finding("Field"); }
  TestRun run;
  QCLocation location;
  Control field;
};

TEST(Checks, find_a_required_field_that_is_blank_or_holds_only_blanks) {
  Checked checked;
  for (const char* blank : {"", " ", "    "}) {
    EXPECT_TRUE(checked.Required(blank));
    EXPECT_EQ(checked.Finding(), kBlank);
    EXPECT_FALSE(checked.Required(" 0 "));
    EXPECT_EQ(checked.Finding(), "");
  }
}

TEST(Checks, accept_both_bounds_of_a_range) {
  Checked checked;
  EXPECT_FALSE(checked.Range("0", 0, 744));
  EXPECT_FALSE(checked.Range("744", 0, 744));
  EXPECT_EQ(checked.Finding(), "");
  EXPECT_TRUE(checked.Range("744.0001", 0, 744));
  EXPECT_EQ(checked.Finding(), "Value not in expected range (0 to 744)");
  EXPECT_FALSE(checked.Range("743.9", 0, 744));
  EXPECT_EQ(checked.Finding(), "");
  EXPECT_TRUE(checked.Range("-0.0001", 0, 744));
}

TEST(Checks, judge_a_number_as_far_as_it_reads) {
  Checked checked;
  EXPECT_FALSE(checked.Range("1,200", 0, 10)) << "a thousands comma ends the number";
  EXPECT_TRUE(checked.Range("1,200", 100, 2000));
  EXPECT_FALSE(checked.Range("   12 feet", 12, 12));
  EXPECT_FALSE(checked.Range("abc", 0, 0));
  EXPECT_FALSE(checked.Range("", 0, 0)) << "an empty field counts as 0";
  EXPECT_TRUE(checked.Range("", 1, 2));
}

TEST(Checks, write_the_bounds_of_a_range_in_their_shortest_form) {
  EXPECT_EQ(RangeText(-98, -81), "Value not in expected range (-98 to -81)");
  EXPECT_EQ(RangeText(0, 0.25), "Value not in expected range (0 to 0.25)");
  EXPECT_EQ(RangeText(99.8, 100), "Value not in expected range (99.8 to 100)");
  EXPECT_EQ(RangeText(0, 1000000000000), "Value not in expected range (0 to 1000000000000)");
}

TEST(Checks, leave_the_finding_that_another_range_raised) {
  Checked checked;
  EXPECT_TRUE(checked.Range("50", 0, 40));
  EXPECT_FALSE(checked.Range("50", 0, 100));
  EXPECT_EQ(checked.Finding(), "Value not in expected range (0 to 40)");
}

TEST(Checks, leave_a_finding_of_another_check_on_the_same_field) {
  Checked checked;
  AddQCError(checked.run.s, checked.location, "Field", "Exceeds the total");
  EXPECT_FALSE(checked.RequiredRange("5", 0, 10));
  EXPECT_FALSE(checked.Min("5", 0));
  EXPECT_EQ(checked.Finding(), "Exceeds the total");
}

TEST(Checks, find_a_blank_field_only_blank_although_nothing_is_out_of_range) {
  Checked checked;
  EXPECT_TRUE(checked.RequiredRange("", 0, 744));
  EXPECT_EQ(checked.Finding(), kBlank);
  EXPECT_TRUE(checked.RequiredRange("", 10, 744));
  EXPECT_EQ(checked.Finding(), kBlank);
  EXPECT_TRUE(checked.RequiredRange("5", 10, 744));
  EXPECT_EQ(checked.Finding(), "Value not in expected range (10 to 744)");
  EXPECT_FALSE(checked.RequiredRange("10", 10, 744));
  EXPECT_EQ(checked.Finding(), "");
}

TEST(Checks, hold_a_field_to_a_minimum) {
  Checked checked;
  EXPECT_TRUE(checked.Min("", 0));
  EXPECT_EQ(checked.Finding(), kBlank);
  EXPECT_TRUE(checked.Min("-1", 0));
  EXPECT_EQ(checked.Finding(), "Value under minimum of 0");
  EXPECT_FALSE(checked.Min("0", 0));
  EXPECT_EQ(checked.Finding(), "");
}

TEST(Checks, compare_with_a_minimum_in_single_precision) {
  Checked checked;
  EXPECT_FALSE(checked.Min("0.99999999", 1)) << "single precision cannot tell it from 1";
  EXPECT_TRUE(checked.Min("0.999", 1));
  EXPECT_EQ(MinText(0.1f), "Value under minimum of 0.1");
  EXPECT_EQ(MinText(-2.5f), "Value under minimum of -2.5");
  EXPECT_EQ(MinText(1.0f / 3), "Value under minimum of 0.3333333");
}

TEST(Checks, mark_a_field_by_its_failure_and_by_the_edit) {
  Checked checked;
  MarkField(checked.run.s, true, checked.field);
  EXPECT_EQ(checked.field.back, Back::kFlag);
  MarkField(checked.run.s, false, checked.field);
  EXPECT_EQ(checked.field.back, Back::kFace);
  checked.run.s.editing = true;
  MarkField(checked.run.s, false, checked.field);
  EXPECT_EQ(checked.field.back, Back::kWindow);
  MarkField(checked.run.s, true, checked.field);
  EXPECT_EQ(checked.field.back, Back::kFlag);
}

TEST(Checks, of_required_ranges_and_marked_fields_colour_them_and_the_others_do_not) {
  Checked checked;
  checked.run.s.editing = true;
  const auto colour = [&](const std::string& text, auto check, Back before) {
    checked.Reads(text).back = before;
    check(checked.run.s, checked.location, checked.field);
    return checked.field.back;
  };
  const auto range = [](Session& s, QCLocation& l, Control& c) { CheckRequiredRange(s, l, c, 0, 10); };
  EXPECT_EQ(colour("", range, Back::kWindow), Back::kFlag);
  EXPECT_EQ(colour("11", range, Back::kWindow), Back::kFlag);
  EXPECT_EQ(colour("10", range, Back::kFlag), Back::kWindow);
  EXPECT_EQ(colour("", CheckRequiredMarked, Back::kWindow), Back::kFlag);
  EXPECT_EQ(colour("x", CheckRequiredMarked, Back::kFlag), Back::kWindow);
  EXPECT_EQ(colour("", CheckRequired, Back::kWindow), Back::kWindow);
  EXPECT_EQ(colour("x", CheckRequired, Back::kFlag), Back::kFlag);
  const auto range_alone = [](Session& s, QCLocation& l, Control& c) { CheckRange(s, l, c, 0, 10); };
  EXPECT_EQ(colour("11", range_alone, Back::kWindow), Back::kWindow);
  const auto minimum = [](Session& s, QCLocation& l, Control& c) { CheckMin(s, l, c, 0); };
  EXPECT_EQ(colour("", minimum, Back::kWindow), Back::kWindow);
}

TEST(Checks, of_a_marked_requirement_find_and_withdraw_the_blank_field) {
  Checked checked;
  EXPECT_TRUE(CheckRequiredMarked(checked.run.s, checked.location, checked.Reads("")));
  EXPECT_EQ(checked.Finding(), kBlank);
  EXPECT_FALSE(CheckRequiredMarked(checked.run.s, checked.location, checked.Reads("x")));
  EXPECT_EQ(checked.Finding(), "");
}

TEST(Checks, want_ten_digits_of_a_telephone_number) {
  EXPECT_FALSE(HasTooFewDigits("(555) 123 - 4567 ext ____"));
  EXPECT_TRUE(HasTooFewDigits("(555) 123 - 456_ ext ____"));
  EXPECT_TRUE(HasTooFewDigits(""));
  EXPECT_FALSE(HasTooFewDigits("55512345678"));
  EXPECT_FALSE(HasTooFewDigits("(555) 123 - 456_ ext 7___"));
}

TEST(Checks, call_a_field_filled_when_anything_but_blanks_stands_in_it) {
  using Case = std::pair<std::string, bool>;
  Control field;
  for (const auto& [text, filled] : {Case{"", false}, Case{"  ", false}, Case{" x ", true}, Case{"0", true}}) {
    field.text = text;
    EXPECT_EQ(IsFilled(field), filled) << "\"" << text << "\"";
  }
}

}  // namespace
}  // namespace merlu::test
