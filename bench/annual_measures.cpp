// The annual pass beside a plain read of the same tables and a plain insert of the same findings; and the PDF.
#include <memory>
#include <stdexcept>

#include "host/report_pdf.h"
#include "inventory_qc/inventory_run.h"
#include "measures.h"
#include "plain.h"
#include "session/types.h"

namespace merlu::bench {
namespace {

constexpr int kPrinted = 10000;

// Every row that the pass looks at, by one join a type.
std::size_t ReadTables(PlainFile& file, const std::vector<std::string>& codes) {
  std::size_t sum = PlainStatement(file, "SELECT * FROM CO_COMPANY").ReadAll();
  sum += PlainStatement(file, "SELECT * FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK")
             .ReadAll();
  for (const std::string& code : codes)
    sum += PlainStatement(file, "SELECT * FROM EA_" + code +
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

double RunPlain(const Workshop& shop, const std::string& judged) {
  PlainFile findings(judged);
  std::vector<std::vector<std::string>> rows;
  PlainStatement query(findings, "SELECT * FROM QCInventory ORDER BY rowid");
  constexpr int kColumns = 12;
  while (query.Step()) {
    auto& row = rows.emplace_back();
    for (int i = 0; i < kColumns; ++i) row.push_back(query.Text(i));
  }
  PlainFile file(shop.FreshCopy(shop.full, "annual-plain"));
  std::size_t sum = 0;
  const double seconds = Seconds([&] {
    file.Run("BEGIN");
    sum = ReadTables(file, ActivityTypes());
    PlainStatement insert(file, "INSERT INTO QCInventory VALUES (?,?,?,?,?,?,?,?,?,?,?,?)");
    for (const auto& row : rows) {
      for (int i = 0; i < kColumns; ++i) insert.Bind(i + 1, row[static_cast<std::size_t>(i)]);
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
  return {{"annual pass over 39,996 equipment months", 3, 5,
           [&shop] {
             const std::string path = shop.FreshCopy(shop.full, "annual-ours");
             const double ours = RunOurs(path);
             return Pair{ours, RunPlain(shop, path)};
           }},
          {"PDF of 10,000 findings", 0, 5, [&shop] {
             const InventoryReport report = LongReport();
             const std::string path = shop.FreshCopy(shop.everyday, "report");
             return Pair{Seconds([&] { WriteReportPdf(report, path, [](int, int) {}); }), 0};
           }}};
}

}  // namespace merlu::bench
