#include "entry/month_book.h"

#include <algorithm>
#include <set>

#include "base/number_entry.h"
#include "base/text.h"
#include "session/node_keys.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/record_rows.h"
#include "sheets/structure.h"
#include "sheets/units.h"

namespace merlu {
namespace {

constexpr std::size_t kLongestTitle = 31;

// What the rules expect of a field in a month: "0 to 744".
std::string HintOf(const RuleSet& rules, const std::string& control) {
  std::vector<std::string> wants;
  for (const RuleGroup& group : rules.groups())
    for (const Rule& rule : group.rules) {
      const std::string& want = rule.check.expected;
      if (rule.field != control || !RunsIn(rule.mode, Mode::kActv) || want.empty()) continue;
      if (std::find(wants.begin(), wants.end(), want) == wants.end()) wants.push_back(want);
    }
  std::string hint;
  for (const std::string& want : wants) hint += (hint.empty() ? "" : "; ") + want;
  return hint;
}

// A name that a sheet may have.
std::string TitleOf(const SheetSpec& sheet) {
  std::string title = &sheet == &StructureSheet() ? "Structures" : TreeTypeName(sheet.type);
  for (char& c : title)
    if (std::string_view("[]:*?/\\").find(c) != std::string_view::npos) c = '-';
  return FirstCharacters(title, kLongestTitle);
}

BookSheet SheetOf(const MonthGrid& grid, const SheetSpec& spec) {
  BookSheet sheet{&spec == &StructureSheet() ? kStructureSheet : spec.type, TitleOf(spec), {}, {}};
  const int fixed = grid.FixedColumns(), columns = static_cast<int>(grid.Columns().size());
  for (int column = fixed; column < columns; ++column) {
    const GridColumn& field = grid.Columns()[static_cast<std::size_t>(column)];
    sheet.columns.push_back(
        {field.name, field.caption, HintOf(RulesOf(spec), field.name), field.items, field.numeric, field.free_text});
  }
  for (int row = 0; row < grid.RowCount(); ++row) {
    BookRow& out = sheet.rows.emplace_back();
    out.key = grid.RowKey(row);
    out.structure = grid.Cell(row, 0).text;
    out.equipment = grid.Cell(row, 1).text;
    for (int column = fixed; column < columns; ++column) {
      GridCell cell = grid.Cell(row, column);
      out.cells.push_back({std::move(cell.text), std::move(cell.was), cell.locked});
    }
  }
  // as the tree
  std::stable_sort(sheet.rows.begin(), sheet.rows.end(), [](const BookRow& a, const BookRow& b) {
    if (LessIgnoringCase(a.structure, b.structure) || LessIgnoringCase(b.structure, a.structure))
      return LessIgnoringCase(a.structure, b.structure);
    return LessIgnoringCase(a.equipment, b.equipment);
  });
  return sheet;
}

std::string OperatorNumber(Session& s) {
  return Trim(NullToEmpty(s.db.Single("SELECT RIMA_CO_NUM FROM CO_COMPANY ORDER BY rowid LIMIT 1")));
}

// A program that saves a text may write its line ends otherwise.
bool IsSameText(const std::string& a, const std::string& b) {
  const auto bare = [](std::string text) {
    std::erase(text, '\r');
    return Trim(text);
  };
  return a == b || bare(a) == bare(b);
}

class Planner {
 public:
  Planner(Session& s, MonthGrid& grid) : s_(s), grid_(grid), operator_(OperatorNumber(s)) {}

  void Plan(const ReadSheet& sheet) {
    if (month_ == 0) month_ = sheet.month;  // the workbook's own is that of its first sheet
    const bool known_month = sheet.year == s_.year && sheet.month >= 1 && sheet.month <= s_.last_month;
    const SheetSpec* spec = sheet.code == kStructureSheet ? &StructureSheet() : FindSheet(sheet.code);
    const bool known = spec != nullptr && spec->has_activity;
    const bool ours = Bare(sheet.operator_number) == Bare(operator_) && known;
    if (!known_month || sheet.month != month_ || !ours) {
      for (const ReadRecord& record : sheet.records)
        Refuse(sheet, record, known_month && sheet.month == month_ ? "no such record" : "another month");
      return;
    }
    grid_.ShowMonth(spec, sheet.month);
    for (const ReadRecord& record : sheet.records) {
      const QCLocation at = ParseNodeKey(record.key);
      const int row = grid_.FindRow(record.key);
      if (at.Month != sheet.month && at.Month != 0)
        Refuse(sheet, record, "another month");
      else if (row < 0)
        Refuse(sheet, record, "no such record");
      else if (!seen_.insert(record.key).second)
        Refuse(sheet, record, "twice in the workbook");
      else
        PlanRecord(sheet, row, record);
    }
  }

  std::vector<BookChange> changes;

 private:
  // Some programs take the number of an operator for one.
  static std::string Bare(const std::string& number) {
    const auto digit = number.find_first_not_of('0');
    return digit == std::string::npos ? number : number.substr(digit);
  }

  static std::string PlaceOf(const ReadSheet& sheet, const ReadRecord& record) {
    return PlaceOf(sheet, Trim(record.structure), Trim(record.equipment));
  }
  static std::string PlaceOf(const ReadSheet& sheet, const std::string& structure, const std::string& id) {
    if (sheet.code == kStructureSheet) return JoinPlace(sheet.month, sheet.year, structure, "");
    const std::string type = TreeTypeName(sheet.code);
    return JoinPlace(sheet.month, sheet.year, structure, type.empty() ? id : type + ": " + id);
  }

  // As the workbook calls it.
  static const std::string& FieldOf(const ReadField& field) {
    return field.caption.empty() ? field.name : field.caption;
  }

  void Refuse(const ReadSheet& sheet, const ReadRecord& record, const std::string& why) {
    for (const ReadField& field : record.fields)
      changes.push_back({PlaceOf(sheet, record), FieldOf(field), field.name, "", field.text, why});
  }

  void PlanRecord(const ReadSheet& sheet, int row, const ReadRecord& record) {
    const std::string place = PlaceOf(sheet, grid_.Cell(row, 0).text, grid_.Cell(row, 1).text);
    const int status = static_cast<int>(grid_.Columns().size()) - 2;
    const std::size_t first = changes.size();
    std::vector<int> columns;
    for (const ReadField& field : record.fields) {
      BookChange change{place, FieldOf(field), field.name, "", field.text, ""};
      int column = grid_.FindColumn(field.name);
      if (column < grid_.FixedColumns() || std::find(columns.begin(), columns.end(), column) != columns.end()) {
        change.what = "outside the grid";
        column = -1;
      } else {
        const GridColumn& head = grid_.Columns()[static_cast<std::size_t>(column)];
        change.field = head.caption;
        change.control = head.name;
        change.old_text = grid_.Cell(row, column).text;
        change.what = Trouble(field, head.numeric);
        if (head.numeric && field.kind == ForeignCell::Kind::kDecimalComma)
          change.new_text[change.new_text.find(',')] = '.';
        if (change.what.empty() && IsSameText(change.new_text, change.old_text)) change.what = "same";
      }
      columns.push_back(column);
      changes.push_back(std::move(change));
    }
    // the status decides whether there are values, and a cell that unlocks another one comes before it
    for (const bool of_status : {true, false})
      for (std::size_t i = 0; i < columns.size(); ++i)
        if (changes[first + i].what.empty() && (columns[i] == status) == of_status)
          PlanCell(row, columns[i], changes[first + i]);
  }

  // Whether values are ignored there: the record's status is I and stays so, or its structure's is.
  bool IsInactive(int row, int column) const {
    const int status = static_cast<int>(grid_.Columns().size()) - 2, comments = status + 1;
    const GridCell cell = grid_.Cell(row, status);
    return cell.locked || (cell.text == "on" && column != status && column != comments);
  }

  void PlanCell(int row, int column, BookChange& change) {
    if (IsInactive(row, column)) {
      change.what = "inactive";
      return;
    }
    const PastePlan plan = grid_.Plan(row, column, {{change.new_text}}).front();
    change.what = plan.what;
    change.new_text = plan.new_text;
    const bool numeric = grid_.Columns()[static_cast<std::size_t>(column)].numeric;
    // no hint warns here that a save would make 12 of 12,5
    if (plan.Applies() && numeric && !NumberHint(plan.new_text).empty()) change.what = "not a number";
    if (change.Applies()) grid_.SetCell(row, column, plan.new_text);
  }

  // What keeps a cell out whatever its field takes.
  static std::string Trouble(const ReadField& field, bool numeric) {
    if (field.merged) return "merged with other cells";
    if (field.kind == ForeignCell::Kind::kFormula) return "formula without its value";
    if (field.kind == ForeignCell::Kind::kDate && numeric) return "not a number";
    return "";
  }

  Session& s_;
  MonthGrid& grid_;
  std::string operator_;
  int month_ = 0;
  std::set<std::string> seen_;
};

}  // namespace

MonthBook MakeMonthBook(Session& s, int month) {
  MonthBook book{OperatorNumber(s), s.year, month, {}};
  MonthGrid grid(s);
  const auto add = [&](const SheetSpec& sheet) {
    grid.ShowMonth(&sheet, month);
    if (grid.RowCount() > 0) book.sheets.push_back(SheetOf(grid, sheet));
  };
  add(StructureSheet());
  for (const SheetSpec* sheet : AllSheets())
    if (sheet->has_activity) add(*sheet);
  return book;
}

std::vector<BookChange> PlanMonthBook(Session& s, const std::vector<ReadSheet>& sheets, MonthGrid& grid) {
  Planner planner(s, grid);
  for (const ReadSheet& sheet : sheets) planner.Plan(sheet);
  return std::move(planner.changes);
}

}  // namespace merlu
