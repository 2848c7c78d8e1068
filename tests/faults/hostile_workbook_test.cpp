// Workbooks with anything changed in them: read or refused, and the inventory stays sound.
#include "faults/hostile_workbook.h"

#include <gtest/gtest.h>

#include <random>

namespace merlu::test {
namespace {

// A few places changed: bytes, pieces doubled or dropped, numbers made large.
std::string Mutated(std::string text, std::mt19937& random) {
  const auto below = [&random](std::size_t most) { return static_cast<std::size_t>(random()) % most; };
  for (std::size_t i = 0; i <= below(4); ++i) {
    const std::size_t at = below(text.size()), length = std::min(below(40) + 1, text.size() - at);
    switch (below(4)) {
      case 0: text[at] = static_cast<char>(random()); break;
      case 1: text.insert(at, text.substr(below(text.size() - length), length)); break;
      case 2: text.erase(at, length); break;
      default:
        if (const std::size_t digit = text.find_first_of("0123456789", at); digit != std::string::npos)
          text.replace(digit, 1, below(2) == 0 ? "99999999999" : "-1.5e3");
    }
  }
  return text;
}

TEST(HostileWorkbooks, that_the_program_made_are_read) {
  HostileWorkbook workbook;
  EXPECT_EQ(workbook.WhatGoesWrong(".xlsx", ZipOfText(workbook.Own())), "");
}

TEST(HostileWorkbooks, with_changed_parts_leave_the_inventory_sound) {
  HostileWorkbook workbook;
  const std::string own = workbook.Own();
  std::mt19937 random(1);
  for (int i = 0; i < 150; ++i)
    ASSERT_EQ(workbook.WhatGoesWrong(".xlsx", ZipOfText(Mutated(own, random))), "") << "round " << i;
}

TEST(HostileWorkbooks, of_one_sheet_as_text_leave_the_inventory_sound) {
  HostileWorkbook workbook;
  std::mt19937 random(2);
  for (int i = 0; i < 50; ++i)
    ASSERT_EQ(workbook.WhatGoesWrong(".csv", Mutated("a,b,\"c\nd\"\n1;2;3\n=1+1,\xEF\xBB\xBF,'x\n", random)), "") << i;
}

}  // namespace
}  // namespace merlu::test
