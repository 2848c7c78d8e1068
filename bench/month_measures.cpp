#include <map>
#include <string>

#include "measures.h"
#include "plain.h"
#include "records/survey_record.h"

namespace merlu::bench {
namespace {

constexpr std::int64_t kNewMonth = 12;

// What a plain program has to know before it writes a month.
struct MonthToAdd {
  std::vector<std::int64_t> structures;
  struct Piece {
    std::int64_t ED_ID_AK;
    std::string type;
  };
  std::vector<Piece> equipment;
  std::int64_t last_SA_ID_AK = 0, last_EA_ID_AK = 0, year = 0;
};

std::int64_t ReadNumber(PlainFile& file, const char* sql) {
  PlainStatement query(file, sql);
  query.Step();
  return query.Integer(0);
}

MonthToAdd ReadMonthToAdd(PlainFile& file) {
  MonthToAdd month;
  PlainStatement structures(file, "SELECT PD_ID_AK FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK");
  while (structures.Step()) month.structures.push_back(structures.Integer(0));
  PlainStatement equipment(file, "SELECT ED_ID_AK,ED_EQUIP_TYP FROM ED_EQUIP_DESC ORDER BY ED_ID_AK");
  while (equipment.Step()) month.equipment.push_back({equipment.Integer(0), equipment.Text(1)});
  month.last_SA_ID_AK = ReadNumber(file, "SELECT MAX(SA_ID_AK) FROM PA_PLATFORM_ACTV");
  month.last_EA_ID_AK = ReadNumber(file, "SELECT MAX(EA_ID_AK) FROM EA_EQUIP_ACTV");
  month.year = ReadNumber(file, "SELECT sys_yr FROM SYS_CONFIG");
  return month;
}

// The same rows with the same keys, row by row with prepared statements.
void InsertMonth(PlainFile& file, const MonthToAdd& month) {
  const std::string active = "A";
  PlainStatement structure(file,
                           "INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_MO,PA_YR,status) VALUES (?,?,?,?,?)");
  PlainStatement master(file,
                        "INSERT INTO EA_EQUIP_ACTV (EA_ID_AK,ED_ID_AK,EA_YR,EA_MO,EA_EQUIP_TYP) VALUES (?,?,?,?,?)");
  std::map<std::string, PlainStatement> by_type;
  for (const std::string& type : MonthlyTypes())
    by_type.emplace(type, PlainStatement(file, "INSERT INTO EA_" + type + " (EA_ID_AK) VALUES (?)"));
  std::int64_t SA_ID_AK = month.last_SA_ID_AK + 1, EA_ID_AK = month.last_EA_ID_AK;
  file.Run("BEGIN");
  for (const std::int64_t PD_ID_AK : month.structures)
    structure.Bind(1, ++SA_ID_AK).Bind(2, PD_ID_AK).Bind(3, kNewMonth).Bind(4, month.year).Bind(5, active).Execute();
  for (const MonthToAdd::Piece& piece : month.equipment) {
    master.Bind(1, ++EA_ID_AK)
        .Bind(2, piece.ED_ID_AK)
        .Bind(3, month.year)
        .Bind(4, kNewMonth)
        .Bind(5, piece.type)
        .Execute();
    by_type.at(piece.type).Bind(1, EA_ID_AK).Execute();
  }
  file.Run("UPDATE SYS_CONFIG SET SYS_MAX_MO=12");
  file.Run("COMMIT");
}

double AddOurs(const Workshop& shop) {
  Opened opened(shop.FreshCopy(shop.eleven, "month-ours"));
  const double seconds = Seconds([&] { AddMonthRows(opened.s); });
  opened.ExpectSilence();
  return seconds;
}

double AddPlain(const Workshop& shop) {
  PlainFile file(shop.FreshCopy(shop.eleven, "month-plain"));
  const MonthToAdd month = ReadMonthToAdd(file);
  return Seconds([&] { InsertMonth(file, month); });
}

}  // namespace

std::vector<Measure> MonthMeasures(const Workshop& shop) {
  return {{"a month of 3,333 equipment, with its commit", 2, 15, [&shop] {
             const double ours = AddOurs(shop);
             return Pair{ours, AddPlain(shop)};
           }}};
}

}  // namespace merlu::bench
