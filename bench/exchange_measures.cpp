#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "exchange/export_file.h"
#include "exchange/import_file.h"
#include "exchange/structure_import.h"
#include "measures.h"
#include "plain.h"
#include "session/folders.h"

namespace merlu::bench {
namespace fs = std::filesystem;
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

// The whole file copied, and written anew as small as it is.
double ExportPlain(const Workshop& shop) {
  const std::string from = shop.FreshCopy(shop.full, "export-from");
  const std::string copy = shop.NewPath("export-copy"), target = shop.NewPath("export-plain");
  return Seconds([&] {
    fs::copy_file(from, copy);
    PlainFile(copy).Run(("VACUUM INTO '" + target + "'").c_str());
    BringToDisk(target);
  });
}

// ---- import ----

// An inventory of twelve months with one structure that the imported ones do not meet.
std::string Target(const Workshop& shop, const std::string& name) {
  const std::string path = shop.FreshCopy(shop.single, name);
  PlainFile(path).Run("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='Z' || CMPLX_ID_NUM");
  BringToDisk(path);
  return path;
}

double ImportOurs(const Workshop& shop) {
  Opened opened(Target(shop, "import-ours"));
  Session& s = opened.s;
  s.exchange.OpenPrivateCopy(shop.full);
  std::vector<StructureName> all;
  for (const ListedStructure& structure : ListStructures(s.exchange)) all.push_back(structure.name);
  const double seconds = Seconds([&] { ImportStructures(s, s.exchange, all, Import::kDo); });
  opened.ExpectSilence();
  return seconds;
}

std::string JoinedCopy(Database& layout, const std::string& table) {
  std::string columns, joins;
  for (const Values& column : layout.Query("SELECT name FROM pragma_table_info(?)", {table}).rows) {
    const std::string name = NullToEmpty(column[0]);
    columns += columns.empty() ? "" : ",";
    if (name == "PD_ID_AK" || name == "ED_ID_AK" || name == "EA_ID_AK" || name == "SA_ID_AK") {
      columns += name + "_map.new";
      joins += " JOIN temp." + name + "_map ON " + name + "_map.old=f." + name;
    } else {
      columns += "f.\"" + name + "\"";
    }
  }
  return "INSERT INTO main." + table + " SELECT " + columns + " FROM source." + table + " f" + joins;
}

// The same rows in sets, with new keys by joins with tables that are keyed by the old ones.
double ImportPlain(const Workshop& shop) {
  const std::string target = Target(shop, "import-plain");
  std::vector<std::string> copies;
  {
    Database layout;
    layout.Open(target);
    for (const std::string& table : ImportTables()) copies.push_back(JoinedCopy(layout, table));
  }
  PlainFile file(target);
  return Seconds([&] {
    file.Run(("ATTACH '" + shop.full + "' AS source").c_str());
    file.Run("BEGIN");
    for (const auto& [key, table] :
         {std::pair{"PD_ID_AK", "PD_PLATFORM_DESC"}, std::pair{"SA_ID_AK", "PA_PLATFORM_ACTV"},
          std::pair{"ED_ID_AK", "ED_EQUIP_DESC"}, std::pair{"EA_ID_AK", "EA_EQUIP_ACTV"}})
      file.Run((std::string("CREATE TEMP TABLE ") + key +
                "_map (old INTEGER PRIMARY KEY,new INTEGER);INSERT INTO temp." + key + "_map SELECT " + key + "," +
                key + "+(SELECT MAX(" + key + ") FROM main." + table + ") FROM source." + table)
                   .c_str());
    for (const std::string& copy : copies) file.Run(copy.c_str());
    file.Run("COMMIT");
  });
}

}  // namespace

std::vector<Measure> ExchangeMeasures(const Workshop& shop) {
  return {{"export of one survey of 39,996 equipment months", 1.5, 5,
           [&shop, turn = InTurn()]() mutable {
             return turn([&] { return ExportOurs(shop); }, [&] { return ExportPlain(shop); });
           }},
          {"import of 300 structures, 39,996 equipment months", 2, 5, [&shop, turn = InTurn()]() mutable {
             return turn([&] { return ImportOurs(shop); }, [&] { return ImportPlain(shop); });
           }}};
}

}  // namespace merlu::bench
