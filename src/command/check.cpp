#include "command/check.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <unordered_map>

#include "base/text.h"
#include "command/inventory_file.h"
#include "command/place.h"
#include "records/judge_records.h"
#include "records/structure_fields.h"
#include "records/structure_record.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/units.h"

namespace merlu {
namespace {

// A row of the log.
struct Logged {
  QCLocation location;
  std::string tag, text, comment;
};

// The log, with its comments by place, tag and text of their findings.
struct Log {
  std::vector<Logged> rows;
  std::unordered_map<std::string, std::string> comments;
};

std::string CommentKey(int month, const std::string& complex, const std::string& structure, const std::string& type,
                       const std::string& id, std::string_view tag, std::string_view text) {
  std::string key = std::to_string(month);
  for (const std::string& part : {complex, structure, type, id, std::string(tag), std::string(text)})
    key += "\n" + Lower(Trim(part));
  return key;
}

std::string EmptyForNone(std::string_view text) {
  return text == "NA" ? "" : std::string(text);
}

Log ReadLog(Database& db) {
  Log log;
  db.ForEach(
      "SELECT UserID,[Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments FROM QC ORDER "
      "BY "
      "rowid",
      {}, [&](const RowView& row) {
        const auto text = [&](int column) { return std::string(row.Text(column)); };
        Logged one{{text(3), text(0), static_cast<int>(row.Integer(1)), static_cast<int>(row.Integer(2)), text(4),
                    text(5), EmptyForNone(row.Text(6)), EmptyForNone(row.Text(7))},
                   text(8),
                   text(9),
                   Trim(text(10)).empty() ? "" : text(10)};
        const QCLocation& at = one.location;
        if (!one.comment.empty())
          log.comments.emplace(
              CommentKey(at.Month, at.CmplxID, at.StructID, at.EquipType, at.EquipID, one.tag, one.text), one.comment);
        log.rows.push_back(std::move(one));
      });
  return log;
}

// Findings stand by month, structure, equipment and then the number in the record.
constexpr int kBehindJudged = 100000;
std::string OrderOf(const CheckedFinding& f, const std::string& structure, const std::string& equipment, int number) {
  std::array<char, 32> month{}, place{};
  std::snprintf(month.data(), month.size(), "%06d%02d\n", f.year, f.month);
  std::snprintf(place.data(), place.size(), "\n%08d", number);
  return month.data() + Lower(structure) + "\n" + f.complex + "/" + f.structure + "\n" + Lower(equipment) +
         place.data();
}

// What one processor has found in its share of a file.
class Share {
 public:
  Share(const Image& image, const CheckScope& scope, const Log& log) : scope_(scope), log_(log) {
    db_.OpenImage(image, Database::Use::kRead);
    contexts_.emplace(db_);
  }

  void Judge(Mode mode, const SheetSpec* sheet) {
    RecordScope scope;
    scope.mode = mode;
    scope.month = scope_.month;
    const auto each = [&](const JudgedRecord& record) { Add(record); };
    if (sheet == nullptr)
      JudgeStructures(db_, *contexts_, scope, each);
    else
      JudgeEquipment(db_, *contexts_, *sheet, scope, each);
  }

  CheckedFile found;

 private:
  void Add(const JudgedRecord& record) {
    ++found.records;
    if (record.inactive) return;  // a run passes it over
    if (scope_.as_listed && (record.structure_inactive || (record.month > 0 && !record.has_values))) return;
    if (record.verdicts->all.empty() && record.verdicts->faults.empty()) return;
    CheckedFinding finding;
    finding.year = record.year;
    finding.month = record.month;
    if (!record.verdicts->faults.empty()) {
      Locate(record, finding);
      found.not_judged.push_back(finding.place + ": " + record.verdicts->faults.front().fault.description);
    }
    int number = 0;
    for (const JudgedFinding& standing : StandingFindings(*record.verdicts)) {
      if (finding.place.empty()) Locate(record, finding);
      finding.field = Trim(std::string(standing.tag));
      finding.control = record.rules->fields()[standing.field].control;
      finding.value = record.view->Text(standing.field);
      finding.expected = standing.expected;
      finding.text = standing.text;
      const auto comment = log_.comments.find(CommentKey(record.month, finding.complex, finding.structure, finding.type,
                                                         finding.id, standing.tag, standing.text));
      finding.comment = comment == log_.comments.end() ? "" : comment->second;
      finding.state = finding.comment.empty() ? "open" : "explained";
      ++(finding.comment.empty() ? found.open : found.explained);
      finding.order = order_(finding, number++);
      found.findings.push_back(finding);
    }
  }

  void Locate(const JudgedRecord& record, CheckedFinding& finding) {
    const StructureFacts none, &structure = record.structure == nullptr ? none : *record.structure;
    finding.complex = Trim(structure.complex);
    finding.structure = Trim(structure.structure);
    finding.type = record.sheet == nullptr ? "" : record.sheet->type;
    finding.id = Trim(std::string(record.id));
    const std::string text = StructureWords(structure.area, structure.block, structure.name);
    const std::string equipment = finding.type.empty() ? "" : TreeTypeName(finding.type) + ": " + finding.id;
    finding.place = PlaceText(record.year, record.month, text, finding.type, finding.id);
    order_ = [structure = text, equipment](const CheckedFinding& f, int number) {
      return OrderOf(f, structure, equipment, number);
    };
  }

  std::function<std::string(const CheckedFinding&, int)> order_;
  const CheckScope& scope_;
  const Log& log_;
  Database db_;
  std::optional<Contexts> contexts_;
};

struct Part {
  Mode mode;
  const SheetSpec* sheet;  // null for the structures
};

std::vector<Part> PartsOf(const CheckScope& scope) {
  std::vector<Part> parts;
  for (const Mode mode : {Mode::kActv, Mode::kDesc}) {
    if (mode == Mode::kActv ? !scope.months : !scope.descriptions) continue;
    parts.push_back({mode, nullptr});
    for (const SheetSpec* sheet : AllSheets())
      if (mode == Mode::kDesc || sheet->has_activity) parts.push_back({mode, sheet});
  }
  return parts;
}

void Take(CheckedFile& all, CheckedFile& part) {
  all.records += part.records;
  all.open += part.open;
  all.explained += part.explained;
  all.stale += part.stale;
  std::move(part.findings.begin(), part.findings.end(), std::back_inserter(all.findings));
  std::move(part.not_judged.begin(), part.not_judged.end(), std::back_inserter(all.not_judged));
}

// What stands in the log under a tag that no rule raises anything for now.
void AddLogged(const Image& image, const CheckScope& scope, const Log& log, CheckedFile& all) {
  std::set<std::string> raised;
  for (const CheckedFinding& f : all.findings)
    raised.insert(CommentKey(f.month, f.complex, f.structure, f.type, f.id, f.field, ""));
  Database db;
  db.OpenImage(image, Database::Use::kRead);
  int number = 0;
  for (const Logged& row : log.rows) {
    const QCLocation& at = row.location;
    const bool wanted =
        at.Month == 0 ? scope.descriptions : scope.months && (scope.month == 0 || scope.month == at.Month);
    if (!wanted || (!at.Is(level::kStructure) && !at.Is(level::kEquipment))) continue;
    if (!raised.insert(CommentKey(at.Month, at.CmplxID, at.StructID, at.EquipType, at.EquipID, row.tag, "")).second)
      continue;
    CheckedFinding finding;
    finding.year = at.Year;
    finding.month = at.Month;
    finding.place = PlaceText(db, at);
    finding.complex = Trim(at.CmplxID);
    finding.structure = Trim(at.StructID);
    finding.type = at.EquipType;
    finding.id = Trim(at.EquipID);
    finding.field = Trim(row.tag);
    finding.text = row.text;
    finding.comment = row.comment;
    finding.state = row.comment.empty() ? "open" : "explained";
    const SheetSpec* sheet = at.Is(level::kEquipment) ? FindSheet(at.EquipType) : nullptr;
    if (sheet != nullptr || at.Is(level::kStructure)) {
      const RuleSet& rules = sheet == nullptr ? StructureRuleSet() : RulesOf(*sheet);
      finding.expected = ExpectedOf(rules, row.tag, row.text);
      for (int field = 0; field < rules.fields().size() && finding.control.empty(); ++field)
        if (IsSameTag(rules.fields()[field].tag, row.tag)) finding.control = rules.fields()[field].control;
    }
    const std::string equipment = finding.type.empty() ? "" : TreeTypeName(finding.type) + ": " + finding.id;
    const std::string structure = StructurePart(db, at.CmplxID, at.StructID);
    finding.order = OrderOf(finding, structure, equipment, kBehindJudged + number++);
    ++(row.comment.empty() ? all.open : all.explained);
    all.findings.push_back(std::move(finding));
  }
}

bool LacksMonth(Database& db, int month) {
  return IsNull(db.Single("SELECT 1 FROM PA_PLATFORM_ACTV WHERE PA_MO=? LIMIT 1", {std::int64_t{month}}));
}

}  // namespace

CheckedFile CheckInventory(const Image& image, const CheckScope& scope, int jobs) {
  Log log;
  CheckedFile all;
  {
    Database db;
    OpenUntouched(db, image);
    log = ReadLog(db);
    all.lacks_month = scope.month != 0 && LacksMonth(db, scope.month);
  }
  const std::vector<Part> parts = PartsOf(scope);
  std::atomic<std::size_t> next{0};
  std::mutex together;
  std::exception_ptr failure;
  const auto work = [&] {
    try {
      Share share(image, scope, log);
      for (std::size_t part = next++; part < parts.size(); part = next++)
        share.Judge(parts[part].mode, parts[part].sheet);
      const std::lock_guard<std::mutex> one_at_a_time(together);
      Take(all, share.found);
    } catch (...) {
      const std::lock_guard<std::mutex> one_at_a_time(together);
      failure = std::current_exception();
      next = parts.size();
    }
  };
  std::vector<std::thread> others;
  for (int job = 1; job < jobs; ++job) others.emplace_back(work);
  work();
  for (std::thread& other : others) other.join();
  if (failure) std::rethrow_exception(failure);
  if (scope.as_listed) AddLogged(image, scope, log, all);
  std::sort(all.findings.begin(), all.findings.end(),
            [](const CheckedFinding& a, const CheckedFinding& b) { return a.order < b.order; });
  std::sort(all.not_judged.begin(), all.not_judged.end());
  return all;
}

}  // namespace merlu
