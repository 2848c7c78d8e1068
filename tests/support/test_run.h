// A run of the program inside a test: a folder of its own, a database made from the template, and a
// platform whose boxes and dialogs the test answers.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "session/session.h"
#include "shell/ui.h"

namespace merlu::test {

namespace fs = std::filesystem;

// A temporary folder, removed by its destructor.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::string path(const std::string& name = "") const {
    return name.empty() ? path_.string() : (path_ / name).string();
  }

 private:
  fs::path path_;
};

// Path of the built template.
std::string TemplatePath();
// A copy of the template in the folder.
std::string CopyTemplate(const TemporaryFolder& folder, const std::string& name = "inventory.mdb");

// Runs statements on a database file beside the program.
void Raw(const std::string& path, const std::vector<std::string>& statements);
Value RawValue(const std::string& path, const std::string& sql);
// The bytes of a file.
std::string FileBytes(const std::string& path);
// Whether the inventory passes the engine's check of all pages and every row has its parent.
bool IsSound(const std::string& path);

class TestRun : public Platform {
 public:
  TestRun();
  ~TestRun() override;

  // Starts on the folder's database. A first run is answered with operator 12345 of 2017.
  void Start();
  void Start(const std::string& path);
  // Start, then structure 1001/1 "GI, 43, A".
  void StartWithStructure();

  void AddStructure(const std::string& complex, const std::string& structure = "1", const std::string& name = "A");
  // Under the structure that is selected.
  void AddEquipment(const std::string& type_code, const std::string& id);
  // StartWithStructure, the equipment, and its node selected in description mode.
  void StartWith(const std::string& type_code, const std::string& id);
  void AddMonth();

  // ---- acts; each fails the test when it is refused ----
  void Select(const std::string& key);
  void SelectRoot();
  void Click(const std::string& control);
  void Set(const std::string& control, const std::string& value);
  void Check(const std::string& control, bool on);
  void Pick(const std::string& list, int row);
  void Pick(const std::string& list, const std::vector<int>& rows);
  void DoubleClick(const std::string& list);
  void ChangeTo(Mode mode);
  // Goes to the equipment in that mode (month 1 in activity mode).
  void GoTo(const std::string& type_code, const std::string& id, Mode mode, int month = 1);
  // Edits, sets the values, saves without QC, and goes back to view.
  void Keep(const std::vector<std::pair<std::string, std::string>>& values);
  void Put(const std::vector<std::pair<std::string, std::string>>& values);
  // Why an act is refused; empty when it would be done.
  std::string WhyNotClick(const std::string& control);
  std::string WhyNotSet(const std::string& control);

  // ---- what shows ----
  Control& At(const std::string& control);
  std::string Text(const std::string& control) { return At(control).text; }
  // Own flag and that of the frames around it.
  bool Visible(const std::string& control);
  // Key of a node: of the structure, or of equipment on it; in activity form with a month.
  std::string Key(const std::string& type = "", const std::string& id = "", int month = 0,
                  const std::string& complex = "1001", const std::string& structure = "1") const;
  std::vector<std::string> TreeKeys() const;

  // ---- what is stored ----
  Value Sql(const std::string& sql);
  std::int64_t Count(const std::string& table_and_condition);
  // (FieldID, Desc) of the findings that meet the condition, in the order of the log.
  std::vector<std::pair<std::string, std::string>> Findings(const std::string& condition = "1");
  // The text of the field's one finding, without regard to blanks at the end of its name; empty without one.
  std::string Finding(const std::string& field, const std::string& condition = "1");

  TemporaryFolder folder;
  Session s{*this, *this, *this};

  // ---- what the test answers, and what was shown ----
  std::deque<Button> answers;
  std::deque<std::string> files;
  std::deque<std::function<void(Form&)>> dialogs;  // run while the next dialog is open
  std::vector<Box> boxes;                          // since the last TakeBoxes
  std::vector<std::string> TakeBoxes();            // their texts; forgets them
  DateTime clock{2017, 3, 5, 14, 2, 0};
  std::map<std::string, std::string> settings;
  bool settings_fail = false;  // they are kept for the run only
  std::string program_folder;
  std::string data_folder;
  bool installed = false;
  int paints = 0, waits = 0;
  std::vector<std::string> wait_texts;

  // ---- the platform ----
  Button Ask(const Box& box) override;
  std::string AskFile(const FileQuestion& question) override;
  std::string AskFolder(const std::string& prompt) override;
  void RunModal(Form& form) override;
  void Paint() override { ++paints; }
  void PaintWait(const WaitScreen& wait) override;
  void SetBusy(bool) override {}
  void Beep() override {}
  DateTime Now() override { return clock; }
  std::string Setting(const std::string& section, const std::string& key) override;
  void StoreSetting(const std::string& section, const std::string& key, const std::string& value) override;
  std::string ProgramFolder() override { return program_folder; }
  bool IsInstalled() override { return installed; }
  std::string DataFolder() override { return data_folder; }
  std::uint64_t FreeBytes(const std::string&) override { return free_bytes; }
  void WriteReport(const InventoryReport& report, const std::string& path,
                   const std::function<void(int done, int total)>& progress) override;
  void WriteHandInReport(const HandInReport& report, const std::string& path) override;
  void Print(const Form& form) override { printed.push_back(form.name()); }
  void OpenDocument(const std::string& path) override { opened.push_back(path); }
  std::vector<std::string> opened, printed;
  std::uint64_t free_bytes = std::uint64_t{1} << 40;
  std::vector<FileQuestion> file_questions;
  std::vector<std::string> folder_prompts;

 private:
  std::pair<Form*, Control*> Look(const std::string& control);
  void FillNewOperator(Form& dialog);
};

}  // namespace merlu::test
