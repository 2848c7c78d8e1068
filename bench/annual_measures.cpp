// The annual pass beside a plain read of the columns that it judges, and a plain insert of the same findings; and the
// PDF.
#include <memory>
#include <stdexcept>

#include "host/report_pdf.h"
#include "inventory_qc/checks_table.h"
#include "inventory_qc/inventory_run.h"
#include "measures.h"
#include "plain.h"
#include "session/types.h"

namespace merlu::bench {
namespace {

constexpr int kPrinted = 10000;

using Findings = std::vector<std::vector<std::string>>;  // columns in the order of the table
constexpr int kFindingColumns = 12;

// The columns of the table that the pass judges, each with a comma in front.
std::string JudgedColumns(std::string_view pass, std::string_view table, const std::string& row) {
  std::string columns;
  for (const InventoryRow& line : InventoryChecks())
    if (line.pass == pass && line.table == table && !line.column.empty())
      columns += "," + row + ".[" + std::string(line.column) + "]";
  return columns;
}

// The rows that the pass reads, by one join per type: the judged columns and the place.
std::size_t ReadTables(PlainFile& file, const std::vector<std::string>& codes) {
  constexpr const char* kPlace = "p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM";
  std::size_t sum =
      PlainStatement(file, "SELECT c.RIMA_CO_NUM" + JudgedColumns("USER", "CO_COMPANY", "c") + " FROM CO_COMPANY c")
          .ReadAll();
  std::string gases;
  for (const char* gas : {"O2", "CO2", "N2", "C1", "C2", "C3", "iC4", "nC4", "iC5", "nC5", "C6", "C7", "C8Plus", "H2S"})
    gases += std::string(",p.SalesGas") + gas + "Content";
  sum += PlainStatement(file, std::string("SELECT a.PA_MO,a.PA_YR,a.status,") + kPlace + gases +
                                  JudgedColumns("STRUCTURE", "PD_PLATFORM_DESC", "p") +
                                  JudgedColumns("STRUCTURE", "PA_PLATFORM_ACTV", "a") +
                                  " FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK")
             .ReadAll();
  for (const std::string& code : codes)
    sum += PlainStatement(file, std::string("SELECT a.EA_STATUS,a.EA_MO,a.EA_YR,d.ED_MERLU_EQUIP_ID,") + kPlace +
                                    JudgedColumns(code, "EA_" + code, "t") + " FROM EA_" + code +
                                    " t JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK "
                                    "JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK "
                                    "JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK")
               .ReadAll();
  return sum;
}

double RunOurs(const std::string& path) {
  Opened opened(path);
  opened.ExpectSilence();
  const double seconds = Seconds([&] { RunInventoryPasses(opened.s); });
  opened.ExpectSilence();
  return seconds;
}

std::vector<std::string> ActivityTypes() {
  return {"AMI", "BOI", "DIE", "FLA", "GLY", "DRI", "MUD", "NGE", "NGT", "LOA", "LOS", "PNE", "PRE", "STO", "VEN"};
}

Findings ReadFindings(const std::string& judged) {
  PlainFile file(judged);
  Findings findings;
  PlainStatement query(file, "SELECT * FROM QCInventory ORDER BY rowid");
  while (query.Step()) {
    auto& finding = findings.emplace_back();
    for (int i = 0; i < kFindingColumns; ++i) finding.push_back(query.Text(i));
  }
  return findings;
}

double RunPlain(const std::string& path, const Findings& findings) {
  PlainFile file(path);
  std::size_t sum = 0;
  const double seconds = Seconds([&] {
    file.Run("BEGIN");
    sum = ReadTables(file, ActivityTypes());
    PlainStatement insert(file, "INSERT INTO QCInventory VALUES (?,?,?,?,?,?,?,?,?,?,?,?)");
    for (const auto& finding : findings) {
      for (int i = 0; i < kFindingColumns; ++i) insert.Bind(i + 1, finding[static_cast<std::size_t>(i)]);
      insert.Execute();
    }
    file.Run("COMMIT");
  });
  benchmark::DoNotOptimize(sum);
  return seconds;
}

InventoryReport LongReport() {
  InventoryReport report;
  report.title = "Annual Inventory QA Summary";
  report.operator_lines = {"Blue Water Exploration, RIMA company no. 12345"};
  report.year = "2017";
  report.printed = {2018, 3, 5, 9, 7, 0};
  report.summary = "A long one";
  for (int i = 0; i < kPrinted; ++i) {
    const std::string number = std::to_string(i);
    if (i % 50 == 0) report.sections.push_back({"Equipment, March 2017", "GI, 43, Platform " + number, {}});
    report.sections.back().lines.push_back(
        {"Combustion Flare: F" + number, "Flare Gas H2S Concentration", "Required field left blank"});
  }
  report.findings = kPrinted;
  return report;
}

}  // namespace

std::vector<Measure> AnnualMeasures(const Workshop& shop) {
  const auto run = [&shop, turn = InTurn(), findings = Findings()]() mutable {
    if (findings.empty()) {
      const std::string judged = shop.FreshCopy(shop.full, "annual-ours");
      RunOurs(judged);
      findings = ReadFindings(judged);
    }
    const Pair pair = turn([&] { return RunOurs(shop.FreshCopy(shop.full, "annual-ours")); },
                           [&] { return RunPlain(shop.FreshCopy(shop.full, "annual-plain"), findings); });
    RequireSameTables(shop.Path("annual-ours"), shop.Path("annual-plain"));
    return pair;
  };
  return {{"annual pass over 39,996 equipment months", 1.5, 9, run},
          {"PDF of 10,000 findings", 0, 5, [&shop] {
             const InventoryReport report = LongReport();
             const std::string path = shop.FreshCopy(shop.everyday, "report");
             return Pair{Seconds([&] { WriteReportPdf(report, path, [](int, int) {}); }), 0};
           }}};
}

}  // namespace merlu::bench
