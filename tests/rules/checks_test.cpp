#include "rules/checks.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

constexpr const char* kBlank = "Required field left blank";
using Texts = std::vector<std::pair<std::string, std::string>>;

// A record whose fields are named by their tags, and its rules.
struct Record {
  explicit Record(std::vector<Rule> rules, const Texts& texts = {})
      : set({{"Field", "Field"}, {"Other", "Other"}, {"Box", ""}}, {{"Group", std::move(rules)}}), view(set.fields()) {
    for (const auto& [field, text] : texts) view.SetText(set.fields().At(field), text);
  }
  Record& With(const std::string& text, const std::string& field = "Field") {
    view.SetText(set.fields().At(field), text);
    return *this;
  }
  Verdicts Judged(Mode mode = Mode::kActv) { return Judge(set, mode, view, context); }
  // Of the field, in a log that was empty; empty when it passes.
  std::string Finding(const std::string& tag = "Field") {
    const Verdicts verdicts = Judged();
    for (const JudgedFinding& finding : StandingFindings(verdicts))
      if (finding.tag == tag) return std::string(finding.text);
    return "";
  }
  Mark LastMark() {
    Mark mark = Mark::kUntouched;
    for (const Verdict& verdict : Judged().all)
      if (verdict.mark != Mark::kUntouched) mark = verdict.mark;
    return mark;
  }
  RuleSet set;
  RecordView view;
  Context context;
};

Rule Checked(CheckSpec check, const Condition& when = {}, Otherwise otherwise = Otherwise::kWithdraw) {
  return {1, In::kActv, "Field", std::move(check), when, otherwise};
}

TEST(Checks, find_a_required_field_that_is_blank_or_holds_only_blanks) {
  Record record({Checked(Required())});
  for (const char* blank : {"", " ", "    "}) EXPECT_EQ(record.With(blank).Finding(), kBlank);
  EXPECT_EQ(record.With(" 0 ").Finding(), "");
}

TEST(Checks, accept_both_bounds_of_a_range) {
  Record record({Checked(RequiredRange(0, 744))});
  EXPECT_EQ(record.With("0").Finding(), "");
  EXPECT_EQ(record.With("744").Finding(), "");
  EXPECT_EQ(record.With("744.0001").Finding(), "Value not in expected range (0 to 744)");
  EXPECT_EQ(record.With("-0.0001").Finding(), "Value not in expected range (0 to 744)");
}

TEST(Checks, judge_a_number_as_far_as_it_reads) {
  const auto passes = [](const std::string& text, double low, double high) {
    return Record({Checked(RangeIfFilled(low, high))}).With(text).Finding().empty();
  };
  EXPECT_TRUE(passes("1,200", 0, 10)) << "a thousands comma ends the number";
  EXPECT_FALSE(passes("1,200", 100, 2000));
  EXPECT_TRUE(passes("   12 feet", 12, 12));
  EXPECT_TRUE(passes("abc", 0, 0));
  EXPECT_TRUE(passes("", 1, 2)) << "a blank field is not looked at";
}

TEST(Checks, judge_a_stored_number_as_its_text_reads) {
  Record record({Checked(RequiredRange(0, 744))});
  const auto passes = [&](double number) {
    record.view.SetNumber(0, number);
    return record.Finding().empty();
  };
  EXPECT_TRUE(passes(744));
  EXPECT_TRUE(passes(744.0000000000001)) << "fifteen digits say 744";
  EXPECT_FALSE(passes(744.00000000001));
  EXPECT_FALSE(passes(-1e-300));
  EXPECT_TRUE(passes(0.1 + 0.2));
}

TEST(Checks, write_bounds_in_their_shortest_form) {
  EXPECT_EQ(RangeText(-98, -81), "Value not in expected range (-98 to -81)");
  EXPECT_EQ(RangeText(0, 0.25), "Value not in expected range (0 to 0.25)");
  EXPECT_EQ(RangeText(99.8, 100), "Value not in expected range (99.8 to 100)");
  EXPECT_EQ(RangeText(0, 1000000000000), "Value not in expected range (0 to 1000000000000)");
  EXPECT_EQ(MinText(0.1f), "Value under minimum of 0.1");
  EXPECT_EQ(MinText(-2.5f), "Value under minimum of -2.5");
  EXPECT_EQ(MinText(1.0f / 3), "Value under minimum of 0.3333333");
}

TEST(Checks, say_what_they_want) {
  EXPECT_EQ(RequiredRange(0, 744).expected, "0 to 744");
  EXPECT_EQ(RangeIfFilled(0, 99.9).expected, "0 to 99.9");
  EXPECT_EQ(AtLeast(50).expected, "at least 50");
  EXPECT_EQ(Required().expected, "required");
  EXPECT_EQ(RequiredMarked().expected, "required");
  EXPECT_EQ(NotOver("Other", "Too much").expected, "");
  Record record({Checked(RequiredRange(0, 744))});
  const Verdicts verdicts = record.Judged();
  const auto standing = StandingFindings(verdicts);
  ASSERT_EQ(standing.size(), 1u);
  EXPECT_EQ(standing[0].text, kBlank);
  EXPECT_EQ(standing[0].expected, "0 to 744") << "also where the field is blank";
}

TEST(Checks, find_a_blank_field_only_blank_although_nothing_is_out_of_range) {
  Record record({Checked(RequiredRange(10, 744))});
  EXPECT_EQ(record.With("").Finding(), kBlank);
  EXPECT_EQ(record.With("5").Finding(), "Value not in expected range (10 to 744)");
  EXPECT_EQ(record.With("10").Finding(), "");
}

TEST(Checks, hold_a_field_to_a_minimum_in_single_precision) {
  Record record({Checked(AtLeast(1))});
  EXPECT_EQ(record.With("").Finding(), kBlank);
  EXPECT_EQ(record.With("0").Finding(), "Value under minimum of 1");
  EXPECT_EQ(record.With("0.999").Finding(), "Value under minimum of 1");
  EXPECT_EQ(record.With("0.99999999").Finding(), "") << "single precision cannot tell it from 1";
}

TEST(Checks, mark_a_field_either_way_or_on_failure_only) {
  const auto mark = [](CheckSpec check, const std::string& text) {
    return Record({Checked(std::move(check))}).With(text).LastMark();
  };
  EXPECT_EQ(mark(RequiredRange(0, 10), ""), Mark::kFlag);
  EXPECT_EQ(mark(RequiredRange(0, 10), "11"), Mark::kFlag);
  EXPECT_EQ(mark(RequiredRange(0, 10), "10"), Mark::kPlain);
  EXPECT_EQ(mark(RequiredMarked(), "x"), Mark::kPlain);
  EXPECT_EQ(mark(Required(), "x"), Mark::kUntouched);
  EXPECT_EQ(mark(Required(), ""), Mark::kFlag);
  EXPECT_EQ(mark(Required(Marks::kEither), "x"), Mark::kPlain);
  EXPECT_EQ(mark(RangeIfFilled(0, 10), "11"), Mark::kFlag);
  EXPECT_EQ(mark(RangeIfFilled(0, 10), "10"), Mark::kUntouched);
  EXPECT_EQ(mark(RangeIfFilledMarked(0, 10), "10"), Mark::kPlain);
  EXPECT_EQ(mark(RangeIfFilledMarked(0, 10), ""), Mark::kUntouched);
  EXPECT_EQ(mark(AtLeast(0), "1"), Mark::kPlain);
}

TEST(Checks, withdraw_only_what_they_would_have_raised) {
  Record record({Checked(RequiredRange(0, 10))});
  const Verdicts verdicts = record.With("5").Judged();
  ASSERT_EQ(verdicts.all.size(), 1u);
  EXPECT_TRUE(Withdraws(verdicts.all[0], kBlank));
  EXPECT_TRUE(Withdraws(verdicts.all[0], RangeText(0, 10)));
  EXPECT_FALSE(Withdraws(verdicts.all[0], RangeText(0, 40)));
  EXPECT_FALSE(Withdraws(verdicts.all[0], "Exceeds the total"));
}

TEST(Checks, hold_a_field_to_another_one_when_both_are_filled) {
  Record record({Checked(NotOver("Other", "Too much"))});
  EXPECT_EQ(record.With("5").With("4", "Other").Finding(), "Too much");
  EXPECT_EQ(record.With("4").Finding(), "");
  EXPECT_EQ(record.With("1,200").With("1200", "Other").Finding(), "") << "here commas are left out";
  EXPECT_EQ(record.With("5").With("", "Other").Finding(), "");
  EXPECT_TRUE(record.Judged().all.empty());
}

TEST(Checks, empty_a_text_that_is_no_number_before_the_next_rule_reads_it) {
  Record record({Checked(EmptyUnlessNumeric()), Checked(Required())});
  EXPECT_EQ(record.With("abc").Finding(), kBlank);
  const Verdicts verdicts = record.Judged();
  EXPECT_EQ(verdicts.all[0].change, 0);
  ASSERT_EQ(verdicts.changes.size(), 1u);
  EXPECT_EQ(verdicts.changes[0].field, 0);
  EXPECT_EQ(verdicts.changes[0].text, "");
  EXPECT_EQ(record.view.Text(0), "abc") << "the caller's record stays";
  EXPECT_EQ(record.With("1,5").Finding(), "");
}

TEST(Checks, hold_a_field_to_the_total_of_the_structure_s_month) {
  Record record({Checked(WithinStructureTotal("Over", Total::kFuelGas))});
  record.context.month_found = true;
  record.context.totals[static_cast<std::size_t>(Total::kFuelGas)] = 100;
  EXPECT_EQ(record.With("100").Finding(), "");
  EXPECT_EQ(record.With("100.1").Finding(), "Over");
  record.context.totals[static_cast<std::size_t>(Total::kFuelGas)] = 0.5;
  EXPECT_EQ(record.With("100").Finding(), "") << "a total that rounds to 0 limits nothing";
  record.context.month_found = false;
  EXPECT_TRUE(record.Judged().all.empty());
}

TEST(Checks, choose_the_total_by_a_list) {
  Record record(
      {Checked(WithinStructureTotal("Over", "Other", {{"Gas", Total::kFuelGas}, {"Oil", Total::kFuelDiesel}}))});
  record.context.month_found = true;
  record.context.totals[static_cast<std::size_t>(Total::kFuelDiesel)] = 10;
  EXPECT_EQ(record.With("11").With("Oil", "Other").Finding(), "Over");
  EXPECT_EQ(record.With("Gas", "Other").Finding(), "");
  EXPECT_EQ(record.With("Wood", "Other").Finding(), "");
}

TEST(Checks, of_a_total_end_their_group_when_it_could_not_be_read) {
  RuleSet set({{"Field", "Field"}},
              {{"First", {Checked(WithinStructureTotal("Over", Total::kFuelGas)), Checked(Required())}},
               {"Second", {Checked(RangeIfFilled(0, 1))}}});
  Context context;
  context.unreadable = std::make_shared<const Fault>(fault_number::kNotSet, "here", "gone");
  RecordView view(set.fields());
  view.SetText(0, "5");
  const Verdicts verdicts = Judge(set, Mode::kActv, view, context);
  ASSERT_EQ(verdicts.faults.size(), 1u);
  EXPECT_EQ(verdicts.faults[0].fault.description, "gone");
  ASSERT_EQ(verdicts.all.size(), 1u) << "the next group runs";
  EXPECT_EQ(verdicts.all[0].text, RangeText(0, 1));
}

TEST(Rules, withdraw_the_finding_of_a_field_whose_condition_is_false) {
  const Condition when = Reads("Other", {"Yes"});
  const auto log = [&](Otherwise otherwise) {
    CheckSpec check = Required();
    check.text = "Own text";
    Record record({Checked(check, when, otherwise)});
    const Verdicts verdicts = record.With("No", "Other").Judged();
    return verdicts.all.empty() ? Verdict{} : verdicts.all[0];
  };
  EXPECT_EQ(log(Otherwise::kWithdraw).log, Verdict::Log::kWithdrawAny);
  EXPECT_EQ(log(Otherwise::kNothing).log, Verdict::Log::kNothing);
  EXPECT_TRUE(Withdraws(log(Otherwise::kWithdrawBlank), kBlank));
  EXPECT_FALSE(Withdraws(log(Otherwise::kWithdrawBlank), "Own text"));
}

TEST(Rules, run_in_their_mode) {
  RuleSet set({{"Field", "Field"}},
              {{"Group", {{1, In::kDesc, "Field", Required()}, {2, In::kBoth, "Field", RequiredMarked()}}}});
  const RecordView view(set.fields());
  EXPECT_EQ(Judge(set, Mode::kDesc, view, {}).all.size(), 2u);
  EXPECT_EQ(Judge(set, Mode::kActv, view, {}).all.size(), 1u);
}

TEST(Rules, of_one_tag_replace_one_another_s_finding) {
  Record record({Checked(AtLeast(10)), Checked(RangeIfFilled(0, 3))});
  EXPECT_EQ(record.With("5").Finding(), RangeText(0, 3));
  EXPECT_TRUE(IsSameTag("Model ", "MODEL"));
  EXPECT_FALSE(IsSameTag("Model", "Mode"));
}

TEST(Conditions, are_tested_and_told_from_the_same_data) {
  const RecordFields fields({{"cmbFuel", ""}, {"txtHours", ""}, {"chkStatus", ""}});
  RecordView view(fields);
  view.SetText(0, "Gas");
  view.SetText(1, "5");
  struct Case {
    Condition condition;
    std::string words;
    bool holds;
  };
  for (const Case& c : std::vector<Case>{
           {Reads("cmbFuel", {"Oil", "Gas"}), "cmbFuel reads \"Oil\" or \"Gas\"", true},
           {ReadsNone("cmbFuel", {"Gas"}), "cmbFuel does not read \"Gas\"", false},
           {IsOff("chkStatus"), "chkStatus is off", true},
           {IsSet("chkStatus"), "chkStatus is set", false},
           {IsOverZero("txtHours"), "txtHours is filled and over 0", true},
           {Both(Reads("cmbFuel", {"Gas"}), IsFilledIn("txtHours")), "cmbFuel reads \"Gas\" and txtHours is filled",
            true},
           {Either(Reads("cmbFuel", {"Oil"}), IsSet("chkStatus")), "(cmbFuel reads \"Oil\") or chkStatus is set",
            false},
           {Condition(), "", true},
       }) {
    EXPECT_EQ(c.condition.Words(), c.words);
    EXPECT_EQ(c.condition.holds(view), c.holds) << c.words;
  }
}

TEST(Checks, want_ten_digits_of_a_telephone_number) {
  EXPECT_FALSE(HasTooFewDigits("(555) 123 - 4567 ext ____"));
  EXPECT_TRUE(HasTooFewDigits("(555) 123 - 456_ ext ____"));
  EXPECT_TRUE(HasTooFewDigits(""));
  EXPECT_FALSE(HasTooFewDigits("55512345678"));
  EXPECT_FALSE(HasTooFewDigits("(555) 123 - 456_ ext 7___"));
}

}  // namespace
}  // namespace merlu::test
