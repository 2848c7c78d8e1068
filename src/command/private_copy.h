// An inventory with its companion, copied into a private folder and read as the program reads them.
#pragma once

#include <string>

#include "history/companion.h"
#include "store/database.h"
#include "store/image.h"
#include "store/private_folder.h"

namespace merlu {

class PrivateCopy {
 public:
  // kNotADatabase for what is no inventory of this layout, kDiskFull, and the faults of ReadImage.
  explicit PrivateCopy(const std::string& inventory);
  // The same of a file that was read already.
  PrivateCopy(const std::string& inventory, const Image& image);

 private:
  PrivateFolder folder_;  // outlives what is open in it

 public:
  Database db;
  Companion companion;

 private:
  void Put(const Image& image, const std::string& name);
  void PutCompanion(const std::string& from, const std::string& name);
};

}  // namespace merlu
