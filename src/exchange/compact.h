// Compacting an exported database file in place.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// What the compaction does to files. A test replaces one by a failing one; each throws a Fault on failure.
struct FileSteps {
  void (*compact)(const std::string& from, const std::string& to);
  void (*remove)(const std::string& path);
  void (*copy)(const std::string& from, const std::string& to);
  void (*rename)(const std::string& from, const std::string& to);
};
const FileSteps& RealFileSteps();

// Rewrites the source as small as its rows, by way of the temporary path, which must not exist; an existing
// file there makes the first compaction fail and is deleted with it, so that a second attempt can work. Free
// room is measured on the root file system, wherever the files lie. Each failure is told; the source's rows
// are never lost. True when the source is compact.
bool CompactDatabaseFile(Session& s, const std::string& source, const std::string& temporary,
                         const FileSteps& steps = RealFileSteps());

}  // namespace merlu
