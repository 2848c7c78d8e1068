// Lists as workbooks and comma-separated values, read back by the program's own reader.
#include "exchange/list_file.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "exchange/month_workbook.h"
#include "exchange/read_workbook.h"
#include "exchange/table_file.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

std::string Repeat(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

class ListFile : public testing::Test {
 protected:
  // The texts of one column as they come back.
  Texts Back(const std::string& name, const Texts& texts) {
    const std::string path = folder.path(name);
    WriteList({}, path, {"List", {"Head"}, static_cast<int>(texts.size()), [&](int row, int) {
                           return texts[static_cast<std::size_t>(row)];
                         }});
    return Read(path, static_cast<int>(texts.size()));
  }
  static Texts Read(const std::string& path, int rows) {
    const std::vector<ForeignSheet> sheets = ReadForeignWorkbook(path);
    Texts back;
    for (int row = 1; row <= rows; ++row) back.push_back(sheets.at(0).Text(row, 0));
    return back;
  }
  TemporaryFolder folder;
};

const Texts kPlain = {"plain", "=1+1", "", "two\nlines", " blanks ", "_x0041_ is no A", "ж \"中\" 😀", "1,5", "007"};

TEST_F(ListFile, comes_back_as_it_was) {
  EXPECT_EQ(Back("list.xlsx", kPlain), kPlain);
  const std::string longest = Repeat("x", 32767);
  EXPECT_EQ(Back("longest.xlsx", {longest}), Texts{longest});
}

TEST_F(ListFile, says_in_a_cell_that_its_text_was_cut) {
  for (const auto& [character, count] : {std::pair("x", 32768), {"x", 1 << 20}, {"😀", 20000}, {"_x0041_", 5000}}) {
    const std::string text = Repeat(character, count);
    const std::string words = " ... (cut here, of " + std::to_string(CountCharacters(text)) + " characters)";
    const Texts back = Back(std::to_string(text.size()) + ".xlsx", {text, "next"});
    ASSERT_TRUE(back[0].ends_with(words)) << back[0].substr(0, 80);
    const std::string kept = back[0].substr(0, back[0].size() - words.size());
    EXPECT_TRUE(text.starts_with(kept));
    EXPECT_GT(CountCharacters(kept), 4000U);
    EXPECT_EQ(back[1], "next");
    const std::string table = folder.path("table" + std::to_string(text.size()) + ".xlsx");
    WriteTable({{"Head"}, {text}}, "Table", table, table);
    EXPECT_EQ(Read(table, 1), Texts{back[0]});
  }
}

TEST_F(ListFile, holds_long_texts_whole_as_comma_separated_values) {
  const std::string text = Repeat("x", 40000);
  EXPECT_EQ(Back("list.csv", {text}), Texts{text});
}

TEST_F(ListFile, replaces_bytes_that_are_no_text) {
  EXPECT_EQ(Back("list.xlsx", {"a\xFF z"}), Texts{"a\uFFFD z"});
}

// Read back it would take the place of the whole one.
TEST_F(ListFile, of_a_month_leaves_out_what_a_cell_cannot_return) {
  MonthBook book{"12345", 2017, 1, {{"FLA", "Flares", {{"txtA", "A", "", {}, false, false}}, {}}}};
  for (const std::string& text :
       {Repeat("x", 32768), Repeat("😀", 20000), Repeat("_x0041_", 4000), std::string("short")})
    book.sheets[0].rows.push_back({"key", Repeat("s", 40000), "F1", {{text, "", false}}});
  WriteMonthBook(book, folder.path("month.xlsx"));
  const std::vector<ReadSheet> sheets = ReadMonthBook(folder.path("month.xlsx"));
  ASSERT_EQ(sheets.at(0).records.size(), 4U);
  for (std::size_t row = 0; row < 3; ++row) EXPECT_TRUE(sheets[0].records[row].fields.empty()) << row;
  ASSERT_EQ(sheets[0].records[3].fields.size(), 1U);
  EXPECT_EQ(sheets[0].records[3].fields[0].text, "short");
}

}  // namespace
}  // namespace merlu::test
