// The ports to the outside world: boxes, dialogs and painting (Ui), clock, settings, files and reports (Host).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "forms/report.h"

namespace merlu {

class Form;
struct HandInReport;

enum class Icon { kNone, kInfo, kQuestion, kWarning, kStop };
enum class Button { kOK, kCancel, kYes, kNo, kRetry };

struct Box {
  std::string text;
  std::string title;
  Icon icon = Icon::kNone;
  std::vector<Button> buttons = {Button::kOK};
  std::size_t preset = 0;  // of the buttons: the one that Enter presses
  std::string detail{};    // further information, shown on request
  std::string setting{};   // key of the setting "Do not show again", if the box offers it
};

// The button that changes least: what a box answers when it is closed without an answer.
Button LeastChange(const Box& box);
std::string_view ButtonName(Button button);

struct FileQuestion {
  enum class Kind { kOpen, kSave };
  Kind kind = Kind::kOpen;
  std::string title;
  std::string filter_name;  // "MERLU Database"
  std::string pattern;      // "*.MDB"; matches without regard to case
  std::string extension;    // appended to a name that has none, e.g. ".MDB"
  struct Type {
    std::string filter_name, pattern, extension;
  };
  std::vector<Type> others;  // further types that the user can choose
  bool overwrites = true;    // of a save: the dialog itself asks before a file is overwritten
  std::string name{};        // of a save: proposed
};

// The path with the extension when its name has none.
std::string WithExtension(const std::string& path, const std::string& extension);

// What a wait screen shows.
struct WaitScreen {
  bool showing = false;
  std::string title;
  std::string text;  // what is being worked on
  int done = 0;
  int total = 0;        // 0 while the end is not known
  bool at_once = true;  // false: only when the work turns out to be long
};

// The machine that the program runs on: clock, settings, files, PDF. host/real_host is the one implementation for all
// front ends; tests have their own.
class Host {
 public:
  virtual ~Host() = default;

  virtual DateTime Now() = 0;
  // The per-user settings; empty text for a setting that does not exist. StoreSetting throws kFileAccess when it cannot
  // write.
  virtual std::string Setting(const std::string& section, const std::string& key) = 0;
  virtual void StoreSetting(const std::string& section, const std::string& key, const std::string& value) = 0;
  // Folder of the program's files, the template and the help; and the user's own data folder.
  virtual std::string ProgramFolder() = 0;
  // Whether those files belong to an installation, where nothing is ever written.
  virtual bool IsInstalled() = 0;
  virtual std::string DataFolder() = 0;
  // What the file system of the folder has left; 0 when that is unknown.
  virtual std::uint64_t FreeBytes(const std::string& folder) = 0;
  // Paints the report as a PDF at the path; faults are thrown. `progress` is called with the lines done.
  virtual void WriteReport(const InventoryReport& report, const std::string& path,
                           const std::function<void(int done, int total)>& progress) = 0;
  virtual void WriteHandInReport(const HandInReport& report, const std::string& path) = 0;
};

// The front end: boxes, dialogs, painting.
class Ui {
 public:
  virtual ~Ui() = default;

  virtual Button Ask(const Box& box) = 0;
  // Path of the chosen file or folder; empty when the user cancelled.
  virtual std::string AskFile(const FileQuestion& question) = 0;
  virtual std::string AskFolder(const std::string& prompt) = 0;
  // Returns when the form, shown as a dialog, has been hidden.
  virtual void RunModal(Form& form) = 0;

  // Draws what changed and lets waiting events run once.
  virtual void Paint() = 0;
  virtual void PaintWait(const WaitScreen& wait) = 0;
  // From now on the wait screen offers to stop the work, until it is hidden.
  virtual void AllowStop() {}
  virtual bool IsStopWanted() { return false; }
  virtual void SetBusy(bool busy) = 0;
  virtual void Beep() = 0;

  // Prints the form as a picture, on the printer that the user chooses; faults are thrown.
  virtual void Print(const Form& form) = 0;
  // Shows a document in the program that the system has for it.
  virtual void OpenDocument(const std::string& path) = 0;
};

// Both, as a session sees them.
class Platform : public virtual Ui, public virtual Host {};

}  // namespace merlu
