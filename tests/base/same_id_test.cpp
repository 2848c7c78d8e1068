#include <gtest/gtest.h>

#include "base/text.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

TEST(Ids, are_the_same_without_regard_to_the_case_of_any_letter) {
  EXPECT_EQ(CompareIds("Étage-1", "éTAGE-1"), 0);
  EXPECT_EQ(CompareIds("ЯК1", "як1"), 0);
  EXPECT_EQ(CompareIds("Ÿ", "ÿ"), 0);
  EXPECT_EQ(CompareIds("Ω", "ω"), 0);
  EXPECT_NE(CompareIds("e1", "é1"), 0);
  EXPECT_NE(CompareIds("A1", "A12"), 0);
  EXPECT_LT(CompareIds("", "a"), 0);
  EXPECT_GT(CompareIds("b", "A"), 0);
  // bytes that are no text are themselves
  EXPECT_EQ(CompareIds("\xC3", "\xC3"), 0);
  EXPECT_NE(CompareIds("\xC3", "\xE9"), 0);
}

TEST(Ids, that_differ_in_case_only_are_refused_for_structures_and_equipment) {
  TestRun run;
  run.StartWithStructure();
  run.AddStructure("É77", "ñ");
  run.AddEquipment("FLA", "Tête");
  run.Select(run.Key("", "", 0, "É77", "ñ"));
  run.TakeBoxes();
  const std::int64_t structures = run.Count("PD_PLATFORM_DESC"), pieces = run.Count("ED_EQUIP_DESC");
  run.dialogs.emplace_back([&](Form& form) {
    form.At("txtEquipID").text = "TÊTE";
    SelectText(form, "cmbEquipType", "Combustion Flare");
    form.Raise("cmdOK", Event::kClick);
    form.Raise("cmdCANCEL", Event::kClick);
  });
  run.Click("cmdSTRUCTURE_AddEquip");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"This Equipment ID already exists. Please enter a unique ID."});
  EXPECT_EQ(run.Count("ED_EQUIP_DESC"), pieces);
  run.dialogs.emplace_back([&](Form& form) {
    for (const auto& [control, text] : std::vector<std::pair<std::string, std::string>>{
             {"txtComplxID", "é77"}, {"txtStructID", "Ñ"}, {"txtArea", "GI"}, {"txtBlock", "1"}, {"txtName", "B"}})
      form.At(control).text = text;
    form.Raise("cmdOK", Event::kClick);
    form.Raise("cmdCANCEL", Event::kClick);
  });
  run.SelectRoot();
  run.Click("cmdUSER_AddStructure");
  EXPECT_EQ(
      run.TakeBoxes(),
      std::vector<std::string>{"This Complex/Structure ID already exists. Please enter unique Complex/Structure ID."});
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), structures);
}

}  // namespace
}  // namespace merlu::test
