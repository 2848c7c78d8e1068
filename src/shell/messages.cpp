#include "shell/messages.h"

#include <utility>

namespace merlu {
namespace {

// What a box says below a text that does not name the file itself.
std::string Below(const std::string& text, const std::string& path) {
  return text.find(path) == std::string::npos ? path : "";
}

}  // namespace

void ShowNotices(Session& s) {
  // a box can let another act run, which shows what is left
  while (!s.notices.waiting.empty()) {
    const Notice notice = std::move(s.notices.waiting.front());
    s.notices.waiting.erase(s.notices.waiting.begin());
    s.ui.Ask({notice.text, s.title, notice.icon, {Button::kOK}, 0, notice.detail});
  }
}

std::vector<std::string> TakeRuleNotices(Session& s) {
  std::vector<std::string> texts;
  std::erase_if(s.notices.waiting, [&](const Notice& notice) {
    if (notice.of_rule) texts.push_back(notice.text);
    return notice.of_rule;
  });
  return texts;
}

Button Ask(Session& s, const Box& box) {
  ShowNotices(s);
  return s.ui.Ask(box);
}

Button AskUser(Session& s, const std::string& text, std::vector<Button> buttons, Icon icon) {
  return Ask(s, {text, s.title, icon, std::move(buttons), 0, {}});
}

std::string AskFile(Session& s, const FileQuestion& question) {
  ShowNotices(s);
  return s.ui.AskFile(question);
}

std::string AskFolder(Session& s, const std::string& prompt) {
  ShowNotices(s);
  return s.ui.AskFolder(prompt);
}

void OpenDialog(Session& s, Form& form) {
  ShowNotices(s);
  form.loaded = true;
  form.modal = true;
  s.desk.Show(form);
  s.ui.RunModal(form);
  s.desk.Hide(form);
  form.modal = false;
  form.loaded = false;
  ShowNotices(s);
}

void TellUnder(Session& s, const std::string& title, const std::string& text, Icon icon) {
  Ask(s, {text, title, icon, {Button::kOK}, 0, {}});
}

void Tell(Session& s, const std::string& text, Icon icon) {
  TellUnder(s, s.title, text, icon);
}

void TellOfFile(Session& s, const std::string& text, const std::string& path, Icon icon) {
  Ask(s, {text, s.title, icon, {Button::kOK}, 0, Below(text, path)});
}

Button AskOfFile(Session& s, const std::string& text, const std::string& path, std::vector<Button> buttons) {
  return Ask(s, {text, s.title, Icon::kQuestion, std::move(buttons), 0, Below(text, path)});
}

void TellFault(Session& s, const Fault& fault, const std::string& path) {
  const std::string text = FaultText(fault), detail = FaultDetail(fault);
  Ask(s, {text, s.title, Icon::kNone, {Button::kOK}, 0, detail.empty() ? Below(text, path) : detail});
}

void TellFaultNumberFirst(Session& s, const Fault& fault, const std::string& path) {
  TellOfFile(s, SheetFaultText(fault), path);
}

void KeepSetting(Session& s, const std::string& section, const std::string& key, const std::string& value) {
  Plainly(s, [&] { s.host.StoreSetting(section, key, value); });
}

}  // namespace merlu
