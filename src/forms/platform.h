// The ports of the rooms below the shell to the outside world: the machine that the program runs on (Host), and the
// display of work that takes a while (Progress). Boxes and dialogs are the shell's alone: shell/ui.h.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/dates.h"
#include "forms/report.h"

namespace merlu {

struct HandInReport;

// Of a message box.
enum class Icon { kNone, kInfo, kQuestion, kWarning, kStop };

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
  // The per-user settings; empty text for a setting that does not exist. StoreSetting throws a Fault (kFileAccess) when
  // it cannot write.
  virtual std::string Setting(const std::string& section, const std::string& key) = 0;
  virtual void StoreSetting(const std::string& section, const std::string& key, const std::string& value) = 0;
  // Folder of the program's files, the template and the help; and the user's own data folder.
  virtual std::string ProgramFolder() = 0;
  // Whether those files belong to an installation, where nothing is ever written.
  virtual bool IsInstalled() = 0;
  virtual std::string DataFolder() = 0;
  // Bytes that the file system of the folder has left; 0 when that is unknown.
  virtual std::uint64_t FreeBytes(const std::string& folder) = 0;
  // Write a report as a PDF to the path; faults are thrown. `progress` is called with the number of lines written.
  virtual void WriteReport(const InventoryReport& report, const std::string& path,
                           const std::function<void(int done, int total)>& progress) = 0;
  virtual void WriteHandInReport(const HandInReport& report, const std::string& path) = 0;
};

// The display of work that takes a while, by the front end.
class Progress {
 public:
  virtual ~Progress() = default;

  virtual void PaintWait(const WaitScreen& wait) = 0;
  // From now on the wait screen offers to stop the work, until it is hidden.
  virtual void AllowStop() {}
  virtual bool IsStopWanted() { return false; }
  virtual void SetBusy(bool busy) = 0;  // the busy pointer
};

}  // namespace merlu
