// The files that the benchmarks work on, and the program opened on one of them.
#pragma once

#include <string>

#include "inventory.h"
#include "quiet_platform.h"
#include "session/session.h"

namespace merlu::bench {

// Makes its files in a folder of its own under the system's temporary folder and removes them at the end.
class Workshop {
 private:
  const std::string folder_;

 public:
  // `share` of the full size, 0 to 1: its structures and its equipment.
  explicit Workshop(double share = 1);
  ~Workshop();
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;

  const std::string everyday;  // the everyday inventory, all sixteen types
  const std::string full;      // the full inventory, the fifteen types with activity: 39,996 equipment months
  const std::string eleven;    // the same before its twelfth month
  const std::string single;    // one structure with twelve months
  const std::string mixed;     // the full inventory of the types that a QC run walks
  const std::string flares;    // the full inventory of flares alone, a tenth of the rows faulty

  // A path at which there is no file.
  std::string NewPath(const std::string& name) const;
  // A copy of a file that is on the disk already, so that a commit has its own pages to write and no others; without
  // the history that an older one of the name had.
  std::string FreshCopy(const std::string& of, const std::string& name) const;
  std::string Path(const std::string& name) const { return folder_ + "/" + name + ".mdb"; }

 private:
  std::string Make(const std::string& name, const InventoryPlan& plan) const;
};

// The program started on a file, as far as its main window with the tree.
struct Opened {
  explicit Opened(const std::string& path);
  QuietPlatform platform;
  Session s;

  // Throws std::runtime_error when the program has shown a box: figures of a failed run mean nothing.
  void ExpectSilence() const;
};

// Goes on without a recorder and a companion.
void CloseHistory(Session& s);

// Most memory that a process of its own had in use while it started on the file, in KB; 0 when it failed.
long PeakKilobytesOfStart(const std::string& path);

}  // namespace merlu::bench
