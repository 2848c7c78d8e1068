#include "history/companion.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "history/layout.h"
#include "history/steps.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kSchema = "history";
constexpr const char* kSource = "MERLU history";

// Which inventory it is: the operator and the year never change once they are known.
std::string InventoryName(Database& db) {
  return NullToEmpty(db.Single("SELECT RIMA_CO_NUM FROM main.CO_COMPANY ORDER BY rowid LIMIT 1")) + "/" +
         NullToEmpty(db.Single("SELECT sys_yr FROM main.SYS_CONFIG ORDER BY rowid LIMIT 1"));
}

Value About(Database& db, const char* what) {
  return db.Single("SELECT value FROM history.about WHERE what=?", {std::string(what)});
}

void SetAbout(Database& db, const char* what, const Value& value) {
  db.Execute(
      "INSERT INTO history.about (what,value) VALUES (?,?) ON CONFLICT (what) DO UPDATE SET value=excluded.value",
      {std::string(what), value});
}

// An empty file, which a file that several people share has theirs too.
void MakeBeside(const std::string& inventory, const std::string& path) {
  if (!std::ofstream(path, std::ios::app))
    throw Fault(fault_number::kFileAccess, kSource, "Cannot make the file " + path + ".");
  std::error_code error;
  const auto status = std::filesystem::status(inventory, error);
  if (!error) std::filesystem::permissions(path, status.permissions(), error);
}

std::string Words(const Fault& fault) {
  switch (fault.number) {
    case fault_number::kInUse:
    case fault_number::kInUseTable: return "is locked by another program";
    case fault_number::kDamaged:
    case fault_number::kNotADatabase:
    case fault_number::kNoSuchTable:
    case fault_number::kNoSuchItem: return "is damaged";
    case fault_number::kDiskFullStore: return "has no room on the disk";
    case fault_number::kPathNotFound: return "was moved or deleted";
    default: return "cannot be written";
  }
}

bool IsLock(const Fault& fault) {
  return fault.number == fault_number::kInUse || fault.number == fault_number::kInUseTable;
}

// A lock passes; one that was moved or deleted is made anew.
bool MayPass(const Fault& fault) {
  return IsLock(fault) || fault.number == fault_number::kPathNotFound;
}

// Whether another program keeps the inventory itself from being written. The companion is not attached.
bool IsInventoryLocked(Database& db) {
  try {
    db.Execute("BEGIN EXCLUSIVE");
    db.Execute("ROLLBACK");
    return false;
  } catch (const Fault& fault) {
    return IsLock(fault);
  }
}

}  // namespace

void Companion::Open(Database& db, std::function<StepTitle()> untitled) {
  Close();
  db_ = &db;
  untitled_ = std::move(untitled);
  path_ = db.path() + kCompanionExtension;
  open_ = true;
  if (!db.recorder().IsOn()) db.RecordChanges(RecordedCompanionTables());
  db.SetPartner(this);
  Attach(false);
}

void Companion::Close() {
  if (!open_) return;
  db_->SetPartner(nullptr);
  Detach();
  // an open step continues with the next file
  db_ = nullptr;
  open_ = refused_ = false;
  why_not_.clear();
  reported_.clear();
  step_ = last_step_ = continued_ = done_draft_ = 0;
}

bool Companion::Want() {
  if (open_ && !attached_ && !refused_) Attach(true);
  return attached_;
}

void Companion::Begin() {
  Want();
}

void Companion::Attach(bool make) {
  const bool exists = FileExists(path_);
  if (!exists && (!make || !FileExists(db_->path()))) return;
  try {
    // what cannot be kept is not offered either
    if (!CanWriteFolder(FolderOf(path_))) return Refuse("lies in a folder that cannot be written to", true, path_);
    if (!exists) MakeBeside(db_->path(), path_);
    db_->Attach(path_, kSchema);
    attached_ = true;
    if (db_->IsReadOnly(kSchema)) throw Fault(fault_number::kReadOnly, kSource, "");
    // a step and the rows that it records are committed together
    db_->Execute("PRAGMA history.synchronous=EXTRA");
    // one super-journal covers both files in this mode alone
    db_->Query("PRAGMA history.journal_mode=DELETE");
    db_->Query("PRAGMA history.secure_delete=FAST");
    if (ToInteger(db_->Single("SELECT COUNT(*) FROM history.sqlite_schema")) == 0) {
      if (!make) return Detach();
      // a layout without its inventory's identity would belong to no inventory
      WriteBatch batch(*db_);
      MakeLayout(*db_);
      SetAbout(*db_, "inventory", InventoryName(*db_));
      batch.Commit();
    }
    if (IsAnothers()) return Refuse("belongs to another inventory", true, path_);
    why_not_.clear();
  } catch (const Fault& fault) {
    Detach();
    const bool inventory = IsLock(fault) && IsInventoryLocked(*db_);
    Refuse(Words(fault), !MayPass(fault), inventory ? db_->path() : path_);
  }
}

bool Companion::IsAnothers() {
  if (!HasLayout(*db_)) throw Fault(fault_number::kDamaged, kSource, "");
  const std::int64_t known = ToInteger(About(*db_, "counter")), present = db_->FileChangeCounter();
  return NullToEmpty(About(*db_, "inventory")) != InventoryName(*db_) ||
         // the inventory has never been as young as this since the companion went with it
         known > present ||
         // the change counter is unchanged, but the rows differ
         (known == present && !IsAsNewestStepLeftIt(*this));
}

void Companion::Detach() {
  if (!std::exchange(attached_, false)) return;
  try {
    db_->Detach(kSchema);
  } catch (const Fault&) {
    // the connection's end detaches it
  }
}

void Companion::Refuse(const std::string& why, bool for_good, const std::string& file) {
  Detach();
  refused_ = for_good;
  why_not_ = "No history is being kept: " + std::filesystem::path(file).filename().string() + " " + why + ".";
}

std::string Companion::TakeNews() {
  return why_not_ == std::exchange(reported_, why_not_) ? "" : why_not_;
}

bool Companion::StepAside(const Fault& why) {
  if (!attached_) return false;
  step_ = 0;
  Detach();
  // without the companion the batch would meet the same lock
  if (IsLock(why) && IsInventoryLocked(*db_)) return false;
  Refuse(Words(why), !MayPass(why), path_);
  return true;
}

void Companion::BeginStep(StepTitle title) {
  if (depth_++ > 0) return;
  title_ = std::move(title);
  step_ = std::exchange(continued_, 0);
}

void Companion::EndStep() {
  if (--depth_ == 0) step_ = 0;
}

void Companion::Write(const Changes& changes) {
  if (!attached_ || changes.rows.empty()) return;
  if (const std::int64_t draft = std::exchange(done_draft_, 0); draft != 0) {
    db_->Execute("DELETE FROM history.draft_field WHERE draft=?", {draft});
    db_->Execute("DELETE FROM history.draft WHERE id=?", {draft});
  }
  if (!paused_) KeepStep(changes);
  // what this commit makes of the inventory's own counter
  const auto of_inventory = [&](const RowChange& row) { return !changes.TableOf(row).IsAttached(); };
  if (std::any_of(changes.rows.begin(), changes.rows.end(), of_inventory))
    SetAbout(*db_, "counter", db_->FileChangeCounter() + 1);
}

std::int64_t Companion::NewStep() {
  const StepTitle& t = title_;
  db_->Execute("UPDATE history.step SET state=3 WHERE state=1");
  db_->Execute(
      "INSERT INTO history.step (made_at,who,what,place,stood_at,stands_at,shown,bytes,state) VALUES "
      "(?,?,?,?,?,?,0,0,0)",
      {t.when, t.who, t.what, t.place, t.from, t.to});
  return ToInteger(db_->Single("SELECT MAX(id) FROM history.step"));
}

void Companion::KeepStep(const Changes& changes) {
  if (depth_ == 0) {
    title_ = untitled_ ? untitled_() : StepTitle{};
    step_ = std::exchange(continued_, 0);
  }
  const PackedChanges packed = PackChanges(changes);
  const auto size = static_cast<std::int64_t>(packed.bytes.size());
  MakeRoom(size);
  // the one to go on with may have made room itself
  if (step_ == 0 || IsNull(db_->Single("SELECT 1 FROM history.step WHERE id=?", {step_}))) step_ = NewStep();
  db_->ExecuteStored("INSERT INTO history.part (step,changes) VALUES (?,?)",
                     {{.kind = StoredValue::Kind::kInteger, .integer = step_},
                      {.kind = StoredValue::Kind::kBlob, .bytes = packed.bytes}});
  db_->Execute("UPDATE history.step SET what=?,place=?,stands_at=?,shown=shown+?,bytes=bytes+? WHERE id=?",
               {title_.what, title_.place, title_.to, packed.shown, size, step_});
  last_step_ = step_;
  if (depth_ == 0) step_ = 0;
}

// Lets the oldest steps go for one more with that many bytes.
void Companion::MakeRoom(std::int64_t bytes) {
  while (true) {
    std::int64_t steps = 0, kept = 0, oldest = 0;
    db_->ForEach("SELECT COUNT(*),COALESCE(SUM(bytes),0),MIN(id) FROM history.step", {}, [&](const RowView& row) {
      steps = row.Integer(0);
      kept = row.Integer(1);
      oldest = row.Integer(2);
    });
    if (steps == 0 || (steps + (step_ == 0 ? 1 : 0) <= most_steps && kept + bytes <= most_bytes)) return;
    db_->Execute("DELETE FROM history.part WHERE step=?", {oldest});
    db_->Execute("DELETE FROM history.step WHERE id=?", {oldest});
  }
}

namespace {

constexpr const char* kStepColumns =
    "SELECT id,made_at,who,what,place,stood_at,stands_at,shown,state FROM history.step ";

HistoryStep ReadStep(const RowView& row) {
  HistoryStep step;
  step.id = row.Integer(0);
  StepTitle& t = step.title;
  std::string* const texts[] = {&t.when, &t.who, &t.what, &t.place, &t.from, &t.to};
  for (int i = 0; i < 6; ++i) *texts[i] = std::string(row.Text(i + 1));
  step.values = row.Integer(7);
  step.undone = row.Integer(8) == step_state::kUndone || row.Integer(8) == step_state::kEnded;
  step.ends_undo = row.Integer(8) == step_state::kEndsUndo;
  return step;
}

std::optional<HistoryStep> OneStep(const Companion& companion, const std::string& which, const Values& values = {}) {
  std::optional<HistoryStep> found;
  if (companion.db() == nullptr) return found;
  companion.db()->ForEach(kStepColumns + which, values, [&](const RowView& row) { found = ReadStep(row); });
  return found;
}

}  // namespace

std::vector<HistoryStep> Steps(const Companion& companion) {
  std::vector<HistoryStep> steps;
  if (companion.db() == nullptr) return steps;
  companion.db()->ForEach(std::string(kStepColumns) + "ORDER BY id DESC", {},
                          [&](const RowView& row) { steps.push_back(ReadStep(row)); });
  return steps;
}

std::optional<HistoryStep> NextUndo(const Companion& companion) {
  std::optional<HistoryStep> newest = OneStep(companion, "WHERE state NOT IN (1,3) ORDER BY id DESC LIMIT 1");
  if (newest && newest->ends_undo) return std::nullopt;
  return newest;
}

std::optional<HistoryStep> NextRedo(const Companion& companion) {
  return OneStep(companion, "WHERE state=1 ORDER BY id LIMIT 1");
}

std::vector<std::string> PartsOf(const Companion& companion, std::int64_t step) {
  std::vector<std::string> parts;
  if (companion.db() == nullptr) return parts;
  companion.db()->ForEach("SELECT changes FROM history.part WHERE step=? ORDER BY id", {step},
                          [&](const RowView& row) { parts.emplace_back(row.Text(0)); });
  return parts;
}

}  // namespace merlu
