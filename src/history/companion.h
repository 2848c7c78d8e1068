// The file beside an inventory (merlu.mdb.history) for what the inventory's own layout has no room for: the steps that
// can be undone, drafts of interrupted edits, the values that comments were written for, copied values not yet
// confirmed, and hand-ins. It is attached to the inventory's connection, so that one commit covers both.
//
// A companion that is missing, locked, damaged, read-only or of another inventory never makes a save fail: the
// procedures of history/ then find nothing and store nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "store/database.h"

namespace merlu {

inline constexpr const char* kCompanionExtension = ".history";

// What a step is called and where it belongs.
struct StepTitle {
  std::string when, who, what, place;
  std::string from, to;  // packed locations before and after the step
};

struct HistoryStep {
  std::int64_t id = 0;
  StepTitle title;
  std::int64_t values = 0;
  bool undone = false;
  bool ends_undo = false;  // a backup was restored: nothing can be undone from here on
};

class Companion : public BatchPartner {
 public:
  // Limits of what is kept.
  std::int64_t most_steps = 1000;
  std::int64_t most_bytes = std::int64_t{64} << 20;

  Companion() = default;
  ~Companion() override { Close(); }
  Companion(const Companion&) = delete;
  Companion& operator=(const Companion&) = delete;

  // Takes part in the connection's batches from here on. A companion that exists is attached at once; otherwise it is
  // made with the first batch. `untitled` names a batch that no step was begun for.
  void Open(Database& db, std::function<StepTitle()> untitled);
  // Before the connection closes.
  void Close();

  // Whether there is one to read from and write to.
  bool IsAttached() const { return attached_; }
  // The connection while there is one; null otherwise.
  Database* db() const { return attached_ ? db_ : nullptr; }
  // Why nothing is being kept, for the status bar; empty while something is, or nothing has been written yet.
  const std::string& why_not() const { return why_not_; }
  // That text when it is another one than the last time; empty otherwise.
  std::string TakeNews();
  // Attaches or makes it outside a batch, for what is written to it alone. False when there is none to write to.
  bool Want();

  // All batches until the end of the step belong to it; steps begun inside another one are part of that.
  void BeginStep(StepTitle title);
  void EndStep();
  bool InStep() const { return depth_ > 0; }
  // The step that the last batch was kept in, 0 for none. After ContinueWith the next batch is kept in that step, too.
  std::int64_t last_step() const { return last_step_; }
  void ContinueWith(std::int64_t step) { continued_ = step; }
  // The next batch that is committed forgets the draft.
  void ForgetDraftWithBatch(std::int64_t draft) { done_draft_ = draft; }
  // The next batches are not steps (undo, redo), until Resume.
  void Pause() { paused_ = true; }
  void Resume() { paused_ = false; }

  void Begin() override;
  void Write(const Changes& changes) override;
  bool StepAside(const Fault& why) override;

 private:
  void Attach(bool make);
  bool IsAnothers();
  void Detach();
  void Refuse(const std::string& why, bool for_good, const std::string& file);
  void KeepStep(const Changes& changes);
  std::int64_t NewStep();
  void MakeRoom(std::int64_t bytes);

  Database* db_ = nullptr;
  std::function<StepTitle()> untitled_;
  std::string path_;
  bool open_ = false, attached_ = false, refused_ = false, paused_ = false;
  std::string why_not_, reported_;  // reported_: what TakeNews gave last
  int depth_ = 0;
  StepTitle title_;
  std::int64_t step_ = 0;  // the open step, 0 until something is kept in it
  std::int64_t last_step_ = 0, continued_ = 0, done_draft_ = 0;
};

// The steps, newest first.
std::vector<HistoryStep> Steps(const Companion& companion);
// What the next undo, or redo, would take; empty when there is none.
std::optional<HistoryStep> NextUndo(const Companion& companion);
std::optional<HistoryStep> NextRedo(const Companion& companion);
// The packed changes of a step, in the order in which they were written.
std::vector<std::string> PartsOf(const Companion& companion, std::int64_t step);

// A row that was changed since and prevents an undo or redo.
struct InTheWay {
  std::string table;
  std::int64_t rowid = 0;
};

// Takes back all steps from the newest down to this one, or does the step and all undone ones before it again; all of
// it or, when a row is not as the step left it, nothing. Faults of the store are thrown.
std::optional<InTheWay> UndoSteps(Companion& companion, std::int64_t step);
std::optional<InTheWay> RedoSteps(Companion& companion, std::int64_t step);
// Looks at some rows of the newest step that was done.
bool IsAsNewestStepLeftIt(const Companion& companion);

}  // namespace merlu
