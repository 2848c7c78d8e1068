// The printed annual summary, read back with tools that did not make it.
#include "host/report_pdf.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>

#include "base/fault.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

std::string Output(const std::string& command) {
  std::string text;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return text;
  std::array<char, 4096> part{};
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe)) text.append(part.data(), count);
  EXPECT_EQ(::pclose(pipe), 0) << command;
  return text;
}

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

class ReportPdf : public testing::Test {
 protected:
  ReportPdf() {
    report.title = "Annual Inventory QA Summary";
    report.operator_lines = {"Blue Water Exploration, RIMA company no. 12345", "1 Quay Street"};
    report.year = "2017";
    report.printed = {2018, 3, 5, 9, 7, 0};
    report.summary = "Number of findings";
  }
  void Section(const std::string& heading, const std::string& place, int lines) {
    report.sections.push_back({heading, place, {}});
    for (int i = 0; i < lines; ++i)
      report.sections.back().lines.push_back(
          {"Combustion Flare: F" + std::to_string(i), "Item " + std::to_string(i), "Required field left blank"});
    report.findings += lines;
  }
  void Write() {
    WriteReportPdf(report, path(), [this](int done, int total) {
      ++calls;
      EXPECT_LE(done, total);
    });
  }
  std::string path() const { return folder.path("summary.pdf"); }
  std::string Text() const { return Output("pdftotext -layout '" + path() + "' -"); }
  int Pages() const {
    const std::string info = Output("pdfinfo '" + path() + "'");
    return std::stoi(info.substr(info.find("Pages:") + 6));
  }

  TemporaryFolder folder;
  InventoryReport report;
  int calls = 0;
};

TEST_F(ReportPdf, without_findings_is_one_page_with_its_head_and_summary) {
  report.summary = "No findings.";
  Write();
  EXPECT_EQ(Pages(), 1);
  const std::string text = Text();
  for (const char* part : {"Annual Inventory QA Summary 2017", "Blue Water Exploration, RIMA company no. 12345",
                           "1 Quay Street", "Date of run: ", "2018", "No findings.", "Page 1"})
    EXPECT_NE(text.find(part), std::string::npos) << part;
}

TEST_F(ReportPdf, gives_summary_then_findings_in_their_order) {
  Section("Operator", "", 1);
  Section("Structures, January 2017", "GI, 43, A (complex 1001, structure 1)", 2);
  Section("Equipment, January 2017", "GI, 43, A (complex 1001, structure 1)", 3);
  Write();
  const std::string text = Text();
  std::size_t at = 0;
  for (const char* part :
       {"Number of findings", "Operator", "Item 0", "GI, 43, A (complex 1001, structure 1) – Structures, January 2017",
        "Item 0", "Item 1", "Equipment, January 2017", "Combustion Flare: F0", "Combustion Flare: F2", "Page 1"}) {
    const std::size_t found = text.find(part, at);
    ASSERT_NE(found, std::string::npos) << part;
    at = found + 1;
  }
}

TEST_F(ReportPdf, repeats_the_heading_on_every_page_and_numbers_them) {
  Section("Equipment, January 2017", "GI, 43, A", 200);
  Write();
  const int pages = Pages();
  ASSERT_GT(pages, 3);
  const std::string text = Text();
  EXPECT_EQ(Count(text, "Equipment, January 2017"), static_cast<std::size_t>(pages));
  EXPECT_EQ(Count(text, "(continued)"), static_cast<std::size_t>(pages) - 1);
  for (int page = 1; page <= pages; ++page) EXPECT_NE(text.find("Page " + std::to_string(page)), std::string::npos);
  for (int line = 0; line < 200; ++line)
    EXPECT_NE(text.find("Item " + std::to_string(line) + " "), std::string::npos) << line;
}

TEST_F(ReportPdf, embeds_its_fonts_and_is_valid) {
  Section("Operator", "", 3);
  Write();
  const std::string fonts = Output("pdffonts '" + path() + "' | tail -n +3");
  ASSERT_FALSE(fonts.empty());
  // embedded, whole or in part, and with a way back to the letters
  EXPECT_EQ(Count(fonts, "yes yes yes") + Count(fonts, "yes no  yes"), Count(fonts, "\n")) << fonts;
  EXPECT_EQ(Output("pdfinfo '" + path() + "' 2>&1 >/dev/null"), "");
}

TEST_F(ReportPdf, breaks_long_texts_and_loses_none_of_them) {
  const std::string word(120, 'Z');
  report.sections.push_back({"Operator", "", {{word, "an item of " + word, "what of " + word}}});
  report.findings = 1;
  Write();
  EXPECT_EQ(Count(Text(), "Z"), 360u);
  EXPECT_EQ(Pages(), 1);
}

TEST_F(ReportPdf, keeps_letters_beyond_ascii) {
  report.operator_lines = {"Société Générale du Pétrole"};
  Write();
  EXPECT_NE(Text().find("Société Générale du Pétrole"), std::string::npos);
}

TEST_F(ReportPdf, breaks_a_long_text_without_a_blank_as_fast_as_one_with_blanks) {
  const auto seconds = [&](char filler) {
    std::string text(200'000, 'z');
    for (std::size_t i = 7; i < text.size(); i += 8) text[i] = filler;
    report.sections = {{"Structures, March 2017", "GI, 43, A", {{"", "Name", text}}}};
    const auto began = std::chrono::steady_clock::now();
    Write();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  };
  const double with = seconds(' '), without = seconds('z');
  EXPECT_LT(without, 20 * with + 1);
  const std::string text = Text();
  EXPECT_EQ(Count(text, "z"), 200'000u) << "the text goes on over the pages";
  EXPECT_GT(Count(text, "(continued)"), 5u);
}

TEST_F(ReportPdf, keeps_heads_and_feet_short_whatever_they_hold) {
  const std::string text(200'000, 'W');
  report.operator_lines = {text, text};
  report.title = text;
  report.summary = text;
  Section(text, text, 200);
  Write();
  EXPECT_LT(Pages(), 50);
  EXPECT_GT(Count(Text(), "\u2026"), 0u);
}

TEST_F(ReportPdf, has_a_foot_of_one_line) {
  report.operator_lines = {std::string(120, 'W') + " end"};
  Write();
  const std::string text = Text();
  EXPECT_EQ(Count(text, "end"), 1u) << "in the head alone";
  EXPECT_EQ(Count(text, "\u2026"), 1u);
}

TEST_F(ReportPdf, tells_how_far_it_is) {
  Section("Operator", "", 5000);
  Write();
  EXPECT_GE(calls, 5);
}

TEST_F(ReportPdf, that_cannot_be_written_is_a_fault) {
  try {
    WriteReportPdf(report, folder.path("none/summary.pdf"), [](int, int) {});
    FAIL() << "a fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, fault_number::kNoSuchFolder);
  }
}

TEST_F(ReportPdf, on_a_disk_that_takes_nothing_is_a_fault) {
  ASSERT_TRUE(fs::exists("/dev/full"));
  Section("Operator", "", 2000);
  try {
    WriteReportPdf(report, "/dev/full", [](int, int) {});
    FAIL() << "a fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, fault_number::kDiskFull);
  }
}

}  // namespace
}  // namespace merlu::test
