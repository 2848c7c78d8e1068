#include "command/private_copy.h"

#include <filesystem>
#include <fstream>

#include "base/fault.h"
#include "command/inventory_file.h"
#include "store/engine.h"
#include "store/files.h"

namespace merlu {

PrivateCopy::PrivateCopy(const std::string& inventory) : PrivateCopy(inventory, ReadImage(inventory)) {}

PrivateCopy::PrivateCopy(const std::string& inventory, const Image& image) {
  {
    Database looked_at;
    OpenUntouched(looked_at, image);
  }
  // the companion knows its inventory by this name
  const std::string own = std::filesystem::path(inventory).filename().string();
  Put(image, own);
  PutCompanion(inventory + kCompanionExtension, own + kCompanionExtension);
  db.Open(folder_.File(own));
  companion.Open(db, [] { return StepTitle(); });
}

// One that cannot be read is none.
void PrivateCopy::PutCompanion(const std::string& from, const std::string& name) {
  if (!FileExists(from)) return;
  try {
    Put(ReadImage(from), name);
  } catch (const Fault& fault) {
    if (fault.number == fault_number::kDiskFull) throw;
  }
}

void PrivateCopy::Put(const Image& image, const std::string& name) {
  std::ofstream out(folder_.File(name), std::ios::binary);
  out.write(reinterpret_cast<const char*>(image.bytes.get()), static_cast<std::streamsize>(image.size));
  out.close();
  if (!out) throw Fault(fault_number::kDiskFull, kStoreSource, "There is no room for a private copy of the file.");
}

}  // namespace merlu
