#include "digests/chooser.h"

#include <algorithm>

#include "forms/desk.h"

namespace merlu::test {
namespace {

const std::vector<std::string> kNumbers = {"0",   "1",   "0.5", "2",   "5",    "12",   "24",   "31",    "40",   "50",
                                           "60",  "75",  "95",  "98",  "99",   "100",  "101",  "150",   "200",  "250",
                                           "500", "743", "744", "745", "1000", "1500", "5000", "10000", "0.01", "-1"};
const std::vector<std::string> kOdd = {"",
                                       " ",
                                       "-0",
                                       "+5",
                                       "1e3",
                                       "1e308",
                                       "1e309",
                                       "-1e400",
                                       "1,000",
                                       "1,0,0",
                                       ",1",
                                       ".5",
                                       "5.",
                                       "12..5",
                                       "--1",
                                       "1e+",
                                       "e5",
                                       "  7 ",
                                       "7 7",
                                       "0x10",
                                       "1 000",
                                       "NaN",
                                       "inf",
                                       "abc",
                                       "A",
                                       "Yes",
                                       "no",
                                       "NA",
                                       "NULL",
                                       "O'Brien",
                                       "\"quoted\"",
                                       "a\\b",
                                       "%",
                                       "[x]",
                                       "2017",
                                       "13",
                                       "000000001",
                                       "9999999999999999999999",
                                       "'; DROP TABLE QC;--",
                                       "n\xC3\xA9 \xC3\x9Cmlaut",
                                       "\xE2\x98\x83",
                                       "\xFF\xFE",
                                       "\xC3"};
const std::vector<std::string> kWords = {"A", "V1", "F1", "Platform A", "GI", "43", "checked with the operator", "12"};
const std::vector<std::string> kTypeNames = {"Amine Unit",
                                             "Boiler, Heater, or Burner",
                                             "Cold Vent",
                                             "Combustion Flare",
                                             "Diesel or Gasoline Engine",
                                             "Drilling Equipment",
                                             "Fugitives",
                                             "Glycol Unit",
                                             "Loading Operation",
                                             "Losses from Flashing",
                                             "Mud Degassing",
                                             "Natural Gas Engine",
                                             "Natural Gas, Diesel, or Dual-Fuel Turbine",
                                             "Pneumatic Pump",
                                             "Pneumatic Controllers",
                                             "Storage Tank"};
// Not pressed by chance, like most of the help: they end the program, or take the file away, or open what nobody reads
// here.
const std::vector<std::string> kNever = {"mnuFileSelectDatabase", "mnuFileCreateNewDB", "mnuFExit", "PrintScrn",
                                         "mnuHAbout"};

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string Set(const std::string& control, const std::string& value) {
  return "set " + control + " " + Quoted(value);
}

bool IsOneOf(Kind kind, std::initializer_list<Kind> kinds) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

std::vector<const Control*> Usable(const Session& s, const Form& form, std::initializer_list<Kind> kinds) {
  std::vector<const Control*> usable;
  for (const Control& control : form.controls())
    if (IsOneOf(control.kind, kinds) && WhyNot(s.desk, form, control, true).empty()) usable.push_back(&control);
  return usable;
}

Form& SheetThatShows(Session& s) {
  Form* top = s.desk.showing.back();
  return top->modal ? *s.main : *top;
}

}  // namespace

std::string Chooser::Then(std::vector<std::string> commands) {
  queue_.assign(commands.begin() + 1, commands.end());
  return commands.front();
}

std::string Chooser::Next(Session& s) {
  if (s.main == nullptr || s.ended || s.desk.showing.empty() || !s.db.IsOpen()) {
    if (s.desk.Dialog() == nullptr) return "start $F/inventory.mdb";
  }
  if (!queue_.empty()) {
    std::string next = std::move(queue_.front());
    queue_.pop_front();
    return next;
  }
  if (Form* dialog = s.desk.Dialog()) return InDialog(s, *dialog);
  return s.editing ? InEdit(s) : OutsideEdit(s);
}

std::string Chooser::Value(const Control& control) {
  if (control.kind == Kind::kList) {
    if (!control.items.empty() && Chance(90)) return OneOf(control.items);
    return Chance(50) ? "" : OneOf(kOdd);
  }
  if (Chance(10)) return OneOf(kOdd);
  if (control.kind == Kind::kMasked) return Chance(60) ? "5551234567" : OneOf(kNumbers);
  return control.numeric || Chance(30) ? OneOf(kNumbers) : OneOf(kWords);
}

std::string Chooser::FillIn(Session& s, Form& form) {
  const auto fields = Usable(s, form, {Kind::kText, Kind::kMasked, Kind::kList, Kind::kCheck, Kind::kOption});
  if (fields.empty()) return "";
  const Control& field = *OneOf(fields);
  if (field.kind == Kind::kOption) return "click " + field.name;
  if (field.kind == Kind::kCheck) return "set " + field.name + (Chance(50) ? " on" : " off");
  return Set(field.name, Value(field));
}

std::string Chooser::Turn(Session& s, Form& form) {
  const auto tabs = Usable(s, form, {Kind::kTab});
  if (tabs.empty()) return "";
  const Control& tab = *OneOf(tabs);
  return "set " + tab.name + " " + std::to_string(Below(tab.items.size() + 1));
}

std::string Chooser::SelectNode(Session& s) {
  const auto& nodes = s.tree.nodes;
  if (nodes.empty()) return "session";
  const int wanted = Below(100);
  std::vector<std::string> keys;
  for (const auto& node : nodes) {
    const bool fits = wanted < 35   ? node.key.size() > 21 && node.key.find(" " + type_) != std::string::npos
                      : wanted < 75 ? node.key.size() > 21
                      : wanted < 90 ? node.key.size() == 15 || node.key.size() == 21
                                    : node.key.size() < 15;
    if (fits) keys.push_back(node.key);
  }
  return "select " + Quoted(keys.empty() ? OneOf(nodes).key : OneOf(keys));
}

std::string Chooser::Comment(Session& s) {
  for (Form* form : {&SheetThatShows(s), s.main})
    for (const Control* list : Usable(s, *form, {Kind::kListView})) {
      if (list->rows.empty()) continue;
      const std::string row = std::to_string(Below(list->rows.size()));
      return Then({"pick " + list->name + " " + row, "dblclick " + list->name,
                   Set("txtComments", Chance(20) ? "" : "explained " + row),
                   Chance(80) ? "click cmdOK" : "click cmdCancel"});
    }
  return "click cmdQC";
}

void Chooser::Delete(Session& s) {
  queue_ = {s.InActv() ? "click mnuSetEditMode" : "session"};
  std::vector<std::string> keys;
  for (const auto& node : s.tree.nodes)
    if (!s.InActv() && node.key.size() > 12 && (node.key.size() > 15 || Chance(10))) keys.push_back(node.key);
  if (!keys.empty()) queue_.push_back("select " + Quoted(OneOf(keys)));
  queue_.push_back(Chance(85) ? "answer OK" : "answer Cancel");
  queue_.push_back("click mnuEDelete");
}

void Chooser::Exchange() {
  const std::string row = std::to_string(Below(3)), yes = Chance(80) ? "answer Yes" : "answer No";
  switch (Below(6)) {
    case 0:
      queue_ = {"click mnuEStructB", "set txtImportFilename $F/other.mdb",
                "click cmdLoad",     "pick lvwStructures " + row,
                "answer OK",         "click cmdImport",
                "click cmdCANCEL"};
      return;
    case 1:
      queue_ = {"click mnuFExport", "pick lvwSurveys " + row, "set txtExportFilename $F/survey.mdb", yes,
                "click cmdOK",      "click cmdCANCEL"};
      return;
    case 2:
      queue_ = {"click mnuEStructS",
                "pick lvwStructures " + row,
                "set txtExportFilename $F/structure.mdb",
                yes,
                "click cmdExport",
                "click cmdCANCEL"};
      return;
    case 3:
      queue_ = {"click mnuFExportInventory", "set txtExportFilename $F/whole.mdb", yes, "click cmdOK",
                "click cmdCANCEL"};
      return;
    case 4: queue_ = {"file $F/descriptions.xls", "click mnuSExport"}; return;
    default: queue_ = {"file $F/summary.pdf", "click frmInvQCPrint"}; return;
  }
}

std::string Chooser::Task(Session& s) {
  const std::string number = std::to_string(++equipment_);
  const std::string root = s.tree.nodes.empty() ? "" : s.tree.nodes.front().key;
  const int kind = Below(100);
  if (kind < 18)
    return Then({"click mnuENewEquipment", Set("txtEquipID", Chance(90) ? "N" + number : ""),
                 Set("cmbEquipType", OneOf(kTypeNames)), "click cmdOK"});
  if (kind < 26)
    return Then({"select " + Quoted(root), "click mnuENewStructure", Set("txtComplxID", "2" + number),
                 Set("txtStructID", "1"), Set("txtArea", "GI"), Set("txtBlock", "7"), Set("txtName", "N"),
                 "click cmdOK"});
  if (kind < 36)
    return Then({s.InActv() ? "session" : "click mnuSetEditMode", "select " + Quoted(root), "click cmdUSER_AddSurvey"});
  if (kind < 46) {
    Delete(s);
    return "session";
  }
  if (kind < 64) {
    Exchange();
    return "session";
  }
  if (kind < 84) return Comment(s);
  if (kind < 86) return Then({"close", "start $F/inventory.mdb"});
  if (kind < 88) return Then({"file $F/other.mdb", "click mnuFileSelectDatabase"});
  if (kind < 89) return Then({"file $F", "click mnuFileCreateNewDB"});
  if (kind < 95) return "clock \"2017-0" + std::to_string(1 + Below(9)) + "-1" + std::to_string(Below(10)) + " 14:02\"";
  return "set txtFLA_HrsOperated 5";  // often not on the screen, and locked when it is
}

std::string Chooser::Anything(Session& s) {
  for (Form* form : Chance(50) ? std::vector<Form*>{&SheetThatShows(s), s.main} : std::vector<Form*>{s.main}) {
    std::vector<std::string> names;
    for (const Control* control : Usable(s, *form, {Kind::kButton, Kind::kMenu, Kind::kOption}))
      if (std::find(kNever.begin(), kNever.end(), control->name) == kNever.end() &&
          (!control->name.starts_with("mnuH") || Chance(3)))
        names.push_back(control->name);
    if (names.empty()) continue;
    if (Chance(30))
      return Then({"answer " + OneOf(std::vector<std::string>{"OK", "Yes", "Cancel", "No"}), "click " + OneOf(names)});
    return "click " + OneOf(names);
  }
  return "session";
}

std::string Chooser::OutsideEdit(Session& s) {
  const int kind = Below(100);
  if (kind < 38) return SelectNode(s);
  if (kind < 70) return "click cmdEdit";
  if (kind < 77) return "click cmdQC";
  if (kind < 82) return "click mnuSetEditMode";
  if (kind < 93) return Task(s);
  if (kind < 95) {
    const std::string page = Turn(s, SheetThatShows(s));
    if (!page.empty()) return page;
  }
  return Anything(s);
}

std::string Chooser::InEdit(Session& s) {
  const int kind = Below(100);
  Form& sheet = SheetThatShows(s);
  std::string act;
  if (kind < 66)
    act = FillIn(s, sheet);
  else if (kind < 70)
    act = Turn(s, sheet);
  else if (kind < 75)
    act = "click cmdQC";
  else if (kind < 82)
    act = "click cmdSaveEdits";
  else if (kind < 91)
    act = "click cmdSaveExit";
  else if (kind < 95)
    act = "click cmdCANCEL";
  else if (kind < 97)
    act = Comment(s);
  else
    act = Anything(s);
  return act.empty() ? "click cmdSaveExit" : act;
}

std::string Chooser::InDialog(Session& s, Form& dialog) {
  if (Chance(55)) {
    const std::string act = FillIn(s, dialog);
    if (!act.empty()) return act;
  }
  if (dialog.Find("txtUSER_InvYr") != nullptr && Chance(50))
    return Then({Set("txtUserID", "12345"), Set("txtUSER_InvYr", "2017"), Set("txtUSER_Company", "Blue Water"),
                 Set("txtUSER_Address1", "1 Quay"), Set("txtUSER_City", "Port"), Set("txtUSER_State", "TX"),
                 Set("txtUSER_Zip", "77001"), Set("txtUSER_Contact", "A. Person"), Set("txtUSER_Phone", "5551234567"),
                 Set("txtUSER_Email", "a@b.example"), "click cmdOK"});
  const auto lists = Usable(s, dialog, {Kind::kListView});
  if (!lists.empty() && !lists.front()->rows.empty() && Chance(40))
    return "pick " + lists.front()->name + " " + std::to_string(Below(lists.front()->rows.size()));
  const auto buttons = Usable(s, dialog, {Kind::kButton});
  if (buttons.empty()) return "click cmdCANCEL";
  return "click " + OneOf(buttons)->name;
}

}  // namespace merlu::test
