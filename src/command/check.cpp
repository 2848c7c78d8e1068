#include "command/check.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <exception>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <unordered_map>

#include "base/text.h"
#include "command/inventory_file.h"
#include "command/place.h"
#include "records/judge_records.h"
#include "session/types.h"
#include "sheets/units.h"

namespace merlu {
namespace {

// Comments of the log by place, tag and text of their findings.
using Comments = std::unordered_map<std::string, std::string>;

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

Comments ReadComments(Database& db) {
  Comments comments;
  db.ForEach(
      "SELECT [Month],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments FROM QC WHERE TRIM(Comments)<>''", {},
      [&](const RowView& row) {
        comments.emplace(
            CommentKey(static_cast<int>(row.Integer(0)), std::string(row.Text(1)), std::string(row.Text(2)),
                       EmptyForNone(row.Text(3)), EmptyForNone(row.Text(4)), row.Text(5), row.Text(6)),
            row.Text(7));
      });
  return comments;
}

// What one processor has found in its share of a file.
class Share {
 public:
  Share(const Image& image, const CheckScope& scope, const Comments& comments) : scope_(scope), comments_(comments) {
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
      const auto comment = comments_.find(CommentKey(record.month, finding.complex, finding.structure, finding.type,
                                                     finding.id, standing.tag, standing.text));
      finding.comment = comment == comments_.end() ? "" : comment->second;
      finding.state = finding.comment.empty() ? "open" : "explained";
      ++(finding.comment.empty() ? found.open : found.explained);
      found.findings.push_back(finding);
      std::array<char, 16> place{};
      std::snprintf(place.data(), place.size(), "\n%06d", number++);
      found.findings.back().order += place.data();
    }
  }

  static void Locate(const JudgedRecord& record, CheckedFinding& finding) {
    const StructureFacts none, &structure = record.structure == nullptr ? none : *record.structure;
    finding.complex = Trim(structure.complex);
    finding.structure = Trim(structure.structure);
    finding.type = record.sheet == nullptr ? "" : record.sheet->type;
    finding.id = Trim(std::string(record.id));
    const std::string text = StructureWords(structure.area, structure.block, structure.name);
    const std::string equipment = finding.type.empty() ? "" : TreeTypeName(finding.type) + ": " + finding.id;
    finding.place = PlaceText(record.year, record.month, text, finding.type, finding.id);
    std::array<char, 16> month{};
    std::snprintf(month.data(), month.size(), "%06d%02d\n", record.year, record.month);
    finding.order =
        month.data() + Lower(text) + "\n" + finding.complex + "/" + finding.structure + "\n" + Lower(equipment);
  }

  const CheckScope& scope_;
  const Comments& comments_;
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

bool LacksMonth(Database& db, int month) {
  return IsNull(db.Single("SELECT 1 FROM PA_PLATFORM_ACTV WHERE PA_MO=? LIMIT 1", {std::int64_t{month}}));
}

}  // namespace

CheckedFile CheckInventory(const Image& image, const CheckScope& scope, int jobs) {
  Comments comments;
  CheckedFile all;
  {
    Database db;
    OpenUntouched(db, image);
    comments = ReadComments(db);
    all.lacks_month = scope.month != 0 && LacksMonth(db, scope.month);
  }
  const std::vector<Part> parts = PartsOf(scope);
  std::atomic<std::size_t> next{0};
  std::mutex together;
  std::exception_ptr failure;
  const auto work = [&] {
    try {
      Share share(image, scope, comments);
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
  std::sort(all.findings.begin(), all.findings.end(),
            [](const CheckedFinding& a, const CheckedFinding& b) { return a.order < b.order; });
  std::sort(all.not_judged.begin(), all.not_judged.end());
  return all;
}

}  // namespace merlu
