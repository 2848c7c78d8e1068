// Inventories as the command line reads them: as they were at one moment, without a trace.
#pragma once

#include <string>

#include "store/database.h"

namespace merlu {

// Opens the file's image. kNotADatabase for what is no inventory of this layout, and the faults of ReadImage.
void OpenUntouched(Database& db, const std::string& path, Database::Use use = Database::Use::kRead);
void OpenUntouched(Database& db, const Image& image, Database::Use use = Database::Use::kRead);

}  // namespace merlu
