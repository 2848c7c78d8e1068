// The month grid at its full size: 3,333 flares of one month.
//
// The plain side of the save updates both rows of each record, removes the findings that each record had, inserts those
// that the program found, and commits. It reads nothing, judges nothing and keeps no history.
#include <stdexcept>

#include "entry/month_grid.h"
#include "measures.h"
#include "plain.h"
#include "session/node_keys.h"
#include "sheets/units.h"
#include "shell/edit_modes.h"
#include "shell/sheet_acts.h"

namespace merlu::bench {
namespace {

constexpr int kMonth = 6;
constexpr const char* kHours = "txtFLA_HrsOperated";
constexpr const char* kVolume = "txtFLA_VolFlared";

// The grid on the flares of the month, as the dialog opens it.
struct OpenGrid {
  OpenGrid(const std::string& path, bool history) : opened(path), s(opened.s), grid(s) {
    s.unbacked_day = "2017-12-31";  // a backup is no part of a save
    if (!history) CloseHistory(s);
    s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=SYS_MAX_MO");
    ClickNode(s, s.tree.Find(SurveyKey(s.current.UserID, kMonth, s.year)));
  }
  void Show() { grid.ShowMonth(&TARNE_FLA(), kMonth); }
  // Everything that a grid on the screen would ask for.
  std::size_t ReadAll() const {
    std::size_t read = 0;
    for (int row = 0; row < grid.RowCount(); ++row)
      for (int column = 0; column < static_cast<int>(grid.Columns().size()); ++column)
        read += grid.Cell(row, column).text.size();
    return read;
  }
  void TypeAll() {
    const int hours = grid.FindColumn(kHours), volume = grid.FindColumn(kVolume);
    for (int row = 0; row < grid.RowCount(); ++row) {
      grid.SetCell(row, hours, std::to_string(100 + row % 700));
      grid.SetCell(row, volume, std::to_string(row) + ".5");
    }
  }

  Opened opened;
  Session& s;
  MonthGrid grid;
};

double ReadGrid(const Workshop& shop) {
  OpenGrid open(shop.FreshCopy(shop.flares, "grid-read"), true);
  return Seconds([&] { open.Show(); });
}

double JudgeCells(const Workshop& shop) {
  constexpr int kCells = 1000;
  OpenGrid open(shop.FreshCopy(shop.flares, "grid-judge"), true);
  open.Show();
  const int hours = open.grid.FindColumn(kHours);
  std::size_t read = 0;
  const double seconds = Seconds([&] {
    for (int i = 0; i < kCells; ++i) {
      open.grid.SetCell(i, hours, i % 2 == 0 ? "745" : "744");
      read += open.grid.Cell(i, hours).finding.size();
    }
  });
  if (read == 0) throw std::runtime_error("nothing was judged");
  return seconds / kCells;
}

double PlanBlock(const Workshop& shop) {
  OpenGrid open(shop.FreshCopy(shop.flares, "grid-plan"), true);
  open.Show();
  std::string block;
  for (int row = 0; row < open.grid.RowCount(); ++row) block += std::to_string(row) + "\t1,200.5\tyes\toff\n";
  std::size_t planned = 0;
  const double seconds =
      Seconds([&] { planned = open.grid.Plan(0, open.grid.FindColumn(kHours), CellsOf(block)).size(); });
  if (planned != 4 * static_cast<std::size_t>(open.grid.RowCount())) throw std::runtime_error("cells are missing");
  return seconds;
}

double SaveGrid(const Workshop& shop, bool history) {
  OpenGrid open(shop.FreshCopy(shop.flares, "grid-save"), history);
  open.Show();
  open.TypeAll();
  GridSaved saved;
  const double seconds = Seconds([&] { saved = open.grid.Save(); });
  if (saved.records != open.grid.RowCount()) throw std::runtime_error("not all was saved: " + saved.refused);
  open.opened.ExpectSilence();
  return seconds;
}

struct FlareRow {
  std::int64_t key;
  std::string user, complex, structure, id;
  double hours, volume;
};

// What the program left behind: the records as they are written, and their findings in the order of the log.
struct Written {
  std::vector<FlareRow> rows;
  std::vector<std::vector<std::string>> findings;
};

Written ReadWritten(const std::string& path) {
  Written written;
  PlainFile file(path);
  PlainStatement rows(file,
                      "SELECT a.EA_ID_AK,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_MERLU_EQUIP_ID,t.OP_HR,"
                      "t.VOL_FLARED FROM EA_EQUIP_ACTV a JOIN EA_FLA t ON t.EA_ID_AK=a.EA_ID_AK JOIN ED_EQUIP_DESC d "
                      "ON d.ED_ID_AK=a.ED_ID_AK JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK WHERE a.EA_MO=6");
  while (rows.Step())
    written.rows.push_back({rows.Integer(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4),
                            std::stod(rows.Text(5)), std::stod(rows.Text(6))});
  PlainStatement findings(file, "SELECT CmplxID,StructID,EquipID,FieldID,[Desc] FROM QC ORDER BY rowid");
  while (findings.Step()) {
    auto& finding = written.findings.emplace_back();
    for (int i = 0; i < 5; ++i) finding.push_back(findings.Text(i));
  }
  return written;
}

double SavePlain(const Workshop& shop, const Written& written) {
  PlainFile file(shop.FreshCopy(shop.flares, "grid-plain"));
  file.Run("UPDATE SYS_CONFIG SET SYS_MAX_MO=SYS_MAX_MO");
  return Seconds([&] {
    file.Run("BEGIN");
    PlainStatement values(file, "UPDATE EA_FLA SET OP_HR=?,VOL_FLARED=? WHERE EA_ID_AK=?");
    PlainStatement master(file, "UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT=NULL,EA_STATUS='A',EA_QC_DT=? WHERE EA_ID_AK=?");
    PlainStatement remove(file,
                          "DELETE FROM QC WHERE UserID=? AND CmplxID=? AND StructID=? AND EquipType='FLA' AND "
                          "EquipID=? AND EditMode='ACTV'");
    const std::string date = "2017-12-31 12:00:00";
    for (const FlareRow& row : written.rows) {
      values.BindNumber(1, row.hours).BindNumber(2, row.volume).Bind(3, row.key).Execute();
      master.Bind(1, date).Bind(2, row.key).Execute();
      remove.Bind(1, row.user).Bind(2, row.complex).Bind(3, row.structure).Bind(4, row.id).Execute();
    }
    PlainStatement insert(file,
                          "INSERT INTO QC (UserID,[Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,"
                          "[Desc],Comments,EditMode) VALUES (?,6,2017,'EQUIPMENT',?,?,'FLA',?,?,?,'','ACTV')");
    for (const std::vector<std::string>& finding : written.findings)
      insert.Bind(1, written.rows[0].user)
          .Bind(2, finding[0])
          .Bind(3, finding[1])
          .Bind(4, finding[2])
          .Bind(5, finding[3])
          .Bind(6, finding[4])
          .Execute();
    file.Run("COMMIT");
  });
}

Pair SaveBoth(const Workshop& shop, InTurn& turn, Written& written) {
  if (written.rows.empty()) {
    SaveGrid(shop, false);
    written = ReadWritten(shop.Path("grid-save"));
  }
  const Pair pair = turn([&] { return SaveGrid(shop, false); }, [&] { return SavePlain(shop, written); });
  RequireSameTables(shop.Path("grid-save"), shop.Path("grid-plain"));
  return pair;
}

}  // namespace

std::vector<Measure> GridMeasures(const Workshop& shop) {
  return {{"grid of 3,333 flares read", 0, 5,
           [&shop] {
             return Pair{ReadGrid(shop), 0};
           }},
          {"a cell of it typed and judged", 0, 5,
           [&shop] {
             return Pair{JudgeCells(shop), 0};
           }},
          {"a block of 3,333 by 4 cells planned", 0, 5,
           [&shop] {
             return Pair{PlanBlock(shop), 0};
           }},
          {"a grid save of 3,333 flares", 2, 5,
           [&shop, turn = InTurn(), written = Written()]() mutable { return SaveBoth(shop, turn, written); }},
          {"the same with its history, beside none", 1.5, 5, [&shop, turn = InTurn()]() mutable {
             return turn([&] { return SaveGrid(shop, true); }, [&] { return SaveGrid(shop, false); });
           }}};
}

}  // namespace merlu::bench
