// A temporary folder of this run's own.
#pragma once

#include <string>

#include "base/host.h"

namespace merlu {

// For this user only, under a name that nobody else has, where temporary files belong; removed with everything in it.
class PrivateFolder {
 public:
  // kFileAccess. Also removes what killed runs have left, once in the life of the program.
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  std::string File(const std::string& name) const;

 private:
  void Make(const std::string& place);

  std::string path_;
  host::File lock_;  // held as long as the folder is in use
};

// Removes the private folders of killed runs. Those of running ones stay.
void RemoveAbandonedFolders();

}  // namespace merlu
