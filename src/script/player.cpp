#include "script/player.h"

#include <chrono>
#include <ctime>
#include <istream>
#include <ostream>
#include <utility>

#include "base/fault.h"
#include "host/report_pdf.h"
#include "script/words.h"
#include "shell/dialogs.h"
#include "shell/docks.h"
#include "shell/draft.h"
#include "shell/last_resort.h"
#include "shell/main_program.h"

namespace merlu {
namespace {

// Thrown by a command that fails; its text is the reason.
struct Refused {
  std::string why;
};

constexpr int kDraftMilliseconds = 1000;
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

std::string WholePath(const std::string& path) {
  std::error_code error;
  return path.empty() ? path : std::filesystem::absolute(path, error).lexically_normal().string();
}

bool IsSkipped(const std::string& line) {
  const auto first = line.find_first_not_of(" \t\r");
  return first == std::string::npos || line[first] == '#';
}

}  // namespace

Player::Player(std::istream& in, std::ostream& out, const PlayOptions& options)
    : RealHost(options.settings_file),
      in_(in),
      out_(out),
      stop_on_error_(options.stop_on_error),
      wait_(options.wait),
      clock_(options.clock) {}

int Player::Run() {
  while (Next()) {
    Carry();
    Emit();
  }
  at_end_ = true;
  if (session_.main != nullptr && !session_.ended) CloseMainWindow(session_);
  return failed_ || !out_ || in_.bad() ? 1 : 0;
}

bool Player::Next() {
  // no command is run when its answer cannot be written
  if (at_end_ || !out_ || (stop_on_error_ && failed_)) return false;
  // drafts are kept while waiting for input, as in the windows
  if (session_.draft.behind && wait_ && !wait_(kDraftMilliseconds)) KeepDraftOfEdit(session_, When::kAtOnce);
  std::string line;
  do {
    if (!std::getline(in_, line)) return false;
    // what some editors put in front of the first line
    if (lines_++ == 0 && line.starts_with(kByteOrderMark)) line.erase(0, std::string_view(kByteOrderMark).size());
  } while (IsSkipped(line));
  if (line.ends_with('\r')) line.pop_back();
  reply_ = Reply();
  reply_.line = line;
  answered_ = false;
  ++count_;
  return true;
}

void Player::Carry() {
  CloseSplash(session_);
  try {
    const auto words = SplitWords(reply_.line);
    if (!words) Fail("a quote is not closed");
    if (!Guarded(session_, reply_.line, [&] {
          RefreshDocks(session_);
          Dispatch(*words);
        }))
      Complain("it ended in a fault");
  } catch (const Refused& refused) {
    Complain(refused.why);
  }
  KeepDraftOfEdit(session_);
}

void Player::Emit() {
  if (std::exchange(answered_, true)) return;  // with the dialog that it opened, when the input ends in there
  Json answer = {{"n", count_}, {"cmd", reply_.line}, {"ok", reply_.ok}};
  if (!reply_.ok) answer["error"] = reply_.error;
  if (!reply_.modal.empty()) answer["modal"] = reply_.modal;
  answer.update(reply_.extra);
  answer["boxes"] = reply_.boxes;
  if (!reply_.opened.empty()) answer["opened"] = reply_.opened;
  if (!reply_.printed.empty()) answer["printed"] = reply_.printed;
  out_ << Line(answer) << std::endl;
  failed_ = failed_ || !reply_.ok;
}

void Player::Fail(const std::string& why) {
  throw Refused{why};
}

void Player::Done(const std::string& name, const std::string& refusal) {
  if (!refusal.empty()) Fail(name + " " + refusal);
}

Button Player::Ask(const Box& box) {
  Button answer = box.buttons.front();
  if (box.buttons.size() > 1) {
    const bool queued =
        !answers_.empty() && std::find(box.buttons.begin(), box.buttons.end(), answers_.front()) != box.buttons.end();
    answer = queued ? answers_.front() : LeastChange(box);
    if (!answers_.empty()) answers_.pop_front();
    if (!queued) Complain("unanswered box: " + box.text);
  }
  reply_.boxes.push_back(BoxJson(box, answer));
  return answer;
}

std::string Player::NextFile() {
  if (files_.empty()) return "";
  std::string path = std::move(files_.front());
  files_.pop_front();
  return path;
}

// Whole paths of what is there, as the dialogs give them.
std::string Player::AskFile(const FileQuestion& question) {
  std::error_code error;
  const bool open = question.kind == FileQuestion::Kind::kOpen;
  std::string path = WholePath(NextFile());
  if (open && std::filesystem::is_regular_file(path, error)) return path;
  path = WithExtension(path, question.extension);
  if (path.empty() || !open || std::filesystem::is_regular_file(path, error)) return path;
  Complain("no such file: " + path);
  return "";
}

std::string Player::AskFolder(const std::string&) {
  std::string path = WholePath(NextFile());
  std::error_code error;
  if (path.empty() || std::filesystem::is_directory(path, error)) return path;
  Complain("no such folder: " + path);
  return "";
}

void Player::Complain(const std::string& what) {
  reply_.ok = false;
  if (reply_.error.empty()) reply_.error = what;
}

void Player::RunModal(Form& form) {
  reply_.modal = form.name();
  Emit();
  while (form.visible) {
    if (!Next()) {
      at_end_ = true;
      if (!form.cancel_button.empty()) form.Raise(form.cancel_button, Event::kClick);
      session_.desk.Hide(form);
      return;
    }
    Carry();
    // the command that closed the dialog answers when the opener has done the rest
    if (form.visible) Emit();
  }
}

DateTime Player::Now() {
  return clock_ ? *clock_ : RealHost::Now();
}

void Player::Print(const Form& form) {
  reply_.printed.push_back(form.name());
}

void Player::OpenDocument(const std::string& path) {
  reply_.opened.push_back(path);
}

}  // namespace merlu
