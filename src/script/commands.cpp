// The commands of a script.
#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "forms/desk.h"
#include "forms/grid_model.h"
#include "script/player.h"
#include "session/main_names.h"
#include "sheets/sheet_form.h"
#include "sheets/units.h"
#include "shell/completeness_dock.h"
#include "shell/dialogs.h"
#include "shell/draft.h"
#include "shell/exchange_dialogs.h"
#include "shell/find_dialog.h"
#include "shell/findings_dock.h"
#include "shell/grid_dialog.h"
#include "shell/hand_in_dialog.h"
#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/month_book_dialog.h"
#include "shell/navigation.h"
#include "shell/results.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"
#include "shell/strip_dock.h"
#include "store/value_json.h"

namespace merlu {
namespace {

const Button kButtons[] = {Button::kOK, Button::kCancel, Button::kYes, Button::kNo, Button::kRetry};

std::optional<int> WholeNumber(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// Whether the list takes the text, asked before the focus goes there.
bool HasChoice(const Control& control, const std::string& text) {
  return control.kind != Kind::kList || control.free_text ||
         std::find(control.items.begin(), control.items.end(), text) != control.items.end();
}

// The text of a pasted block, in which tabs and line ends are written as \t and \n.
std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char next = text[at] == '\\' && at + 1 < text.size() ? text[at + 1] : '\0';
    const char meant = next == 't' ? '\t' : next == 'n' ? '\n' : next == '\\' ? '\\' : '\0';
    plain += meant == '\0' ? text[at] : meant;
    if (meant != '\0') ++at;
  }
  return plain;
}

}  // namespace

struct Player::Command {
  const char* name;
  std::size_t least, most;  // words after the name
  void (Player::*run)(const Words&);
};

const std::vector<Player::Command>& Player::Commands() {
  constexpr std::size_t kAny = 1000000;
  static const std::vector<Command> commands = {
      {"start", 0, 1, &Player::Start},
      {"answer", 1, kAny, &Player::Answer},
      {"file", 1, kAny, &Player::File},
      {"tree", 0, 0, &Player::ListTree},
      {"select", 1, 1, &Player::Select},
      {"click", 1, 1, &Player::Click},
      {"dblclick", 1, 3, &Player::DoubleClick},
      {"set", 2, 2, &Player::Set},
      {"pick", 1, kAny, &Player::Pick},
      {"sort", 2, 2, &Player::Sort},
      {"cell", 4, 4, &Player::Cell},
      {"paste", 4, 4, &Player::Paste},
      {"leave", 0, 0, &Player::Leave},
      {"get", 1, 1, &Player::Get},
      {"controls", 0, 1, &Player::Controls},
      {"forms", 0, 0, &Player::Forms},
      {"session", 0, 0, &Player::ShowSession},
      {"sql", 1, 1, &Player::Sql},
      {"clock", 1, 1, &Player::Clock},
      {"close", 0, 0, &Player::Close},
  };
  return commands;
}

void Player::Dispatch(const Words& words) {
  const auto& commands = Commands();
  const auto command =
      std::find_if(commands.begin(), commands.end(), [&](const Command& c) { return words.front() == c.name; });
  if (command == commands.end()) Fail("unknown command " + words.front());
  const std::size_t count = words.size() - 1;
  if (count < command->least || count > command->most)
    Fail(std::string(command->name) + " takes other words than these");
  (this->*command->run)(words);
}

void Player::MakeScreens() {
  const bool in_dialog = session_.desk.Dialog() != nullptr;
  if (session_.main == nullptr && !in_dialog) return;  // nothing was started
  // a dialog that is open is not to be made anew
  if (!in_dialog) {
    MakeDialogs(session_);
    MakeExchangeDialogs(session_);
    MakeGridDialogs(session_);
    MakeReadPlanDialog(session_);
    MakeHandInDialog(session_);
    MakeGoToDialog(session_);
  }
  if (session_.main != nullptr) {
    FindingsDock(session_);
    CompletenessDock(session_);
    MakeStrip(session_);
  }
  for (const SheetSpec* sheet : AllSheets()) {
    if (session_.desk.Find(sheet->form()) != nullptr) continue;
    SheetForm(session_, *sheet);
    UnloadSheet(session_, *sheet);
  }
}

std::pair<Form*, Control*> Player::Look(const std::string& name) {
  Desk& desk = session_.desk;
  std::vector<Form*> order = desk.LookUpOrder(session_.main);
  for (const bool made : {false, true}) {
    if (made) MakeScreens();
    for (const auto& form : desk.forms) order.push_back(form.get());
    for (Form* form : order)
      if (Control* control = form->Find(name)) return {form, control};
  }
  Fail("unknown control " + name);
}

void Player::Start(const Words& words) {
  if (session_.desk.Dialog() != nullptr) Fail("a dialog is open");
  if (session_.editing) Fail("an edit is open");
  if (words.size() > 1) Plainly(session_, [&] { StoreSetting(kSettingSection, kSettingPath, words[1]); });
  if (session_.main != nullptr && !session_.ended) CloseMainWindow(session_);
  Main(session_);
}

void Player::Answer(const Words& words) {
  std::vector<Button> queued;
  for (auto word = words.begin() + 1; word != words.end(); ++word) {
    const auto* button =
        std::find_if(std::begin(kButtons), std::end(kButtons), [&](Button b) { return ButtonName(b) == *word; });
    if (button == std::end(kButtons)) Fail("unknown answer " + *word);
    queued.push_back(*button);
  }
  answers_.insert(answers_.end(), queued.begin(), queued.end());
}

void Player::File(const Words& words) {
  files_.insert(files_.end(), words.begin() + 1, words.end());
}

void Player::ListTree(const Words&) {
  reply_.extra["nodes"] = TreeJson(session_.tree);
}

void Player::Select(const Words& words) {
  const auto [form, tree] = Look(names::tvwTree);
  Done(names::tvwTree, WhyNot(session_.desk, *form, *tree, true));
  const int node = session_.tree.Find(words[1]);
  if (node < 0) Fail("unknown node \"" + words[1] + "\"");
  ClickNode(session_, node);
}

void Player::Click(const Words& words) {
  const auto [form, control] = Look(words[1]);
  Done(control->name, act::Click(session_.desk, *form, control->name));
}

void Player::DoubleClick(const Words& words) {
  const auto [form, control] = Look(words[1]);
  if (control->kind != Kind::kListView && control->kind != Kind::kGrid) Fail(control->name + " is not a list");
  if (words.size() > 3 && control->kind != Kind::kGrid) Fail(control->name + " is not a grid");
  const int row = words.size() > 2 ? RowOf(*control, words[2]) : -1;
  const int column = words.size() > 3 ? ColumnOf(*control, words[3]) : -1;
  // the month's summary cannot be used in view, and leads on all the same, as in the windows
  const bool summary = control->name == names::lvwSURVEY_QCResults && row >= 0 && !control->enabled;
  if (summary && WhyNot(session_.desk, *form, *control, false) == "is disabled")
    return OpenResult(session_, *form, control->name, row);
  Done(control->name, act::DoubleClick(session_.desk, *form, control->name, row, column));
}

// A name that looks like a number is the name: the months of the matrix are "01" to "12".
int Player::RowOf(const Control& control, const std::string& word) {
  const int row = control.grid != nullptr ? control.grid->FindRow(word) : -1;
  if (row >= 0) return row;
  const std::optional<int> number = WholeNumber(word);
  if (!number || *number < 0 || *number >= RowCount(control)) Fail(control.name + " has no row " + word);
  return *number;
}

int Player::ColumnOf(const Control& control, const std::string& word) {
  const int column = control.grid->FindColumn(word);
  if (column >= 0) return column;
  const std::optional<int> number = WholeNumber(word);
  if (!number || *number < 0 || *number >= static_cast<int>(control.grid->Columns().size()))
    Fail(control.name + " has no column " + word);
  return *number;
}

void Player::Sort(const Words& words) {
  const auto [form, control] = Look(words[1]);
  if (control->kind != Kind::kListView) Fail(control->name + " is not a list");
  const auto head = std::find(control->columns.begin(), control->columns.end(), words[2]);
  const std::optional<int> number = WholeNumber(words[2]);
  if (head == control->columns.end() && !number) Fail(control->name + " has no column " + words[2]);
  const int column = head != control->columns.end() ? static_cast<int>(head - control->columns.begin()) : *number;
  Done(control->name, act::Sort(session_.desk, *form, control->name, column));
}

void Player::Cell(const Words& words) {
  const auto [form, control] = Look(words[1]);
  if (control->kind != Kind::kGrid) Fail(control->name + " is not a grid");
  Done(control->name, WhyNot(session_.desk, *form, *control, false));
  const int row = RowOf(*control, words[2]), column = ColumnOf(*control, words[3]);
  Done(control->name, act::TypeCell(session_.desk, *form, control->name, row, column, words[4]));
}

void Player::Paste(const Words& words) {
  const auto [form, control] = Look(words[1]);
  if (control->kind != Kind::kGrid) Fail(control->name + " is not a grid");
  Done(control->name, WhyNot(session_.desk, *form, *control, false));
  const int row = RowOf(*control, words[2]), column = ColumnOf(*control, words[3]);
  Done(control->name, act::Paste(session_.desk, *form, control->name, row, column, Unescaped(words[4])));
}

void Player::SetPage(Form& form, Control& tab, const std::string& value) {
  const auto caption = std::find(tab.items.begin(), tab.items.end(), value);
  const std::optional<int> number = WholeNumber(value);
  if (caption == tab.items.end() && !number) Fail(tab.name + " has no page \"" + value + "\"");
  const int page = caption != tab.items.end() ? static_cast<int>(caption - tab.items.begin()) : *number;
  Done(tab.name, act::Page(session_.desk, form, tab.name, page));
}

void Player::Set(const Words& words) {
  const auto [form, control] = Look(words[1]);
  const std::string name = control->name;
  const std::string& value = words[2];
  Desk& desk = session_.desk;
  switch (control->kind) {
    case Kind::kText:
    case Kind::kMasked:
    case Kind::kList:
      Done(name, WhyNot(desk, *form, *control, true));
      if (!HasChoice(*control, value)) Fail(name + " has no item \"" + value + "\"");
      act::GotFocus(desk, *form, name);
      Done(name,
           control->kind == Kind::kList ? act::Choose(desk, *form, name, value) : act::Type(desk, *form, name, value));
      act::LostFocus(desk, *form, name);
      if (form == session_.main) LeaveDocks(session_);
      form->focus = name;
      return;
    case Kind::kCheck:
      if (value != "on" && value != "off") Fail(name + " takes on or off");
      return Done(name, act::Check(desk, *form, name, value == "on"));
    case Kind::kTab: return SetPage(*form, *control, value);
    default: Fail(name + " cannot be set");
  }
}

void Player::Pick(const Words& words) {
  const auto [form, control] = Look(words[1]);
  if (control->kind != Kind::kListView && control->kind != Kind::kGrid) Fail(control->name + " is not a list");
  std::vector<int> rows;
  for (std::size_t i = 2; i < words.size(); ++i) {
    std::optional<int> row = WholeNumber(words[i]);
    if (control->grid != nullptr) row = RowOf(*control, words[i]);
    if (!row) Fail("no row number: " + words[i]);
    rows.push_back(*row);
  }
  Done(control->name, act::Pick(session_.desk, *form, control->name, rows));
}

void Player::Get(const Words& words) {
  const auto [form, control] = Look(words[1]);
  if (!form->loaded) Fail(control->name + " is not on the screen");
  reply_.extra["control"] = ControlJson(*form, *control);
}

void Player::Controls(const Words& words) {
  Desk& desk = session_.desk;
  const Form* form = words.size() > 1 ? desk.Find(words[1]) : desk.showing.empty() ? nullptr : desk.showing.back();
  if (form == nullptr || !form->loaded) Fail(words.size() > 1 ? "unknown form " + words[1] : "no form is showing");
  Json list = Json::array();
  for (const Control& control : form->controls()) list.push_back(ControlJson(*form, control));
  reply_.extra["controls"] = list;
}

void Player::Forms(const Words&) {
  Json names = Json::array();
  for (const Form* form : session_.desk.showing) names.push_back(form->name());
  reply_.extra["top"] = names.empty() ? Json("") : names.back();
  reply_.extra["forms"] = names;
}

void Player::ShowSession(const Words&) {
  if (session_.main != nullptr) UpdateStatus(session_);
  AddSession(reply_.extra, session_);
}

void Player::Sql(const Words& words) {
  Rows result;
  try {
    result = session_.db.ReadOnlyQuery(words[1]);
  } catch (const Fault& fault) {
    Fail(fault.description);
  }
  Json rows = Json::array();
  for (const Values& values : result.rows) {
    Json row = Json::array();
    for (const Value& value : values) row.push_back(ValueJson(value));
    rows.push_back(row);
  }
  reply_.extra["columns"] = result.columns;
  reply_.extra["rows"] = rows;
}

void Player::Clock(const Words& words) {
  const std::optional<DateTime> date = ParseDate(words[1]);
  if (!date) Fail("no date and time: " + words[1]);
  clock_ = date;
}

void Player::Close(const Words&) {
  if (session_.main == nullptr || !session_.main->visible) Fail("no window is open");
  if (session_.desk.Dialog() != nullptr) Fail("frmMain is not on the screen");
  CloseMainWindow(session_);
}

void Player::Leave(const Words&) {
  KeepDraftOfEdit(session_, When::kAtOnce);  // the cut comes when everything typed is kept
  Emit();
  std::_Exit(failed_ ? 1 : 0);
}

}  // namespace merlu
