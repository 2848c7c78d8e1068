// Files are the same in every locale.
#include <gtest/gtest.h>
#include <locale.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/numbers.h"
#include "exchange/description_sheets.h"
#include "exchange/export_file.h"
#include "host/report_pdf.h"
#include "store/files.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// Locales that the build has made from their definitions, so that it does not matter which the machine has.
class Locales : public testing::TestWithParam<const char*> {
 protected:
  Locales() {
    path_ = CopyTemplate(folder_, "inventory.mdb");
    Raw(path_, {"INSERT INTO CO_COMPANY (RIMA_CO_NUM, CO_NAME) VALUES ('1','TITLE IN INDIGO')",
                "INSERT INTO PD_PLATFORM_DESC (PD_ID_AK, CMPLX_ID_NUM, STRUCT_NUM, LATITUDE, DIST_TO_SHORE) VALUES "
                "(1,'I1','ii',28.5,1234567.25)"});
    ::setenv("LOCPATH", MERLU_BUILD_FOLDER "/locales", 1);
  }
  ~Locales() override {
    ::setlocale(LC_ALL, "C");
    ::unsetenv("LOCPATH");
  }
  static std::string Bytes(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
  // What a writer makes here and in the C locale.
  void ExpectSame(const char* name, const std::function<void(const std::string& path)>& write) {
    std::string files[2];
    for (const bool foreign : {false, true}) {
      ASSERT_NE(::setlocale(LC_ALL, foreign ? GetParam() : "C"), nullptr) << GetParam();
      ASSERT_STREQ(::localeconv()->decimal_point, foreign ? "," : ".");
      const std::string path = folder_.path(name);
      write(path);
      files[foreign] = Bytes(path);
      std::filesystem::remove(path);
    }
    ASSERT_FALSE(files[0].empty());
    EXPECT_TRUE(files[0] == files[1]) << name << " differs";
  }

  TemporaryFolder folder_;
  std::string path_;
};

TEST_P(Locales, do_not_change_a_workbook) {
  Database db;
  db.Open(path_);
  const auto silent = [](std::string_view, int, int) {};
  ExpectSame("a.xls", [&](const std::string& path) { ExportDescriptions(db, *NewXls(path), silent); });
  // the parts of this one carry the time at which they were made
  ExpectSame("sheet.txt", [&](const std::string& path) {
    const std::string workbook = folder_.path("a.xlsx");
    ExportDescriptions(db, *NewXlsx(workbook), silent);
    const std::string unpack = "python3 -c \"import zipfile,sys; sys.stdout.buffer.write(zipfile.ZipFile('" + workbook +
                               "').read('xl/worksheets/sheet2.xml'))\" > '" + path + "'";
    ASSERT_EQ(std::system(unpack.c_str()), 0);
    EXPECT_NE(Bytes(path).find("<v>28.5</v>"), std::string::npos);
    std::filesystem::remove(workbook);
  });
}

TEST_P(Locales, do_not_change_an_export) {
  Database db;
  db.Open(path_);
  ExpectSame("a.mdb", [&](const std::string& path) {
    WriteExport({path_, ""}, db, path, std::uint64_t{1} << 40, [](Database& copy) {
      KeepStructures(copy, {{"i1", "II"}});
    });
    EXPECT_EQ(ToInteger(RawValue(path, "SELECT COUNT(*) FROM PD_PLATFORM_DESC")), 1);
  });
}

TEST_P(Locales, do_not_change_the_summary) {
  InventoryReport report;
  report.title = "Title";
  report.year = "2017";
  report.printed = {2017, 3, 5, 14, 2, 0};
  report.sections = {{"March 2017", "GI, 43, A", {{"Flare: F1", "Hours", "Value = 744.5"}}}};
  ExpectSame("text.txt", [&](const std::string& path) {
    const std::string pdf = folder_.path("a.pdf");
    WriteReportPdf(report, pdf, [](int, int) {});
    ASSERT_EQ(std::system(("pdftotext -layout '" + pdf + "' '" + path + "'").c_str()), 0);
    EXPECT_NE(Bytes(path).find("744.5"), std::string::npos);
  });
}

TEST_P(Locales, do_not_change_numbers) {
  ASSERT_NE(::setlocale(LC_ALL, GetParam()), nullptr);
  EXPECT_EQ(GeneralNumber(552.5), "552.5");
}

INSTANTIATE_TEST_SUITE_P(with_a_decimal_comma, Locales, testing::Values("de_DE.UTF-8", "tr_TR.UTF-8"),
                         [](const auto& info) { return std::string(info.param).substr(0, 5); });

}  // namespace
}  // namespace merlu::test
