#include "command/check.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "base/text.h"
#include "command/commands.h"
#include "store/image.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

std::string Bytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// An inventory with a structure, a flare, pneumatic pumps (which no run over a structure reaches) and a month.
class Check : public testing::Test {
 protected:
  Check() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("PNE", "P1");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Keep({{"txtFLA_HrsOperated", "745"}, {"txtFLA_VolFlared", "12"}});
  }
  CheckedFile CheckFile(const CheckScope& scope = {}, int jobs = 1) { return CheckInventory(run.s.path, scope, jobs); }
  // "place|field|text" of the findings.
  static std::vector<std::string> Lines(const CheckedFile& file) {
    std::vector<std::string> lines;
    for (const CheckedFinding& f : file.findings) lines.push_back(f.place + "|" + f.field + "|" + f.text);
    return lines;
  }
  static const CheckedFinding* Find(const CheckedFile& file, const std::string& control) {
    for (const CheckedFinding& f : file.findings)
      if (f.control == control) return &f;
    return nullptr;
  }
  Status Play(const std::vector<std::string>& words) {
    std::ostringstream out_stream, err_stream;
    Console console{out_stream, err_stream};
    const Status status = RunCommand(*FindCommand("check"), words, console);
    out = out_stream.str();
    err = err_stream.str();
    return status;
  }
  std::vector<std::string> OutLines() const {
    std::vector<std::string> lines;
    std::istringstream in(out);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

  TestRun run;
  std::string out, err;
};

TEST_F(Check, finds_what_a_run_over_the_record_finds) {
  std::set<std::string> judged;
  for (const CheckedFinding& f : CheckFile().findings)
    if (f.type == "FLA" && f.month == 1) judged.insert(f.field + "|" + f.text);
  run.Click("cmdQC");
  std::set<std::string> logged;
  for (const auto& [field, text] : run.Findings("EquipType='FLA'")) logged.insert(field + "|" + text);
  EXPECT_FALSE(logged.empty());
  EXPECT_EQ(judged, logged);
}

TEST_F(Check, reads_texts_of_a_megabyte) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET LEASE_NUM=hex(zeroblob(600000)),Area=hex(zeroblob(600000))");
  EXPECT_EQ(Play({run.s.path}), Status::kSomething) << err;
  EXPECT_EQ(err, "");
}

TEST_F(Check, tells_place_value_and_expectation) {
  const CheckedFile file = CheckFile();
  const CheckedFinding* finding = Find(file, "txtFLA_HrsOperated");
  ASSERT_TRUE(finding != nullptr);
  EXPECT_EQ(finding->place, "2017/01 · GI, 43, A · Combustion Flare: F1");
  EXPECT_EQ(finding->value, "745");
  EXPECT_EQ(finding->expected, "0 to 744");
  EXPECT_EQ(finding->complex, "1001");
  EXPECT_EQ(finding->structure, "1");
  EXPECT_EQ(finding->type, "FLA");
  EXPECT_EQ(finding->id, "F1");
  EXPECT_EQ(finding->month, 1);
  EXPECT_EQ(finding->state, "open");
  EXPECT_EQ(file.open, static_cast<int>(file.findings.size()));
}

TEST_F(Check, reaches_what_no_run_over_a_structure_does) {
  bool pumps = false;
  for (const CheckedFinding& f : CheckFile().findings) pumps = pumps || f.type == "PNE";
  EXPECT_TRUE(pumps);
}

TEST_F(Check, passes_over_what_reports_nothing) {
  const CheckedFile before = CheckFile();
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I' WHERE EA_EQUIP_TYP='FLA'");
  const CheckedFile after = CheckFile();
  EXPECT_EQ(Find(after, "txtFLA_HrsOperated"), nullptr);
  EXPECT_EQ(after.records, before.records);
}

TEST_F(Check, counts_a_finding_with_a_stored_comment_as_explained) {
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='meter' WHERE EquipType='FLA' AND FieldID LIKE 'Hours%'");
  const CheckedFile file = CheckFile();
  EXPECT_EQ(file.explained, 1);
  EXPECT_EQ(Find(file, "txtFLA_HrsOperated")->state, "explained");
  EXPECT_EQ(Find(file, "txtFLA_HrsOperated")->comment, "meter");
  run.s.db.Execute("UPDATE QC SET [Desc]='something else' WHERE Comments='meter'");
  EXPECT_EQ(CheckFile().explained, 0) << "the comment was on another finding";
}

TEST_F(Check, a_total_has_the_value_that_is_stored) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET SalesGasC1Content=60, SALES_GAS_TOTAL=50");
  const CheckedFile file = CheckFile();
  ASSERT_NE(Find(file, "txtSTRUCTURE_SalesGasTotal"), nullptr);
  EXPECT_EQ(Find(file, "txtSTRUCTURE_SalesGasTotal")->value, "50");
}

TEST_F(Check, takes_a_month_or_the_descriptions_only) {
  std::set<int> months;
  for (const CheckedFinding& f : CheckFile({1, false, true}).findings) months.insert(f.month);
  EXPECT_EQ(months, (std::set<int>{1}));
  months.clear();
  for (const CheckedFinding& f : CheckFile({0, true, false}).findings) months.insert(f.month);
  EXPECT_EQ(months, (std::set<int>{0}));
  EXPECT_EQ(
      CheckFile({1, false, true}).records + CheckFile({2, false, true}).records + CheckFile({0, true, false}).records,
      CheckFile().records);
  EXPECT_TRUE(CheckFile({7, false, true}).lacks_month);
}

TEST_F(Check, finds_the_same_on_any_number_of_processors) {
  const std::vector<std::string> one = Lines(CheckFile({}, 1));
  EXPECT_EQ(Lines(CheckFile({}, 2)), one);
  EXPECT_EQ(Lines(CheckFile({}, 5)), one);
}

TEST_F(Check, leaves_the_file_and_its_folder_untouched_while_a_window_has_it_open) {
  std::map<std::string, std::string> before, after;
  const auto read = [&](auto& files) {
    for (const auto& entry : fs::recursive_directory_iterator(run.folder.path()))
      files[entry.path()] = entry.is_regular_file() ? Bytes(entry.path()) : "";
  };
  read(before);
  EXPECT_EQ(Play({run.s.path}), Status::kSomething);
  read(after);
  EXPECT_EQ(after, before);
}

TEST_F(Check, writes_text_json_and_csv) {
  EXPECT_EQ(Play({run.s.path, "--month", "1"}), Status::kSomething);
  const std::string wanted =
      run.s.path + ": 2017/01 · GI, 43, A · Combustion Flare: F1: Hours Operated, excl. upsets: 745: ";
  EXPECT_NE(out.find(wanted), std::string::npos) << out;
  EXPECT_NE(out.find(" (expected 0 to 744)\n"), std::string::npos) << out;
  const CheckedFile file = CheckFile({1, false, true});
  EXPECT_EQ(OutLines().back(), run.s.path + ": " + std::to_string(file.records) + " records, " +
                                   std::to_string(file.findings.size()) + " findings, " + std::to_string(file.open) +
                                   " open, 0 explained, 0 stale");
  EXPECT_EQ(Play({run.s.path, "--month", "1", "--format", "json"}), Status::kSomething);
  EXPECT_EQ(OutLines().size(), file.findings.size() + 1);
  EXPECT_NE(out.find("\"type\":\"FLA\",\"id\":\"F1\",\"field\":\"Hours Operated, excl. upsets\",\"control\":"
                     "\"txtFLA_HrsOperated\",\"value\":\"745\",\"expected\":\"0 to 744\""),
            std::string::npos)
      << out;
  EXPECT_NE(OutLines().back().find("\"findings\":" + std::to_string(file.findings.size()) + ",\"open\":"),
            std::string::npos);
  EXPECT_EQ(Play({run.s.path, "--month", "1", "--format", "csv"}), Status::kSomething);
  EXPECT_EQ(out.substr(0, out.find("\r\n")),
            "file,place,month,complex,structure,type,id,field,control,value,expected,text,comment,state");
}

TEST_F(Check, writes_a_text_of_any_bytes_as_a_printable_line) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET Area='G'||char(27)||'I', Name=CAST(x'ff41' AS TEXT)");
  for (const char* format : {"text", "csv", "json"}) {
    EXPECT_EQ(Play({run.s.path, "--format", format}), Status::kSomething);
    EXPECT_TRUE(IsUtf8(out)) << format;
  }
  Play({run.s.path});
  EXPECT_EQ(out.find('\x1b'), std::string::npos);
  EXPECT_NE(out.find("G I, 43, \xEF\xBF\xBD"
                     "A"),
            std::string::npos)
      << out;
}

TEST_F(Check, goes_on_behind_a_file_that_cannot_be_read_and_keeps_the_order) {
  std::ofstream(run.folder.path("bad.mdb")) << "no inventory";
  EXPECT_EQ(Play({run.folder.path("bad.mdb"), run.s.path, run.folder.path("gone.mdb"), run.s.path, "--jobs", "3"}),
            Status::kFile);
  const std::vector<std::string> lines = OutLines();
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) { return line.find(" records, ") != std::string::npos; }),
            2);
  EXPECT_LT(err.find("bad.mdb"), err.find("gone.mdb"));
  EXPECT_EQ(err.find("inventory.mdb"), std::string::npos) << err;
}

TEST_F(Check, tells_a_month_that_the_file_lacks) {
  EXPECT_EQ(Play({run.s.path, "--month", "9"}), Status::kSomething);
  EXPECT_NE(err.find("It has no month 9."), std::string::npos) << err;
}

TEST_F(Check, answers_0_when_all_is_explained) {
  for (const char* sql : {"DELETE FROM ED_EQUIP_DESC", "DELETE FROM PD_PLATFORM_DESC"}) run.s.db.Execute(sql);
  EXPECT_EQ(Play({run.s.path}), Status::kWell);
  EXPECT_EQ(out, run.s.path + ": 0 records, 0 findings, 0 open, 0 explained, 0 stale\n");
}

TEST_F(Check, shows_how_far_it_is_where_somebody_looks) {
  std::ostringstream out_stream, err_stream;
  Console console{out_stream, err_stream, true};
  RunCommand(*FindCommand("check"), {run.s.path, run.s.path}, console);
  EXPECT_EQ(err_stream.str(), "\r1 of 2 files\r\x1B[K\r2 of 2 files\r\x1B[K");
  Play({run.s.path, run.s.path});
  EXPECT_EQ(err, "");
}

}  // namespace
}  // namespace merlu::test
