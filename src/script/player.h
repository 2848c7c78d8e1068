// Plays commands on the screens without a window.
#pragma once

#include <deque>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "host/real_host.h"
#include "script/json_views.h"
#include "session/session.h"
#include "shell/ui.h"

namespace merlu {

struct PlayOptions {
  std::string settings_file;      // empty: the user's own
  std::optional<DateTime> clock;  // empty: the real one
  bool stop_on_error = false;
  // Waits for input, that many milliseconds at most; false when none came. Empty where input is never waited for.
  std::function<bool(int milliseconds)> wait;
};

// The platform of a script: boxes and dialogs are answered from queues, nothing is painted. A dialog runs
// the commands that follow until it closes.
class Player : public Platform, public RealHost {
 public:
  Player(std::istream& in, std::ostream& out, const PlayOptions& options);

  // Plays all commands; 0 when every one could be done, otherwise 1.
  int Run();

  Session& session() { return session_; }

  Button Ask(const Box& box) override;
  std::string AskFile(const FileQuestion& question) override;
  std::string AskFolder(const std::string& prompt) override;
  void RunModal(Form& form) override;
  void Paint() override {}
  void PaintWait(const WaitScreen&) override {}
  void SetBusy(bool) override {}
  void Beep() override {}
  DateTime Now() override;
  void Print(const Form& form) override;
  void OpenDocument(const std::string& path) override;

 private:
  using Words = std::vector<std::string>;
  struct Command;
  static const std::vector<Command>& Commands();

  // Reads the next command into the reply; false at the end of the input.
  bool Next();
  // Does the command in the reply.
  void Carry();
  // Writes the reply out, once.
  void Emit();
  void Dispatch(const Words& words);
  [[noreturn]] void Fail(const std::string& why);
  std::string NextFile();
  // Marks the command as failed; the first reason is reported.
  void Complain(const std::string& what);

  // Makes the forms of screens that were never shown, so that their controls are known; they stay unloaded.
  void MakeScreens();
  // A control by its name, as the script finds it; fails for an unknown one.
  std::pair<Form*, Control*> Look(const std::string& name);
  // Fails with the control's name in front when an act was refused.
  void Done(const std::string& name, const std::string& refusal);

  void Start(const Words& words);
  void Answer(const Words& words);
  void File(const Words& words);
  void ListTree(const Words& words);
  void Select(const Words& words);
  void Click(const Words& words);
  void DoubleClick(const Words& words);
  void Set(const Words& words);
  void SetPage(Form& form, Control& tab, const std::string& value);
  void Pick(const Words& words);
  void Sort(const Words& words);
  void Cell(const Words& words);
  void Paste(const Words& words);
  // A row or a column of a grid, by its number or its name; fails when there is none.
  int RowOf(const Control& control, const std::string& word);
  int ColumnOf(const Control& control, const std::string& word);
  void Get(const Words& words);
  void Controls(const Words& words);
  void Forms(const Words& words);
  void ShowSession(const Words& words);
  void Sql(const Words& words);
  void Clock(const Words& words);
  void Close(const Words& words);
  [[noreturn]] void Leave(const Words& words);

  std::istream& in_;
  std::ostream& out_;
  bool stop_on_error_;
  std::function<bool(int)> wait_;
  std::optional<DateTime> clock_;
  Session session_{*this, *this, *this};
  std::deque<Button> answers_;
  std::deque<std::string> files_;

  struct Reply {
    std::string line;
    bool ok = true;
    std::string error;
    std::string modal;
    Json extra = Json::object();
    Json boxes = Json::array();
    Json opened = Json::array();
    Json printed = Json::array();
  };
  Reply reply_;
  bool answered_ = true;       // the reply has been written out
  int count_ = 0, lines_ = 0;  // commands and lines so far
  bool failed_ = false;
  bool at_end_ = false;
};

}  // namespace merlu
