#include "session/node_keys.h"

#include <gtest/gtest.h>

namespace merlu {
namespace {

void ExpectLocation(const QCLocation& at, const char* level, const char* user, int month, int year,
                    const char* complex = "", const char* structure = "", const char* type = "", const char* id = "") {
  EXPECT_EQ(at.Level, level);
  EXPECT_EQ(at.UserID, user);
  EXPECT_EQ(at.Month, month);
  EXPECT_EQ(at.Year, year);
  EXPECT_EQ(at.CmplxID, complex);
  EXPECT_EQ(at.StructID, structure);
  EXPECT_EQ(at.EquipType, type);
  EXPECT_EQ(at.EquipID, id);
}

TEST(NodeKeys, right_justify_every_field_to_its_width) {
  EXPECT_EQ(UserKey("12345"), "K12345");
  EXPECT_EQ(SurveyKey("12345", 12, 2017), "K12345122017");
  EXPECT_EQ(StructureMonthKey("12345", 3, 2017, "1001", "A"), "K12345 32017   1001 A");
  EXPECT_EQ(StructureKey("12345", "1001", "A"), "K12345   1001 A");
  EXPECT_EQ(EquipmentSuffix("FLA", "F1"), "FLA      F1");
}

TEST(NodeKeys, have_the_length_of_their_level) {
  EXPECT_EQ(UserKey("7").size(), 6u);
  EXPECT_EQ(SurveyKey("7", 1, 2017).size(), 12u);
  EXPECT_EQ(StructureMonthKey("7", 1, 2017, "1", "1").size(), 21u);
  EXPECT_EQ((StructureMonthKey("7", 1, 2017, "1", "1") + EquipmentSuffix("FLA", "F1")).size(), 32u);
  EXPECT_EQ(StructureKey("7", "1", "1").size(), 15u);
  EXPECT_EQ((StructureKey("7", "1", "1") + EquipmentSuffix("FLA", "F1")).size(), 26u);
}

TEST(NodeKeys, of_one_structure_differ_between_the_modes_by_month_and_year) {
  const std::string description = StructureKey("12345", "1001", "1");
  EXPECT_EQ(description,
            "K12345"
            "   1001"
            " 1");
  EXPECT_EQ(StructureMonthKey("12345", 1, 2017, "1001", "1"),
            "K12345"
            " 12017"
            "   1001"
            " 1");
}

TEST(NodeKeys, pad_a_short_operator_number_and_cut_a_long_one_to_its_last_five) {
  EXPECT_EQ(UserKey("7"), "K    7");
  EXPECT_EQ(UserKey("1234567"), "K34567");
  EXPECT_EQ(UserKey(""), "K     ");
}

TEST(NodeKeys, write_a_month_of_one_digit_behind_a_blank) {
  EXPECT_EQ(SurveyKey("12345", 1, 2017), "K12345 12017");
  EXPECT_EQ(ParseNodeKey("K12345 12017").Month, 1);
}

TEST(NodeKeys, write_a_structure_of_one_character_behind_a_blank_and_read_it_back_trimmed) {
  EXPECT_EQ(StructureKey("12345", "1001", "A").substr(13), " A");
  EXPECT_EQ(ParseDescNodeKey(StructureKey("12345", "1001", "A")).StructID, "A");
}

TEST(NodeKeys, are_read_back_at_every_level_of_activity) {
  ExpectLocation(ParseNodeKey("K   77"), "USER", "77", 0, 0);
  ExpectLocation(ParseNodeKey("K   77 32017"), "SURVEY", "77", 3, 2017);
  ExpectLocation(ParseNodeKey("K   77122017   1001 A"), "STRUCTURE", "77", 12, 2017, "1001", "A");
  ExpectLocation(ParseNodeKey("K   77122017   1001 ADRI     D-1"), "EQUIPMENT", "77", 12, 2017, "1001", "A", "DRI",
                 "D-1");
}

TEST(NodeKeys, are_read_back_at_every_level_of_description_without_month_and_year) {
  ExpectLocation(ParseDescNodeKey("K12345"), "USER", "12345", 0, 0);
  ExpectLocation(ParseDescNodeKey("K12345   1001 A"), "STRUCTURE", "12345", 0, 0, "1001", "A");
  ExpectLocation(ParseDescNodeKey("K12345   1001 AFUG     F 1"), "EQUIPMENT", "12345", 0, 0, "1001", "A", "FUG", "F 1");
}

TEST(NodeKeys, of_any_other_length_are_of_no_level) {
  for (std::size_t length : {0u, 1u, 5u, 7u, 11u, 13u, 15u, 20u, 22u, 26u, 31u, 33u})
    EXPECT_EQ(ParseNodeKey(std::string(length, 'K')).Level, "UNKNOWN") << length;
  for (std::size_t length : {0u, 5u, 7u, 12u, 14u, 16u, 21u, 25u, 27u, 32u})
    EXPECT_EQ(ParseDescNodeKey(std::string(length, 'K')).Level, "UNKNOWN") << length;
}

TEST(NodeKeys, count_characters_and_not_bytes) {
  const std::string key = StructureMonthKey("12345", 1, 2017, "Ä1", "ß") + EquipmentSuffix("FLA", "É1");
  ExpectLocation(ParseNodeKey(key), "EQUIPMENT", "12345", 1, 2017, "Ä1", "ß", "FLA", "É1");
}

TEST(KeyOf, writes_the_location_s_level_in_the_form_of_the_mode) {
  QCLocation at{"EQUIPMENT", "12345", 3, 2017, "1001", "1", "FLA", "F1"};
  EXPECT_EQ(KeyOf(at, Mode::kActv), "K12345 32017   1001 1FLA      F1");
  EXPECT_EQ(KeyOf(at, Mode::kDesc), "K12345   1001 1FLA      F1");
  at.Level = "STRUCTURE";
  EXPECT_EQ(KeyOf(at, Mode::kActv), "K12345 32017   1001 1");
  EXPECT_EQ(KeyOf(at, Mode::kDesc), "K12345   1001 1");
  at.Level = "SURVEY";
  EXPECT_EQ(KeyOf(at, Mode::kActv), "K12345 32017");
  at.Level = "USER";
  EXPECT_EQ(KeyOf(at, Mode::kActv), "K12345");
  EXPECT_EQ(KeyOf(at, Mode::kDesc), "K12345");
  at.Level = "UNKNOWN";
  EXPECT_EQ(KeyOf(at, Mode::kActv), "");
}

TEST(NodeKeys, have_no_year_with_an_exponent) {
  EXPECT_EQ(ParseNodeKey("K12345 188E8").Year, 0);
  EXPECT_EQ(ParseNodeKey("K123459E9999").Month, 9);
}

}  // namespace
}  // namespace merlu
