#include <string>

#include "measures.h"
#include "plain.h"
#include "records/survey_record.h"

namespace merlu::bench {
namespace {

constexpr std::int64_t kNewMonth = 12;

std::int64_t ReadNumber(PlainFile& file, const char* sql) {
  PlainStatement query(file, sql);
  query.Step();
  return query.Integer(0);
}

// The same rows with the same keys, each table in one statement.
void InsertMonth(PlainFile& file) {
  file.Run("BEGIN");
  const std::int64_t year = ReadNumber(file, "SELECT sys_yr FROM SYS_CONFIG");
  const std::int64_t last_SA_ID_AK = ReadNumber(file, "SELECT MAX(SA_ID_AK) FROM PA_PLATFORM_ACTV") + 1;
  const std::int64_t last_EA_ID_AK = ReadNumber(file, "SELECT MAX(EA_ID_AK) FROM EA_EQUIP_ACTV");
  PlainStatement(file,
                 "INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_MO,PA_YR,status) "
                 "SELECT ?+ROW_NUMBER() OVER (ORDER BY PD_ID_AK),PD_ID_AK,?,?,'A' FROM PD_PLATFORM_DESC")
      .Bind(1, last_SA_ID_AK)
      .Bind(2, kNewMonth)
      .Bind(3, year)
      .Execute();
  PlainStatement(file,
                 "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_YR,EA_MO,EA_EQUIP_TYP) "
                 "SELECT ?+ROW_NUMBER() OVER (ORDER BY ED_ID_AK),ED_ID_AK,?,?,ED_EQUIP_TYP FROM ED_EQUIP_DESC")
      .Bind(1, last_EA_ID_AK)
      .Bind(2, year)
      .Bind(3, kNewMonth)
      .Execute();
  for (const std::string& type : MonthlyTypes())
    PlainStatement(file, "INSERT INTO EA_" + type +
                             " (EA_ID_AK) SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_ID_AK>? AND EA_EQUIP_TYP=?")
        .Bind(1, last_EA_ID_AK)
        .Bind(2, type)
        .Execute();
  file.Run("UPDATE SYS_CONFIG SET SYS_MAX_MO=12");
  file.Run("COMMIT");
}

double AddOurs(const Workshop& shop, bool history) {
  Opened opened(shop.FreshCopy(shop.eleven, "month-ours"));
  if (!history) CloseHistory(opened.s);
  const double seconds = Seconds([&] { AddMonthRows(opened.s); });
  opened.ExpectSilence();
  return seconds;
}

double AddPlain(const Workshop& shop) {
  PlainFile file(shop.FreshCopy(shop.eleven, "month-plain"));
  return Seconds([&] { InsertMonth(file); });
}

}  // namespace

std::vector<Measure> MonthMeasures(const Workshop& shop) {
  const auto add = [&shop](bool history) {
    return [&shop, history, turn = InTurn()]() mutable {
      const Pair pair = turn([&] { return AddOurs(shop, history); }, [&] { return AddPlain(shop); });
      RequireSameTables(shop.Path("month-ours"), shop.Path("month-plain"));
      return pair;
    };
  };
  return {{"a month of 3,333 equipment, with its commit", 1.2, 15, add(false)},
          {"the same month with its history", 2.2, 15, add(true)}};
}

}  // namespace merlu::bench
