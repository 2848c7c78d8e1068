#include <algorithm>

#include "command/commands.h"
#include "command/lines.h"
#include "command/out_file.h"
#include "command/private_copy.h"
#include "command/quiet.h"
#include "review/hand_in.h"
#include "review/hand_in_report.h"
#include "session/program_name.h"

namespace merlu {
namespace {

void WriteReport(const Request& request, HandInReport report, Console& console) {
  Quiet quiet;
  report.printed = quiet.Now();
  report.program = ProgramName();
  if (console.need_fonts) console.need_fonts();
  WriteOut(request, [&](const std::string& path) { quiet.WriteHandInReport(report, path); });
}

}  // namespace

Status TellReadiness(const Request& request, Console& console) {
  const std::string& file = request.words.front();
  const int month = request.Number("--month");
  PrivateCopy copy(file);
  if (month != 0 &&
      IsNull(copy.db.Single("SELECT 1 FROM PA_PLATFORM_ACTV WHERE PA_MO=? LIMIT 1", {std::int64_t{month}}))) {
    Complain(console, "ready", file, "It has no month " + request.Text("--month") + ".");
    return Status::kSomething;
  }
  const Review review = MakeReview(copy.db, copy.companion);
  const std::vector<HandInRow> rows = HandInChecks(copy.db, copy.companion, review, month);
  const auto stops = std::count_if(rows.begin(), rows.end(), [](const HandInRow& row) { return row.state == "stop"; });
  if (request.Has("-o")) WriteReport(request, MakeHandInReport(copy.db, review, rows, month), console);
  const bool json = request.Text("--format") == "json";
  for (const HandInRow& row : rows) {
    if (json)
      console.out << JsonLine({{"state", row.state}, {"check", row.check}, {"count", row.count}});
    else
      console.out << OneLine(row.state + ": " + row.check + ": " + Thousands(row.count)) << "\n";
  }
  if (json)
    console.out << JsonLine({{"ready", stops == 0}, {"stops", stops}});
  else
    console.out << HandInVerdict(rows) << "\n";
  return stops == 0 ? Status::kWell : Status::kSomething;
}

}  // namespace merlu
