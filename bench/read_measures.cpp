#include <memory>
#include <random>
#include <stdexcept>

#include "measures.h"
#include "plain.h"
#include "sheets/contract.h"
#include "sheets/sheet_form.h"
#include "sheets/units.h"
#include "shell/trees.h"

namespace merlu::bench {
namespace {

constexpr int kFinds = 20000;
constexpr int kMonth = 6;
// Nodes of equipment months, structure months, surveys and the operator.
std::size_t WholeTree(Session& s) {
  constexpr const char* kRows = "SELECT (SELECT COUNT(*) FROM EA_EQUIP_ACTV)+(SELECT COUNT(*) FROM PA_PLATFORM_ACTV)";
  return static_cast<std::size_t>(ToInteger(s.db.Single(kRows)) + s.last_month + 1);
}

constexpr const char* kFlaresOfMonth = R"(
    SELECT t.EA_ID_AK,d.ED_ID_AK,p.PD_ID_AK,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_MERLU_EQUIP_ID,
           a.EA_YR
    FROM EA_FLA t JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK
         JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK
    WHERE a.EA_MO=? ORDER BY t.EA_ID_AK)";
constexpr const char* kStructureMonth = "SELECT * FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=? AND PA_YR=? AND PA_MO=?";
constexpr const char* kFindings = R"(
    SELECT FieldID,[Desc],Comments FROM QC WHERE UserID=? AND CmplxID=? AND StructID=? AND EquipType=?
    AND EquipID=? AND [Month]=? AND [Year]=? ORDER BY rowid)";

constexpr const char* kTreeStructures = R"(
    SELECT a.SA_ID_AK,a.PA_MO,a.PA_YR,a.status,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,p.Area,p.Block,p.Name
    FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK ORDER BY a.SA_ID_AK)";
// Behind the name of the type's table.
constexpr const char* kTreeEquipment = R"( t
         JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK
         JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK ORDER BY t.EA_ID_AK)";
constexpr const char* kTreeColumns =
    "SELECT t.EA_ID_AK,a.EA_MO,a.EA_YR,d.ED_MERLU_EQUIP_ID,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM";

// The program and the plain side on the same file, made when the first measure asks for them.
struct Sides {
  explicit Sides(const std::string& path) : opened(path), plain(path) { opened.ExpectSilence(); }
  Opened opened;
  PlainFile plain;
  InTurn batched, alone, sheets, tree;
};

template <typename Made>
std::function<Made&()> Once(std::function<std::unique_ptr<Made>()> make) {
  auto made = std::make_shared<std::unique_ptr<Made>>();
  return [made, make]() -> Made& {
    if (!*made) *made = make();
    return **made;
  };
}

// ---- a keyed find ----

std::vector<std::int64_t> RandomKeys(Session& s) {
  const auto last = static_cast<std::uint32_t>(ToInteger(s.db.Single("SELECT MAX(EA_ID_AK) FROM EA_EQUIP_ACTV")));
  std::mt19937 random(7);
  std::vector<std::int64_t> keys;
  for (int i = 0; i < kFinds; ++i) keys.push_back(1 + random() % last);
  return keys;
}

void FindOurs(Session& s, const std::vector<std::int64_t>& keys) {
  Cursor& cursor = s.At("EA_EQUIP_ACTV");
  for (const std::int64_t key : keys) {
    cursor.FindFirst({{"EA_ID_AK", key}});
    benchmark::DoNotOptimize(ToInteger(cursor.Field("ED_ID_AK")));
  }
}

void FindPlain(PlainFile& file, const std::vector<std::int64_t>& keys) {
  PlainStatement find(file, "SELECT * FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?");
  for (const std::int64_t key : keys) benchmark::DoNotOptimize(find.Bind(1, key).ReadAll());
}

// Both sides in one transaction, as inside a QC run.
Pair FindInBatch(Sides& sides) {
  const std::vector<std::int64_t> keys = RandomKeys(sides.opened.s);
  return sides.batched(
      [&] {
        return Seconds([&] {
          WriteBatch batch(sides.opened.s.db);
          FindOurs(sides.opened.s, keys);
        });
      },
      [&] {
        return Seconds([&] {
          sides.plain.Run("BEGIN");
          FindPlain(sides.plain, keys);
          sides.plain.Run("COMMIT");
        });
      });
}

// Both sides find by find, as after a click.
Pair FindAlone(Sides& sides) {
  const std::vector<std::int64_t> keys = RandomKeys(sides.opened.s);
  return sides.alone([&] { return Seconds([&] { FindOurs(sides.opened.s, keys); }); },
                     [&] { return Seconds([&] { FindPlain(sides.plain, keys); }); });
}

// ---- a hidden sheet ----

struct FlareMonth {
  std::int64_t EA_ID_AK, ED_ID_AK, PD_ID_AK;
  QCLocation location;
};

std::vector<FlareMonth> FlareMonths(Session& s) {
  std::vector<FlareMonth> flares;
  s.db.ForEach(kFlaresOfMonth, {std::int64_t{kMonth}}, [&](const RowView& row) {
    QCLocation location;
    location.Level = level::kEquipment;
    location.UserID = row.Text(3);
    location.Month = kMonth;
    location.Year = static_cast<int>(row.Integer(7));
    location.CmplxID = row.Text(4);
    location.StructID = row.Text(5);
    location.EquipType = "FLA";
    location.EquipID = row.Text(6);
    flares.push_back({row.Integer(0), row.Integer(1), row.Integer(2), location});
  });
  return flares;
}

// What a QC run does with each sheet, but for its rules: load it hidden, fill it, drop it.
void LoadSheets(Session& s, const std::vector<FlareMonth>& flares) {
  const SheetSpec& sheet = *FindSheet("FLA");
  WriteBatch batch(s.db);
  for (const FlareMonth& flare : flares) {
    s.current = flare.location;
    s.EA_ID_AK = flare.EA_ID_AK;
    SheetForm(s, sheet);
    ClearFrame(s, sheet);
    LoadFrame(s, sheet);
    LockFrame(s, sheet);
    UnloadSheet(s, sheet);
  }
}

// The rows that such a sheet is filled from, each by its key, and its findings.
void ReadSheetRows(PlainFile& file, const std::vector<FlareMonth>& flares) {
  PlainStatement by_month[] = {{file, "SELECT * FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?"},
                               {file, "SELECT * FROM EA_FLA WHERE EA_ID_AK=?"}};
  PlainStatement by_equipment[] = {{file, "SELECT * FROM ED_EQUIP_DESC WHERE ED_ID_AK=?"},
                                   {file, "SELECT * FROM ED_FLA WHERE ED_ID_AK=?"}};
  PlainStatement structure(file, "SELECT * FROM PD_PLATFORM_DESC WHERE PD_ID_AK=?");
  PlainStatement structure_month(file, kStructureMonth);
  PlainStatement findings(file, kFindings);
  file.Run("BEGIN");
  std::size_t sum = 0;
  for (const FlareMonth& flare : flares) {
    const QCLocation& l = flare.location;
    for (PlainStatement& row : by_month) sum += row.Bind(1, flare.EA_ID_AK).ReadAll();
    for (PlainStatement& row : by_equipment) sum += row.Bind(1, flare.ED_ID_AK).ReadAll();
    sum += structure.Bind(1, flare.PD_ID_AK).ReadAll();
    sum += structure_month.Bind(1, flare.PD_ID_AK).Bind(2, l.Year).Bind(3, l.Month).ReadAll();
    findings.Bind(1, l.UserID).Bind(2, l.CmplxID).Bind(3, l.StructID).Bind(4, l.EquipType).Bind(5, l.EquipID);
    sum += findings.Bind(6, l.Month).Bind(7, l.Year).ReadAll();
  }
  file.Run("COMMIT");
  benchmark::DoNotOptimize(sum);
}

Pair LoadFlares(Sides& sides) {
  const std::vector<FlareMonth> flares = FlareMonths(sides.opened.s);
  const Pair pair = sides.sheets([&] { return Seconds([&] { LoadSheets(sides.opened.s, flares); }); },
                                 [&] { return Seconds([&] { ReadSheetRows(sides.plain, flares); }); });
  sides.opened.ExpectSilence();
  return pair;
}

// ---- the tree of activity ----

// The rows that the tree is made of, each table in one query.
void ReadTreeRows(PlainFile& file) {
  file.Run("BEGIN");
  std::size_t sum = PlainStatement(file, kTreeStructures).ReadAll();
  for (const std::string& type : MonthlyTypes())
    sum += PlainStatement(file, std::string(kTreeColumns) + " FROM EA_" + type + kTreeEquipment).ReadAll();
  file.Run("COMMIT");
  benchmark::DoNotOptimize(sum);
}

Pair BuildTree(Sides& sides) {
  const Pair pair = sides.tree([&] { return Seconds([&] { RefreshTree(sides.opened.s); }); },
                               [&] { return Seconds([&] { ReadTreeRows(sides.plain); }); });
  if (sides.opened.s.tree.nodes.size() != WholeTree(sides.opened.s))
    throw std::runtime_error("the tree is not the full one");
  sides.opened.ExpectSilence();
  return pair;
}

}  // namespace

std::vector<Measure> StartMeasures(const Workshop& shop) {
  const auto start = [](const std::string& path) {
    return [path] {
      std::unique_ptr<Opened> opened;
      const double seconds = Seconds([&] { opened = std::make_unique<Opened>(path); });
      opened->ExpectSilence();
      return Pair{seconds, 0};
    };
  };
  return {
      {"start on an everyday file", 0, 20, start(shop.everyday)},
      {"start on a full file", 0, 5, start(shop.full)},
  };
}

std::vector<Measure> ReadMeasures(const Workshop& shop) {
  const auto full = Once<Sides>([path = shop.full] { return std::make_unique<Sides>(path); });
  const auto flares = Once<Sides>([path = shop.flares] { return std::make_unique<Sides>(path); });
  return {
      {"20,000 keyed finds, one transaction", 1.3, 11, [full] { return FindInBatch(full()); }},
      {"20,000 keyed finds, each on its own", 1.3, 11, [full] { return FindAlone(full()); }},
      {"3,333 hidden flare sheets", 0, 11, [flares] { return LoadFlares(flares()); }},
      {"tree of 39,996 equipment months", 2, 11, [full] { return BuildTree(full()); }},
  };
}

}  // namespace merlu::bench
