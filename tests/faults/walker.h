// A user without a plan: random acts over all screens, on a database of its own.
#pragma once

#include <deque>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "forms/desk.h"
#include "session/session.h"
#include "shell/ui.h"
#include "support/test_run.h"

namespace merlu::test {

class Walker : public Platform {
 public:
  // Works in the folder, which holds inventory.mdb, other.mdb and the template.
  Walker(std::uint32_t seed, std::string folder);

  void Start();
  // One act of the user; what it refuses counts too.
  void Act();
  // The last acts, the latest one last.
  const std::deque<std::string>& log() const { return log_; }
  long acts() const { return acts_; }
  // The step whose undo or redo has not led to the rows that were there before; empty while there is none.
  const std::string& differs() const { return differs_; }
  long compared() const { return compared_; }

  Session s{*this, *this, *this};

  Button Ask(const Box& box) override;
  std::string AskFile(const FileQuestion& question) override;
  std::string AskFolder(const std::string&) override { return folder_; }
  void RunModal(Form& form) override;
  void Paint() override {}
  void PaintWait(const WaitScreen&) override {}
  void SetBusy(bool) override {}
  void Beep() override {}
  DateTime Now() override { return {2017, 3, 5, 14, 2, 0}; }
  std::string Setting(const std::string&, const std::string&) override { return folder_ + "/inventory.mdb"; }
  void StoreSetting(const std::string&, const std::string&, const std::string&) override {}
  std::string ProgramFolder() override { return folder_; }
  bool IsInstalled() override { return false; }
  std::string DataFolder() override { return folder_; }
  void WriteReport(const InventoryReport&, const std::string& path, const std::function<void(int, int)>&) override;
  void WriteHandInReport(const HandInReport&, const std::string&) override {}
  void Print(const Form&) override {}
  void OpenDocument(const std::string&) override {}
  std::uint64_t FreeBytes(const std::string&) override { return std::uint64_t{1} << 40; }

 private:
  int Below(std::size_t count) { return static_cast<int>(random_() % count); }
  bool Chance(int percent) { return Below(100) < percent; }
  void Note(std::string what);
  std::string OddText();
  Form* Top();
  std::vector<std::string> Usable(const Form& form, std::initializer_list<Kind> kinds) const;
  bool IsWorthIt(const Form& form, const Control& control);

  void ActOnTree();
  void ActOn(Form& form);
  void Press(Form& form);
  void Enter(Form& form);
  void Choose(Form& form);
  void Tick(Form& form);
  void UseList(Form& form);
  void TurnPage(Form& form);
  void StartAgain();
  void UndoAndRedo();
  void Compare();

  std::mt19937 random_;
  const std::string folder_;
  std::deque<std::string> log_;
  long acts_ = 0;
  // What all rows were behind a step, by its number and how far it had been written.
  std::map<std::pair<std::int64_t, std::size_t>, std::size_t> known_;
  std::string differs_;
  long compared_ = 0;
};

// What does not hold between two acts: of the screen, and, with more work, of the file. Empty when all does.
std::string WrongOnScreen(Session& s);
std::string WrongInFile(Session& s);

}  // namespace merlu::test
