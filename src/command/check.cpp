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
#include "command/private_copy.h"
#include "history/notes.h"
#include "qc/comment_key.h"
#include "records/judge_records.h"
#include "review/review.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/units.h"
#include "store/files.h"
#include "store/image.h"

namespace merlu {
namespace {

// A comment of the log, and the value that it was written upon where that is known.
struct LoggedComment {
  std::string text;
  std::optional<std::string> value;
};
using Comments = std::unordered_map<std::string, LoggedComment>;  // by place, tag and text of their findings

std::string FindingKey(int month, const std::string& complex, const std::string& structure, const std::string& type,
                       const std::string& id, std::string_view tag, std::string_view text) {
  std::string key = std::to_string(month);
  for (const std::string& part : {complex, structure, type, id, std::string(tag), std::string(text)})
    key += "\n" + Lower(Trim(part));
  return key;
}

std::string EmptyForNone(std::string_view text) {
  return text == "NA" ? "" : std::string(text);
}

Comments ReadComments(const std::string& path, const Image& image, Database& db) {
  const Rows rows = db.Query(
      "SELECT Level,UserID,[Month],[Year],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments FROM QC WHERE "
      "TRIM(Comments)<>'' ORDER BY rowid");
  Comments comments;
  if (rows.rows.empty()) return comments;
  std::optional<PrivateCopy> copy;
  if (FileExists(path + kCompanionExtension)) copy.emplace(path, image);
  for (const Values& row : rows.rows) {
    const auto text = [&](std::size_t column) { return NullToEmpty(row[column]); };
    const QCLocation at{Upper(text(0)),
                        text(1),
                        static_cast<int>(ToInteger(row[2])),
                        static_cast<int>(ToInteger(row[3])),
                        text(4),
                        text(5),
                        text(6),
                        text(7)};
    LoggedComment comment{text(10), std::nullopt};
    if (copy)
      if (const auto known = CommentOf(copy->companion, CommentKey(at, text(8), text(9)));
          known && known->comment == comment.text)
        comment.value = known->value;
    comments.emplace(FindingKey(at.Month, at.CmplxID, at.StructID, EmptyForNone(at.EquipType), EmptyForNone(at.EquipID),
                                text(8), text(9)),
                     std::move(comment));
  }
  return comments;
}

// Findings are ordered by month, structure, equipment and then the number in the record.
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
  Share(const Image& image, const CheckScope& scope, const Comments& comments) : scope_(scope), comments_(comments) {
    db_.OpenImage(image, Database::Use::kRead);
    contexts_.emplace(db_);
  }

  void CheckSheet(Mode mode, const SheetSpec& sheet) {
    RecordScope scope;
    scope.mode = mode;
    scope.month = scope_.month;
    JudgeRecords(db_, *contexts_, sheet, scope, [&](const JudgedRecord& record) { Add(record); });
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
      finding.field = std::string(standing.tag);
      finding.control = record.rules->fields()[standing.field].control;
      finding.value = record.stored->Text(standing.field);  // not what a rule computes
      finding.expected = standing.expected;
      finding.text = standing.text;
      Explain(record.month, standing, finding);
      finding.order = order_(finding, number++);
      found.findings.push_back(finding);
    }
  }

  void Explain(int month, const JudgedFinding& standing, CheckedFinding& finding) {
    const auto comment = comments_.find(
        FindingKey(month, finding.complex, finding.structure, finding.type, finding.id, standing.tag, standing.text));
    const bool explained = comment != comments_.end();
    finding.comment = explained ? comment->second.text : "";
    const bool stale = explained && comment->second.value && !IsSameValue(*comment->second.value, finding.value);
    finding.state = StateText(!explained ? FindingState::kOpen
                              : stale    ? FindingState::kStale
                                         : FindingState::kExplained);
    ++(!explained ? found.open : stale ? found.stale : found.explained);
  }

  void Locate(const JudgedRecord& record, CheckedFinding& finding) {
    const StructureFacts none, &structure = record.structure == nullptr ? none : *record.structure;
    finding.complex = Trim(structure.complex);
    finding.structure = Trim(structure.structure);
    finding.type = record.sheet->type;
    finding.id = Trim(std::string(record.id));
    const std::string text = StructureText(structure.area, structure.block, structure.name);
    const std::string equipment = finding.type.empty() ? "" : EquipmentText(finding.type, finding.id);
    finding.place = JoinPlace(record.month, record.year, text, equipment);
    order_ = [structure = text, equipment](const CheckedFinding& f, int number) {
      return OrderOf(f, structure, equipment, number);
    };
  }

  std::function<std::string(const CheckedFinding&, int)> order_;
  const CheckScope& scope_;
  const Comments& comments_;
  Database db_;
  std::optional<Contexts> contexts_;
};

struct Part {
  Mode mode;
  const SheetSpec* sheet;
};

std::vector<Part> PartsOf(const CheckScope& scope) {
  std::vector<Part> parts;
  for (const Mode mode : {Mode::kActv, Mode::kDesc}) {
    if (mode == Mode::kActv ? !scope.months : !scope.descriptions) continue;
    parts.push_back({mode, &StructureSheet()});
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

CheckedFile CheckInventory(const std::string& path, const CheckScope& scope, int jobs) {
  const Image image = ReadImage(path);
  Comments comments;
  CheckedFile all;
  {
    Database db;
    OpenUntouched(db, image);
    comments = ReadComments(path, image, db);
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
        share.CheckSheet(parts[part].mode, *parts[part].sheet);
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

CheckedFile ListInventory(const std::string& path, int month) {
  PrivateCopy copy(path);
  const Review review = MakeReview(copy.db, copy.companion);
  CheckedFile file;
  file.lacks_month = month != 0 && LacksMonth(copy.db, month);
  for (const ReviewedRecord& record : review.records) {
    if (month != 0 && record.month != month) continue;
    if (record.kind != RecordKind::kGone) ++file.records;
    const QCLocation at = LocationOf(review, record);
    for (const ReviewedFinding& found : record.findings) {
      CheckedFinding& finding = file.findings.emplace_back();
      finding.year = record.year;
      finding.month = record.month;
      finding.place = PlaceOf(review, record);
      finding.complex = Trim(at.CmplxID);
      finding.structure = Trim(at.StructID);
      finding.type = EmptyForNone(at.EquipType);
      finding.id = Trim(EmptyForNone(at.EquipID));
      finding.field = found.kind->tag;
      finding.control = found.kind->control;
      finding.value = found.value;
      finding.expected = found.kind->expected;
      finding.text = found.kind->text;
      finding.comment = Explains(found.comment) ? found.comment : "";
      finding.state = StateText(found.state);
      ++(found.state == FindingState::kOpen    ? file.open
         : found.state == FindingState::kStale ? file.stale
                                               : file.explained);
    }
  }
  return file;
}

}  // namespace merlu
