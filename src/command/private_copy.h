// An inventory with its companion, copied into a temporary folder and read as the program reads them. The folder is
// removed when this is destroyed.
#pragma once

#include <filesystem>
#include <string>

#include "history/companion.h"
#include "store/database.h"
#include "store/image.h"

namespace merlu {

class PrivateCopy {
 public:
  // kNotADatabase for what is no inventory of this layout, kDiskFull, and the faults of ReadImage.
  explicit PrivateCopy(const std::string& inventory);
  // The same of a file that was read already.
  PrivateCopy(const std::string& inventory, const Image& image);
  ~PrivateCopy();
  PrivateCopy(const PrivateCopy&) = delete;
  PrivateCopy& operator=(const PrivateCopy&) = delete;

  Database db;
  Companion companion;

 private:
  void Put(const Image& image, const std::string& name);
  void PutCompanion(const std::string& from, const std::string& name);
  std::filesystem::path folder_;
};

}  // namespace merlu
