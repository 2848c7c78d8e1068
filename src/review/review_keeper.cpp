#include "review/review_keeper.h"

#include <algorithm>
#include <numeric>

#include "history/all_comments.h"
#include "qc/comment_key.h"
#include "session/place.h"
#include "sheets/units.h"

namespace merlu {
namespace {

constexpr const char* kLogColumns =
    "SELECT rowid,FieldID,[Desc],Comments,[Level],UserID,[Month],CmplxID,StructID,EquipType,EquipID FROM QC";
constexpr int kMonthBits = 8;
constexpr std::int64_t kOfPieces = std::int64_t{1} << 62;
constexpr std::size_t kLocationColumns = 7;

std::size_t At(int index) {
  return static_cast<std::size_t>(index);
}

// Names are trimmed, as the log keeps them: a row of the log with other blanks belongs to no record, here as in the
// queries of the sheets.
std::string StructureName(std::string_view user, std::string_view complex, std::string_view structure) {
  return Lower(user) + '\n' + Lower(complex) + '\n' + Lower(structure);
}

std::string PieceName(int structure, std::string_view type, std::string_view id) {
  return std::to_string(structure) + '\n' + Lower(type) + '\n' + Lower(id);
}

// Ranks by text without regard to case, as siblings are sorted in the tree; equal ones keep their order.
template <typename Of, typename TextOf>
void Rank(std::vector<Of>& all, TextOf text_of) {
  std::vector<std::string> texts;
  texts.reserve(all.size());
  for (const Of& each : all) texts.push_back(text_of(each));
  std::vector<int> order(all.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](int a, int b) { return LessIgnoringCase(texts[At(a)], texts[At(b)]); });
  for (std::size_t rank = 0; rank < order.size(); ++rank) all[At(order[rank])].rank = static_cast<int>(rank);
}

// The tree has a root for each operator: the structures of each are adjacent.
void RankByOperators(Database& db, std::vector<ReviewedStructure>& structures) {
  std::unordered_map<std::string, int> roots;
  db.ForEach("SELECT RIMA_CO_NUM FROM CO_COMPANY ORDER BY rowid", {},
             [&](const RowView& row) { roots.try_emplace(Lower(Trim(row.Text(0))), static_cast<int>(roots.size())); });
  if (roots.size() < 2) return;
  const auto root_of = [&](int index) {
    const auto found = roots.find(Lower(Trim(structures[At(index)].user)));
    return found == roots.end() ? static_cast<int>(roots.size()) : found->second;
  };
  std::vector<int> order(structures.size());
  for (std::size_t i = 0; i < structures.size(); ++i) order[At(structures[i].rank)] = static_cast<int>(i);
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return root_of(a) < root_of(b); });
  for (std::size_t rank = 0; rank < order.size(); ++rank) structures[At(order[rank])].rank = static_cast<int>(rank);
}

RecordKind KindOf(const JudgedRecord& judged, Mode mode) {
  if (judged.IsOfStructure()) return mode == Mode::kActv ? RecordKind::kStructureMonth : RecordKind::kStructure;
  return mode == Mode::kActv ? RecordKind::kEquipmentMonth : RecordKind::kEquipment;
}

std::int64_t KeyOf(const RecordKeys& keys, RecordKind kind) {
  switch (kind) {
    case RecordKind::kStructure: return keys.PD_ID_AK;
    case RecordKind::kStructureMonth: return keys.SA_ID_AK;
    case RecordKind::kEquipment: return keys.ED_ID_AK;
    default: return keys.EA_ID_AK;
  }
}

}  // namespace

const std::string* LogTexts::Of(std::string_view text) {
  const auto found = texts_.find(text);
  return found != texts_.end() ? &*found : &*texts_.emplace(text).first;
}

void KnownComments::ReadAll() {
  if (read_) return;
  read_ = true;
  for (auto& [name, comment] : AllComments(companion_)) all_.insert_or_assign(name, std::move(comment));
}

bool KnownComments::IsEmpty() {
  if (!many_) return companion_.db() == nullptr;
  ReadAll();
  return all_.empty();
}

std::optional<KnownComment> KnownComments::Of(const std::string& finding) {
  if (!many_) return CommentOf(companion_, finding);
  ReadAll();
  const auto found = all_.find(finding);
  return found == all_.end() ? std::nullopt : std::optional(found->second);
}

void LoggedRows::Arrange() {
  by_place_.reserve(rows_.size());
  for (std::uint32_t i = 0; i < rows_.size(); ++i) by_place_.emplace_back(rows_[i].place, i);
  std::sort(by_place_.begin(), by_place_.end());
}

void LoggedRows::Of(std::int64_t place, std::vector<LogRow*>& to) {
  to.clear();
  auto at = std::lower_bound(by_place_.begin(), by_place_.end(), std::pair(place, std::uint32_t{0}));
  for (; at != by_place_.end() && at->first == place; ++at)
    if (!rows_[at->second].taken) to.push_back(&rows_[at->second]);
}

void ReviewKeeper::Clear() {
  *this = ReviewKeeper();
}

// ---- names ----

void ReviewKeeper::ReadNames(Database& db) {
  std::vector<ReviewedStructure> structures;
  structure_of_key_.clear();
  structure_of_name_.clear();
  last_structure_ = {};
  db.ForEach(
      "SELECT PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name FROM PD_PLATFORM_DESC ORDER BY "
      "PD_ID_AK",
      {}, [&](const RowView& row) {
        const auto text = [&](int column) { return std::string(row.Text(column)); };
        const int index = static_cast<int>(structures.size());
        structure_of_key_[row.Integer(0)] = index;
        const std::string complex = Trim(row.Text(2)), structure = Trim(row.Text(3));
        structure_of_name_.try_emplace(StructureName(Trim(row.Text(1)), complex, structure), index);
        // when it is unknown whose it is
        structure_of_name_.try_emplace(StructureName("", complex, structure), index);
        structures.push_back({row.Integer(0), text(1), text(2), text(3), StructureText(text(4), text(5), text(6)), 0});
      });
  Rank(structures, [](const ReviewedStructure& structure) { return structure.text; });
  RankByOperators(db, structures);
  review_.structures = std::move(structures);
  for (ReviewedPiece& piece : review_.pieces) piece.structure = -1;
  piece_of_name_.clear();
  // types in the order in which the tree is built
  db.ForEach(
      "SELECT ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC ORDER BY ED_EQUIP_TYP,ED_ID_AK", {},
      [&](const RowView& row) {
        const auto at = structure_of_key_.find(row.Integer(1));
        if (at == structure_of_key_.end()) return;
        const auto [known, fresh] = piece_of_key_.try_emplace(row.Integer(0), static_cast<int>(review_.pieces.size()));
        if (fresh) review_.pieces.emplace_back();
        ReviewedPiece& piece = review_.pieces[At(known->second)];
        piece = {row.Integer(0), at->second, std::string(row.Text(2)), std::string(row.Text(3)), 0};
        piece_of_name_.try_emplace(PieceName(piece.structure, Trim(piece.type), Trim(piece.id)), known->second);
      });
  Rank(review_.pieces, PieceText);
}

std::int64_t ReviewKeeper::PlaceKey(int structure, int piece, int month) {
  const std::int64_t of =
      piece >= 0 ? kOfPieces + (std::int64_t{piece} << kMonthBits) : std::int64_t{structure} << kMonthBits;
  return of + (month & ((1 << kMonthBits) - 1));
}

// Usually the one of the last call.
int ReviewKeeper::StructureNamed(std::string_view user, std::string_view complex, std::string_view structure) const {
  LastStructure& last = last_structure_;
  if (last.known && last.user == user && last.complex == complex && last.structure == structure) return last.index;
  const auto found = structure_of_name_.find(StructureName(user, complex, structure));
  last = {std::string(user), std::string(complex), std::string(structure),
          found == structure_of_name_.end() ? -1 : found->second, true};
  return last.index;
}

ReviewKeeper::Named ReviewKeeper::NameOf(std::string_view level, std::string_view user, int month,
                                         std::string_view complex, std::string_view structure, std::string_view type,
                                         std::string_view id) const {
  const bool equipment = EqualsIgnoringCase(level, level::kEquipment);
  if (!equipment && !EqualsIgnoringCase(level, level::kStructure)) return {};
  const int at = StructureNamed(user, complex, structure);
  if (at < 0) return {};
  if (!equipment) return {PlaceKey(at, -1, month), at};
  const auto piece = piece_of_name_.find(PieceName(at, type, id));
  if (piece == piece_of_name_.end()) return {-1, at};
  return {PlaceKey(at, piece->second, month), at};
}

int ReviewKeeper::Find(RecordKind kind, std::int64_t key) const {
  Number();
  const auto& records = record_of_[static_cast<std::size_t>(kind)];
  const auto found = records.find(key);
  return found == records.end() ? -1 : found->second;
}

int ReviewKeeper::Find(const QCLocation& l) const {
  const Named named =
      NameOf(l.Level, Trim(l.UserID), l.Month, Trim(l.CmplxID), Trim(l.StructID), Trim(l.EquipType), Trim(l.EquipID));
  Number();
  const auto found = record_at_.find(named.place);
  return found == record_at_.end() ? -1 : found->second;
}

void ReviewKeeper::ReadMonths(Database& db) {
  db.ForEach("SELECT sys_yr,SYS_MAX_MO FROM SYS_CONFIG LIMIT 1", {}, [this](const RowView& row) {
    review_.year = static_cast<int>(row.Integer(0));
    review_.last_month = static_cast<int>(row.Integer(1));
  });
}

// ---- the log ----

LogRow ReviewKeeper::RowOfLog(const RowView& row, std::int64_t place) {
  return {place, row.Integer(0), texts_.Of(row.Text(1)), texts_.Of(row.Text(2)), std::string(row.Text(3)), false};
}

// A row is always somebody's.
ReviewKeeper::Named ReviewKeeper::NameOfRow(const RowView& row) const {
  constexpr int kLocation = 4;
  const auto text = [&row](int column) { return row.Text(kLocation + column); };
  const Named named =
      NameOf(text(0), text(1), static_cast<int>(row.Integer(kLocation + 2)), text(3), text(4), text(5), text(6));
  const bool owned =
      named.structure < 0 || !text(1).empty() || Trim(review_.structures[At(named.structure)].user).empty();
  return owned ? named : Named{};
}

// Rows of one place are usually adjacent.
LoggedRows ReviewKeeper::ReadLog(Database& db) {
  LoggedRows log;
  std::array<std::string, kLocationColumns> last;
  Named named;
  bool first = true;
  db.ForEach(std::string(kLogColumns) + " ORDER BY rowid", {}, [&](const RowView& row) {
    constexpr int kLocation = 4;
    bool same = !first;
    for (int column = 0; same && column < static_cast<int>(kLocationColumns); ++column)
      same = last[At(column)] == row.Text(kLocation + column);
    if (!same) {
      for (int column = 0; column < static_cast<int>(kLocationColumns); ++column)
        last[At(column)] = row.Text(kLocation + column);
      named = NameOfRow(row);
      first = false;
    }
    log.Add(RowOfLog(row, named.place));
  });
  log.Arrange();
  return log;
}

// Those under the names of the structures, and those that the review knows of them or of no record.
LoggedRows ReviewKeeper::ReadLogOf(Database& db, const std::set<int>& structures) {
  Number();
  std::map<std::int64_t, LogRow> rows;
  const auto take = [&](const RowView& row) {
    const Named named = NameOfRow(row);
    // one that is another record's now
    if (!structures.contains(named.structure) && record_at_.contains(named.place)) return;
    rows.try_emplace(row.Integer(0), RowOfLog(row, named.place));
  };
  const std::string of_structure = std::string(kLogColumns) + " WHERE UserID=? AND CmplxID=? AND StructID=?";
  for (const int structure : structures) {
    const ReviewedStructure& named = review_.structures[At(structure)];
    db.ForEach(of_structure, {Trim(named.user), Trim(named.complex), Trim(named.structure)}, take);
  }
  const std::string one = std::string(kLogColumns) + " WHERE rowid=?";
  for (const ReviewedRecord& record : review_.records) {
    if (record.gone == nullptr && !structures.contains(record.structure)) continue;
    for (const ReviewedFinding& finding : record.findings)
      if (finding.row != 0 && !rows.contains(finding.row)) db.ForEach(one, {finding.row}, take);
  }
  LoggedRows log;
  for (auto& [key, row] : rows) log.Add(std::move(row));
  log.Arrange();
  return log;
}

// ---- records ----

const FindingKind& ReviewKeeper::FindingKindOf(const RuleSet* rules, std::string_view tag, std::string_view text,
                                               std::string_view expected, int field) {
  const KindKey key = {rules == nullptr ? nullptr : &rules->fields()[std::min(field, rules->fields().size() - 1)],
                       text.data(), expected.data(), tag.data()};
  const auto found = kinds_.find(key);
  if (found != kinds_.end()) return *found->second;
  FindingKind& kind = review_.kinds.emplace_back();
  kind.number = review_.kinds.size() - 1;
  kind.tag = tag;
  kind.text = text;
  kind.expected = expected;
  kind.field = field;
  if (rules != nullptr && field < rules->fields().size()) kind.control = rules->fields()[field].control;
  kinds_.emplace(key, &kind);
  return kind;
}

template <typename WhereOf>
void ReviewKeeper::Explain(ReviewedFinding& finding, KnownComments& known, WhereOf where) {
  if (!Explains(finding.comment)) return;
  finding.state = FindingState::kExplained;
  if (known.IsEmpty()) return;
  const auto upon = known.Of(CommentKey(where(), finding.kind->tag, finding.kind->text));
  const bool stale = upon && upon->comment == finding.comment && !IsSameValue(upon->value, finding.value);
  finding.state = stale ? FindingState::kStale : FindingState::kExplained;
}

// A rule's finding, with the comment of the row with the same text. Of several rows under its tag one with the same
// text counts, else the first.
ReviewedFinding ReviewKeeper::Raised(const JudgedRecord& judged, const JudgedFinding& finding, const Logged& logged,
                                     const ReviewedRecord& record, KnownComments& known) {
  ReviewedFinding made;
  made.kind = &FindingKindOf(judged.rules, finding.tag, finding.text, finding.expected, finding.field);
  made.value = judged.stored->Text(finding.field);
  LogRow* best = nullptr;
  for (LogRow* row : logged) {
    if (row->taken || !IsSameTag(*row->tag, finding.tag)) continue;
    const bool same = *row->text == finding.text;
    if (best == nullptr || same) best = row;
    if (same) break;
  }
  if (best == nullptr) return made;
  best->taken = true;
  made.row = best->row;
  if (*best->text != finding.text) return made;
  made.comment = best->comment;
  Explain(made, known, [&] { return LocationOf(review_, record); });
  return made;
}

// A row that no rule would raise now.
ReviewedFinding ReviewKeeper::Kept(const JudgedRecord& judged, LogRow& row, const ReviewedRecord& record,
                                   KnownComments& known) {
  row.taken = true;
  const RecordFields& fields = judged.rules->fields();
  int field = 0;
  while (field < fields.size() && !IsSameTag(fields[field].tag, *row.tag)) ++field;
  ReviewedFinding made;
  made.kind = &FindingKindOf(judged.rules, *row.tag, *row.text, ExpectedOf(*judged.rules, *row.tag, *row.text), field);
  if (field < fields.size()) made.value = judged.stored->Text(field);
  made.row = row.row;
  made.comment = row.comment;
  Explain(made, known, [&] { return LocationOf(review_, record); });
  return made;
}

bool ReviewKeeper::IsLogged(const Logged& logged, const JudgedFinding& finding) {
  return std::any_of(logged.begin(), logged.end(), [&](const LogRow* row) {
    return IsSameTag(*row->tag, finding.tag) && *row->text == finding.text;
  });
}

ReviewKeeper::Owner ReviewKeeper::OwnerOf(const JudgedRecord& judged) const {
  const auto structure = structure_of_key_.find(judged.keys.PD_ID_AK);
  if (judged.structure == nullptr || structure == structure_of_key_.end()) return {};
  return {structure->second, judged.IsOfStructure() ? -1 : piece_of_key_.at(judged.keys.ED_ID_AK)};
}

ReviewedRecord ReviewKeeper::ReviewedOf(const JudgedRecord& judged, const Owner& owner, Mode mode, const Logged& logged,
                                        KnownComments& known) {
  ReviewedRecord record;
  record.kind = KindOf(judged, mode);
  record.key = KeyOf(judged.keys, record.kind);
  record.structure = owner.structure;
  record.piece = owner.piece;
  record.year = judged.year;
  record.month = judged.month;
  record.inactive = judged.inactive;
  record.structure_inactive = judged.structure_inactive;
  record.has_values = judged.has_values;
  record.checked = judged.checked;
  // of a record that reports nothing, or holds nothing, only what the log holds too
  const bool raises = mode == Mode::kDesc || (judged.has_values && !record.ReportsNothing());
  std::vector<JudgedFinding> standing;
  if (raises || !logged.empty()) standing = StandingFindings(*judged.verdicts);
  if (!raises) std::erase_if(standing, [&](const JudgedFinding& finding) { return !IsLogged(logged, finding); });
  record.findings.reserve(std::max(standing.size(), logged.size()));
  for (const JudgedFinding& finding : standing)
    record.findings.push_back(Raised(judged, finding, logged, record, known));
  for (LogRow* row : logged)
    if (!row->taken) record.findings.push_back(Kept(judged, *row, record, known));
  std::stable_sort(record.findings.begin(), record.findings.end(),
                   [](const ReviewedFinding& a, const ReviewedFinding& b) { return a.kind->field < b.kind->field; });
  for (const ReviewedFinding& finding : record.findings)
    ++(finding.state == FindingState::kOpen        ? record.open
       : finding.state == FindingState::kExplained ? record.explained
                                                   : record.stale);
  return record;
}

// Both modes are judged against the same surroundings, which are read once.
void ReviewKeeper::ReviewRecords(Database& db, std::int64_t PD_ID_AK, LoggedRows& log, KnownComments& known,
                                 std::vector<ReviewedRecord>& to) {
  Logged logged;
  Contexts contexts(db, PD_ID_AK);
  for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
    const RecordScope scope{.mode = mode, .PD_ID_AK = PD_ID_AK};
    const auto take = [&](const JudgedRecord& judged) {
      const Owner owner = OwnerOf(judged);
      if (owner.structure < 0) return;
      log.Of(PlaceKey(owner.structure, owner.piece, judged.month), logged);
      to.push_back(ReviewedOf(judged, owner, mode, logged, known));
    };
    JudgeRecords(db, contexts, StructureSheet(), scope, take);
    for (const SheetSpec* sheet : AllSheets())
      if (contexts.MayHave(sheet->type)) JudgeRecords(db, contexts, *sheet, scope, take);
  }
}

// A row of a survey, or of a deleted record.
ReviewedRecord ReviewKeeper::Gone(Database& db, const LogRow& row, KnownComments& known) {
  QCLocation at;
  db.ForEach("SELECT [Level],UserID,[Month],[Year],CmplxID,StructID,EquipType,EquipID FROM QC WHERE rowid=?", {row.row},
             [&at](const RowView& found) {
               const auto text = [&](int column) { return std::string(found.Text(column)); };
               at = {Upper(text(0)),
                     text(1),
                     static_cast<int>(found.Integer(2)),
                     static_cast<int>(found.Integer(3)),
                     text(4),
                     text(5),
                     text(6),
                     text(7)};
             });
  ReviewedRecord record;
  record.key = row.row;
  record.year = at.Year;
  record.month = at.Month;
  ReviewedFinding finding;
  finding.kind = &FindingKindOf(nullptr, *row.tag, *row.text, {}, 0);
  finding.row = row.row;
  finding.comment = row.comment;
  Explain(finding, known, [&at]() -> const QCLocation& { return at; });
  (finding.state == FindingState::kOpen ? record.open : record.explained) = 1;
  record.findings.push_back(std::move(finding));
  record.gone = std::make_shared<const QCLocation>(std::move(at));
  return record;
}

// ---- the whole and its parts ----

ReviewKeeper::Order ReviewKeeper::OrderOf(const ReviewedRecord& record) const {
  const int structure = record.structure < 0 ? static_cast<int>(review_.structures.size())
                                             : review_.structures[At(record.structure)].rank;
  const int piece = record.piece < 0 ? -1 : review_.pieces[At(record.piece)].rank;
  return {record.month == 0 ? 0 : record.year, record.month, structure, piece, record.key};
}

void ReviewKeeper::Arrange() {
  std::vector<ReviewedRecord>& records = review_.records;
  review_.findings = 0;
  std::vector<std::pair<Order, std::size_t>> order;
  order.reserve(records.size());
  for (const ReviewedRecord& record : records) {
    review_.findings += static_cast<int>(record.findings.size());
    order.emplace_back(OrderOf(record), order.size());
  }
  if (!std::is_sorted(order.begin(), order.end())) {
    std::sort(order.begin(), order.end());
    std::vector<ReviewedRecord> arranged;
    arranged.reserve(records.size());
    for (const auto& [of_record, number] : order) arranged.push_back(std::move(records[number]));
    records = std::move(arranged);
  }
  numbered_ = false;
}

// Only when a record is looked for: a list that is merely shown needs no numbers.
void ReviewKeeper::Number() const {
  if (std::exchange(numbered_, true)) return;
  const std::vector<ReviewedRecord>& records = review_.records;
  record_at_.clear();
  for (auto& of_kind : record_of_) of_kind.clear();
  record_at_.reserve(records.size());
  record_of_[static_cast<std::size_t>(RecordKind::kEquipmentMonth)].reserve(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    const ReviewedRecord& record = records[i];
    record_of_[static_cast<std::size_t>(record.kind)].try_emplace(record.key, static_cast<int>(i));
    if (!record.gone)
      record_at_.try_emplace(PlaceKey(record.structure, record.piece, record.month), static_cast<int>(i));
  }
}

void ReviewKeeper::Build(Database& db, const Companion& companion) {
  Clear();
  ReadMonths(db);
  ReadNames(db);
  LoggedRows log = ReadLog(db);
  KnownComments known(companion, true);
  std::vector<ReviewedRecord> records;
  constexpr std::size_t kRecordsOfOne = 13;  // a description and a year of months
  records.reserve((review_.structures.size() + review_.pieces.size()) * kRecordsOfOne);
  ReviewRecords(db, 0, log, known, records);
  for (const LogRow& row : log.rows())
    if (!row.taken) records.push_back(Gone(db, row, known));
  review_.records = std::move(records);
  Arrange();
}

void ReviewKeeper::Replace(Database& db, const Companion& companion, const std::set<std::int64_t>& structures) {
  ReadNames(db);
  std::set<int> wanted;
  for (const std::int64_t key : structures)
    if (const auto found = structure_of_key_.find(key); found != structure_of_key_.end()) wanted.insert(found->second);
  LoggedRows log = ReadLogOf(db, wanted);
  KnownComments known(companion, false);
  std::vector<ReviewedRecord> records;
  for (const int structure : wanted) ReviewRecords(db, review_.structures[At(structure)].PD_ID_AK, log, known, records);
  for (const LogRow& row : log.rows())
    if (!row.taken) records.push_back(Gone(db, row, known));
  std::erase_if(review_.records, [&](const ReviewedRecord& record) {
    return record.gone != nullptr || wanted.contains(record.structure);
  });
  std::move(records.begin(), records.end(), std::back_inserter(review_.records));
  Arrange();
}

bool ReviewKeeper::Renew(Database& db, const Companion& companion, int number, const std::set<std::int64_t>& more,
                         ContextsOf& contexts) {
  ReviewedRecord& record = review_.records[At(number)];
  const std::int64_t place = PlaceKey(record.structure, record.piece, record.month);
  std::set<std::int64_t> rows = more;
  for (const ReviewedFinding& finding : record.findings)
    if (finding.row != 0) rows.insert(finding.row);
  std::vector<LogRow> log;
  for (const std::int64_t rowid : rows)
    db.ForEach(std::string(kLogColumns) + " WHERE rowid=?", {rowid}, [&](const RowView& row) {
      if (NameOfRow(row).place == place) log.push_back(RowOfLog(row, place));
    });
  Logged logged;
  for (LogRow& row : log) logged.push_back(&row);
  KnownComments known(companion, false);
  const std::int64_t structure = review_.structures[At(record.structure)].PD_ID_AK;
  Contexts& context = contexts.try_emplace(structure, db, structure).first->second;
  const RecordScope scope{.mode = ModeOf(record), .key = record.key};
  std::optional<ReviewedRecord> made;
  const auto take = [&](const JudgedRecord& judged) {
    if (const Owner owner = OwnerOf(judged); owner.structure >= 0)
      made = ReviewedOf(judged, owner, scope.mode, logged, known);
  };
  if (!record.IsEquipment())
    JudgeRecords(db, context, StructureSheet(), scope, take);
  else if (const SheetSpec* sheet = FindSheet(review_.pieces[At(record.piece)].type); sheet != nullptr)
    JudgeRecords(db, context, *sheet, scope, take);
  // one that went, or went elsewhere
  if (!made || made->structure != record.structure || made->piece != record.piece || made->month != record.month)
    return false;
  review_.findings += static_cast<int>(made->findings.size()) - static_cast<int>(record.findings.size());
  record = std::move(*made);
  return true;
}

void ReviewKeeper::RenewGone(Database& db, const Companion& companion, const std::set<std::int64_t>& rows) {
  Number();
  KnownComments known(companion, false);
  const auto& gone = record_of_[static_cast<std::size_t>(RecordKind::kGone)];
  const bool some = std::any_of(rows.begin(), rows.end(), [&gone](std::int64_t row) { return gone.contains(row); });
  if (some)
    std::erase_if(review_.records,
                  [&](const ReviewedRecord& record) { return record.gone != nullptr && rows.contains(record.key); });
  std::vector<ReviewedRecord> records;
  for (const std::int64_t rowid : rows)
    db.ForEach(std::string(kLogColumns) + " WHERE rowid=?", {rowid}, [&](const RowView& row) {
      if (!record_at_.contains(NameOfRow(row).place)) records.push_back(Gone(db, RowOfLog(row, -1), known));
    });
  if (!some && records.empty()) return;
  std::move(records.begin(), records.end(), std::back_inserter(review_.records));
  Arrange();
}

}  // namespace merlu
