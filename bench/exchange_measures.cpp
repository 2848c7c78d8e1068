#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "exchange/export_file.h"
#include "exchange/import_file.h"
#include "exchange/structure_import.h"
#include "measures.h"
#include "plain.h"
#include "session/folders.h"

namespace merlu::bench {
namespace {

constexpr int kMonth = 6;

void BringToDisk(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDWR);
  ::fsync(file);
  ::close(file);
}

// ---- export ----

double ExportOurs(const Workshop& shop) {
  Opened opened(shop.FreshCopy(shop.full, "export-from"));
  Session& s = opened.s;
  opened.platform.free_bytes = std::uint64_t{1} << 40;
  const std::string target = shop.NewPath("export-ours");
  const double seconds = Seconds([&] {
    WriteExport(OwnFilesOf(s), s.db, target, opened.platform.free_bytes,
                [&](Database& copy) { DeleteOtherMonths(copy, kMonth, s.year); });
  });
  opened.ExpectSilence();
  return seconds;
}

// A new file of the same layout, the rows of the month and of the descriptions inserted in sets, indexes made last.
double ExportPlain(const Workshop& shop) {
  const std::string from = shop.FreshCopy(shop.full, "export-from"), target = shop.NewPath("export-plain");
  std::ofstream(target).close();
  return Seconds([&] {
    {
      PlainFile file(target);
      file.Run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA foreign_keys=OFF");
      file.Run(("ATTACH '" + from + "' AS source; BEGIN").c_str());
      std::vector<std::string> tables, rest;
      PlainStatement schema(file, "SELECT type='table',name,sql FROM source.sqlite_schema WHERE sql IS NOT NULL");
      while (schema.Step()) {
        if (schema.Integer(0) != 0) {
          file.Run(schema.Text(2).c_str());
          tables.push_back(schema.Text(1));
        } else {
          rest.push_back(schema.Text(2));
        }
      }
      const std::string month = "=" + std::to_string(kMonth), year = "=" + std::to_string(InventoryPlan{}.year);
      file.Run(("INSERT INTO main.EA_EQUIP_ACTV SELECT * FROM source.EA_EQUIP_ACTV WHERE EA_MO" + month + " AND EA_YR" +
                year + " ORDER BY rowid")
                   .c_str());
      for (const std::string& table : tables) {
        if (table == "EA_EQUIP_ACTV") continue;
        std::string which;
        if (table == "PA_PLATFORM_ACTV") which = " WHERE PA_MO" + month + " AND PA_YR" + year;
        if (table.starts_with("EA_")) which = " WHERE EA_ID_AK IN (SELECT EA_ID_AK FROM main.EA_EQUIP_ACTV)";
        file.Run(("INSERT INTO main.[" + table + "] SELECT * FROM source.[" + table + "]" + which).c_str());
      }
      for (const std::string& sql : rest) file.Run(sql.c_str());
      file.Run("COMMIT");
    }
    BringToDisk(target);
  });
}

// ---- import ----

// An inventory of twelve months with one structure, other than the imported ones.
std::string Target(const Workshop& shop, const std::string& name) {
  const std::string path = shop.FreshCopy(shop.single, name);
  PlainFile(path).Run("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='Z' || CMPLX_ID_NUM");
  BringToDisk(path);
  return path;
}

double ImportOurs(const Workshop& shop, bool history) {
  Opened opened(Target(shop, "import-ours"));
  Session& s = opened.s;
  if (!history) CloseHistory(s);
  s.exchange.OpenPrivateCopy(shop.full);
  std::vector<StructureName> all;
  for (const ListedStructure& structure : ListStructures(s.exchange)) all.push_back(structure.name);
  ImportPlan plan;
  const double seconds = Seconds([&] { plan = ImportStructures(s, s.exchange, all, Import::kDo); });
  if (!plan.adds) throw std::runtime_error(plan.refusal);
  opened.ExpectSilence();
  return seconds;
}

std::string JoinedCopy(Database& layout, const std::string& table) {
  std::string columns, joins;
  for (const Values& column : layout.Query("SELECT name FROM pragma_table_info(?)", {table}).rows) {
    const std::string name = NullToEmpty(column[0]);
    columns += columns.empty() ? "" : ",";
    if (name == "RIMA_CO_NUM") {
      columns += "(SELECT RIMA_CO_NUM FROM main.CO_COMPANY)";
    } else if (name == "PA_YR" || name == "EA_YR") {
      columns += "(SELECT sys_yr FROM main.SYS_CONFIG)";
    } else if (name == "PD_ID_AK" || name == "ED_ID_AK" || name == "EA_ID_AK" || name == "SA_ID_AK") {
      columns += name + "_map.new";
      joins += " JOIN temp." + name + "_map ON " + name + "_map.old=f." + name;
    } else {
      columns += "f.\"" + name + "\"";
    }
  }
  return "INSERT INTO main." + table + " SELECT " + columns + " FROM source." + table + " f" + joins;
}

// What would make an import wrong, asked in sets: a structure that is there already, a piece or a month twice, a piece
// without its description, a month without its row.
std::vector<std::string> Complaints() {
  std::vector<std::string> queries = {
      "SELECT 1 FROM source.PD_PLATFORM_DESC s JOIN main.PD_PLATFORM_DESC m ON m.CMPLX_ID_NUM=s.CMPLX_ID_NUM AND "
      "m.STRUCT_NUM=s.STRUCT_NUM",
      "SELECT 1 FROM source.PA_PLATFORM_ACTV GROUP BY PD_ID_AK,PA_YR,PA_MO HAVING COUNT(*)>1",
      "SELECT 1 FROM source.ED_EQUIP_DESC GROUP BY PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID HAVING COUNT(*)>1",
      "SELECT 1 FROM source.EA_EQUIP_ACTV GROUP BY ED_ID_AK,EA_YR,EA_MO HAVING COUNT(*)>1"};
  std::string pieces, months;
  for (const std::string& type : MonthlyTypes()) {
    pieces += "+(SELECT COUNT(*) FROM source.ED_" + type + ")";
    months += "+(SELECT COUNT(*) FROM source.EA_" + type + ")";
  }
  queries.push_back("SELECT 1 WHERE (SELECT COUNT(*) FROM source.ED_EQUIP_DESC)<>" + pieces.substr(1));
  queries.push_back("SELECT 1 WHERE (SELECT COUNT(*) FROM source.EA_EQUIP_ACTV)<>" + months.substr(1));
  return queries;
}

// The next free keys for those of the file, in its order.
void NumberKeys(PlainFile& file, const std::string& key, const std::string& table) {
  file.Run("CREATE TEMP TABLE numbered (number INTEGER PRIMARY KEY,old INTEGER)");
  file.Run(("INSERT INTO temp.numbered (old) SELECT " + key + " FROM source." + table + " ORDER BY rowid").c_str());
  file.Run(("CREATE TEMP TABLE " + key + "_map (old INTEGER PRIMARY KEY,new INTEGER)").c_str());
  file.Run(("INSERT INTO temp." + key + "_map SELECT old,number+(SELECT IFNULL(MAX(" + key + "),0) FROM main." + table +
            ") FROM temp.numbered")
               .c_str());
  file.Run("DROP TABLE temp.numbered");
}

// The same rows in sets, with new keys by joins with tables that are keyed by the old ones, and the operator and the
// year of the inventory.
double ImportPlain(const Workshop& shop) {
  const std::string target = Target(shop, "import-plain");
  std::vector<std::string> copies;
  {
    Database layout;
    layout.Open(target);
    for (const std::string& table : ImportTables()) copies.push_back(JoinedCopy(layout, table));
  }
  const std::vector<std::string> complaints = Complaints();
  PlainFile file(target);
  return Seconds([&] {
    file.Run(("ATTACH '" + shop.full + "' AS source").c_str());
    for (const std::string& complaint : complaints)
      if (PlainStatement(file, complaint).Step()) throw std::runtime_error("plain side: the file is not sound");
    file.Run("BEGIN");
    for (const auto& [key, table] :
         {std::pair{"PD_ID_AK", "PD_PLATFORM_DESC"}, std::pair{"SA_ID_AK", "PA_PLATFORM_ACTV"},
          std::pair{"ED_ID_AK", "ED_EQUIP_DESC"}, std::pair{"EA_ID_AK", "EA_EQUIP_ACTV"}})
      NumberKeys(file, key, table);
    for (const std::string& copy : copies) file.Run(copy.c_str());
    file.Run("COMMIT");
  });
}

}  // namespace

std::vector<Measure> ExchangeMeasures(const Workshop& shop) {
  const auto import = [&shop](bool history) {
    return [&shop, history, turn = InTurn()]() mutable {
      const Pair pair = turn([&] { return ImportOurs(shop, history); }, [&] { return ImportPlain(shop); });
      RequireSameTables(shop.Path("import-ours"), shop.Path("import-plain"));
      return pair;
    };
  };
  return {{"export of one survey of 39,996 equipment months", 1.5, 5,
           [&shop, turn = InTurn()]() mutable {
             const Pair pair = turn([&] { return ExportOurs(shop); }, [&] { return ExportPlain(shop); });
             RequireSameTables(shop.Path("export-ours"), shop.Path("export-plain"));
             return pair;
           }},
          {"import of 300 structures, 39,996 equipment months", 2, 5, import(false)},
          {"the same import with its history", 3.6, 5, import(true)}};
}

}  // namespace merlu::bench
