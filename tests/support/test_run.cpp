#include "support/test_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "base/text.h"
#include "forms/desk.h"
#include "host/hand_in_pdf.h"
#include "host/report_pdf.h"
#include "session/node_keys.h"
#include "session/types.h"
#include "shell/commands.h"
#include "shell/dialogs.h"
#include "shell/docks.h"
#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/sheet_acts.h"

namespace merlu::test {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (fs::temp_directory_path() / "merlu-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  fs::permissions(path_, fs::perms::owner_all, error);
  fs::remove_all(path_, error);
}

std::string TemplatePath() {
  return std::string(MERLU_BUILD_FOLDER) + "/mr.dbt";
}

std::string CopyTemplate(const TemporaryFolder& folder, const std::string& name) {
  const std::string path = folder.path(name);
  fs::copy_file(TemplatePath(), path);
  return path;
}

void Raw(const std::string& path, const std::vector<std::string>& statements) {
  Database db;
  db.Open(path);
  for (const std::string& statement : statements) db.Execute(statement);
}

Value RawValue(const std::string& path, const std::string& sql) {
  Database db;
  db.Open(path);
  return db.Single(sql);
}

std::string FileBytes(const std::string& path) {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  std::string bytes(error ? 0 : size, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

bool IsSound(const std::string& path) {
  Database db;
  db.Open(path);
  return NullToEmpty(db.Single("PRAGMA integrity_check")) == "ok" && db.Query("PRAGMA foreign_key_check").rows.empty();
}

TestRun::TestRun() : program_folder(MERLU_BUILD_FOLDER), data_folder(folder.path()) {}

TestRun::~TestRun() {
  s.db.Close();
}

void TestRun::FillNewOperator(Form&) {
  for (const auto& [name, value] : std::vector<std::pair<std::string, std::string>>{{"txtUserID", "12345"},
                                                                                    {"txtUSER_InvYr", "2017"},
                                                                                    {"txtUSER_Company", "Blue Water"},
                                                                                    {"txtUSER_Address1", "1 Quay"},
                                                                                    {"txtUSER_City", "Port"},
                                                                                    {"txtUSER_State", "TX"},
                                                                                    {"txtUSER_Zip", "77001"},
                                                                                    {"txtUSER_Contact", "A. Person"},
                                                                                    {"txtUSER_Phone", "5551234567"},
                                                                                    {"txtUSER_Email", "a@b.example"}})
    Set(name, value);
  Click("cmdOK");
}

void TestRun::Start() {
  const std::string path = folder.path("inventory.mdb");
  const bool is_new = !fs::exists(path);
  if (is_new) CopyTemplate(folder);
  if (is_new || ToInteger(RawValue(path, "SELECT COUNT(*) FROM CO_COMPANY")) == 0)
    dialogs.push_back([this](Form& form) { FillNewOperator(form); });
  Start(path);
}

void TestRun::Start(const std::string& path) {
  settings["Options/DBloc"] = path;
  Main(s);
  CloseSplash(s);
  ShowNotices(s);
}

void TestRun::StartWithStructure() {
  Start();
  AddStructure("1001");
}

void TestRun::AddStructure(const std::string& complex, const std::string& structure, const std::string& name) {
  SelectRoot();
  dialogs.push_back([=, this](Form&) {
    Put({{"txtComplxID", complex},
         {"txtStructID", structure},
         {"txtArea", "GI"},
         {"txtBlock", "43"},
         {"txtName", name}});
    Click("cmdOK");
  });
  Click("cmdUSER_AddStructure");
}

void TestRun::AddEquipment(const std::string& type_code, const std::string& id) {
  dialogs.push_back([=, this](Form&) {
    Set("txtEquipID", id);
    Set("cmbEquipType", std::string(FindType(type_code)->dialog_name));
    Click("cmdOK");
  });
  Click("cmdSTRUCTURE_AddEquip");
}

void TestRun::StartWith(const std::string& type_code, const std::string& id) {
  StartWithStructure();
  AddEquipment(type_code, id);
}

void TestRun::AddMonth() {
  ChangeTo(Mode::kActv);
  SelectRoot();
  Click("cmdUSER_AddSurvey");
  TakeBoxes();
}

std::pair<Form*, Control*> TestRun::Look(const std::string& name) {
  for (Form* form : s.desk.LookUpOrder(s.main))
    if (Control* control = form->Find(name)) return {form, control};
  throw std::runtime_error("no control " + name + " on the screen");
}

Control& TestRun::At(const std::string& name) {
  return *Look(name).second;
}

bool TestRun::Visible(const std::string& name) {
  const auto [form, control] = Look(name);
  return IsVisible(*form, *control);
}

void TestRun::Select(const std::string& key) {
  const int node = s.tree.Find(key);
  ASSERT_GE(node, 0) << "no node \"" << key << "\"";
  ASSERT_TRUE(s.tree.enabled);
  ClickNode(s, node);
  ShowNotices(s);
}

void TestRun::SelectRoot() {
  Select(s.tree.nodes.front().key);
}

std::string TestRun::WhyNotClick(const std::string& name) {
  const auto [form, control] = Look(name);
  return WhyNot(s.desk, *form, *control, true);
}

std::string TestRun::WhyNotSet(const std::string& name) {
  return WhyNotClick(name);
}

void TestRun::Click(const std::string& name) {
  const auto [form, control] = Look(name);
  ASSERT_EQ(act::Click(s.desk, *form, name), "") << name;
  ShowNotices(s);
  if (s.ended) return;
  // as after every act
  UpdateCommands(s);
  try {
    RefreshDocks(s);
  } catch (const Fault&) {
  }
}

void TestRun::Set(const std::string& name, const std::string& value) {
  const auto [form, control] = Look(name);
  act::GotFocus(s.desk, *form, name);
  const bool list = control->kind == Kind::kList;
  ASSERT_EQ(list ? act::Choose(s.desk, *form, name, value) : act::Type(s.desk, *form, name, value), "") << name;
  act::LostFocus(s.desk, *form, name);
  ShowNotices(s);
}

void TestRun::Check(const std::string& name, bool on) {
  const auto [form, control] = Look(name);
  ASSERT_EQ(act::Check(s.desk, *form, name, on), "") << name;
  ShowNotices(s);
}

void TestRun::Pick(const std::string& name, int row) {
  Pick(name, std::vector<int>{row});
}

void TestRun::Pick(const std::string& name, const std::vector<int>& rows) {
  const auto [form, control] = Look(name);
  ASSERT_EQ(act::Pick(s.desk, *form, name, rows), "") << name;
  ShowNotices(s);
}

void TestRun::DoubleClick(const std::string& name) {
  const auto [form, control] = Look(name);
  ASSERT_EQ(act::DoubleClick(s.desk, *form, name), "") << name;
  ShowNotices(s);
}

void TestRun::ChangeTo(Mode mode) {
  if (s.mode != mode) Click("mnuSetEditMode");
  ASSERT_EQ(s.mode, mode);
}

void TestRun::GoTo(const std::string& type_code, const std::string& id, Mode mode, int month) {
  if (s.mode != mode && s.current.EquipType == "FUG") SelectRoot();
  ChangeTo(mode);
  Select(Key(type_code, id, mode == Mode::kActv ? month : 0));
}

void TestRun::Put(const std::vector<std::pair<std::string, std::string>>& values) {
  for (const auto& [name, value] : values) Set(name, value);
}

void TestRun::Keep(const std::vector<std::pair<std::string, std::string>>& values) {
  Click("cmdEdit");
  Put(values);
  Click("cmdSaveEdits");
  Click("cmdCANCEL");
}

std::string TestRun::Key(const std::string& type, const std::string& id, int month, const std::string& complex,
                         const std::string& structure) const {
  const std::string user = "12345";
  std::string key =
      month > 0 ? StructureMonthKey(user, month, s.year, complex, structure) : StructureKey(user, complex, structure);
  return type.empty() ? key : key + EquipmentSuffix(type, id);
}

std::vector<std::string> TestRun::TreeKeys() const {
  std::vector<std::string> keys;
  for (int node : s.tree.InOrder()) keys.push_back(s.tree.nodes[static_cast<std::size_t>(node)].key);
  return keys;
}

Value TestRun::Sql(const std::string& sql) {
  return s.db.Single(sql);
}

std::int64_t TestRun::Count(const std::string& table_and_condition) {
  return ToInteger(Sql("SELECT COUNT(*) FROM " + table_and_condition));
}

std::vector<std::pair<std::string, std::string>> TestRun::Findings(const std::string& condition) {
  std::vector<std::pair<std::string, std::string>> findings;
  s.db.ForEach("SELECT FieldID,[Desc] FROM QC WHERE " + condition + " ORDER BY rowid", {},
               [&](const RowView& row) { findings.emplace_back(std::string(row.Text(0)), std::string(row.Text(1))); });
  return findings;
}

std::string TestRun::Finding(const std::string& field, const std::string& condition) {
  std::string text;
  int count = 0;
  for (const auto& [id, description] : Findings(condition)) {
    if (TrimRight(id) != TrimRight(field)) continue;
    text = description;
    ++count;
  }
  EXPECT_LE(count, 1) << "findings of " << field;
  return text;
}

std::vector<std::string> TestRun::TakeBoxes() {
  ShowNotices(s);
  std::vector<std::string> texts;
  for (const Box& box : boxes) texts.push_back(box.text);
  boxes.clear();
  return texts;
}

Button TestRun::Ask(const Box& box) {
  boxes.push_back(box);
  if (box.buttons.size() == 1) return box.buttons.front();
  if (answers.empty()) return LeastChange(box);
  const Button answer = answers.front();
  answers.pop_front();
  return answer;
}

std::string TestRun::AskFile(const FileQuestion& question) {
  file_questions.push_back(question);
  if (files.empty()) return "";
  std::string path = files.front();
  files.pop_front();
  return question.kind == FileQuestion::Kind::kSave ? WithExtension(path, question.extension) : path;
}

std::string TestRun::AskFolder(const std::string& prompt) {
  folder_prompts.push_back(prompt);
  if (files.empty()) return "";
  std::string path = files.front();
  files.pop_front();
  return path;
}

void TestRun::RunModal(Form& form) {
  if (!dialogs.empty()) {
    const auto script = std::move(dialogs.front());
    dialogs.pop_front();
    script(form);
  }
  if (form.visible) form.Raise(form.cancel_button, Event::kClick);
}

void TestRun::WriteReport(const InventoryReport& report, const std::string& path,
                          const std::function<void(int done, int total)>& progress) {
  WriteReportPdf(report, path, progress);
}

void TestRun::WriteHandInReport(const HandInReport& report, const std::string& path) {
  WriteHandInPdf(report, path);
}

void TestRun::PaintWait(const WaitScreen& wait) {
  ++waits;
  wait_texts.push_back(wait.text);
}

std::string TestRun::Setting(const std::string& section, const std::string& key) {
  return settings[section + "/" + key];
}

void TestRun::StoreSetting(const std::string& section, const std::string& key, const std::string& value) {
  settings[section + "/" + key] = value;
  if (std::exchange(settings_fail, false))
    throw Fault(fault_number::kFileAccess, "test", "The settings cannot be written.");
}

}  // namespace merlu::test
