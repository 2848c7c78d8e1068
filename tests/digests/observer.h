// What a user sees, and what the next reader of the file finds, as named texts.
#pragma once

#include <sys/stat.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "forms/desk.h"

struct sqlite3;

namespace merlu::test {

using Items = std::map<std::string, std::string>;  // name of the item, its text

// The items whose texts changed, and the names of those that were removed.
struct Changes {
  Items changed;
  std::set<std::string> gone;
};

// Texts without the folders of this run.
class Folders {
 public:
  Folders(std::string work, std::string program) : work_(std::move(work)), program_(std::move(program)) {}
  std::string Hide(std::string text) const;    // folders become $F and $P
  std::string Insert(std::string text) const;  // and back

 private:
  std::string work_, program_;
};

// Tells line ends and tabs in one line, and the other way round.
std::string Escaped(const std::string& text);
std::string Unescaped(const std::string& text);

// The rows of one database file, read through a connection of its own.
class FileWatch {
 public:
  FileWatch() = default;
  ~FileWatch();
  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;

  // Every row as "<prefix>TABLE#rowid"; the items of the last call when nothing has changed since.
  const Items& Rows(const std::string& path, const std::string& prefix);

 private:
  bool HasChanged(const std::string& path);
  void Close();

  sqlite3* db_ = nullptr;
  std::string path_;
  struct stat state_ {};
  long long version_ = -1;
  Items rows_;
};

class Observer {
 public:
  explicit Observer(const Folders& folders) : folders_(folders) {}

  // Looks at everything again: the showing forms, the place and the tree (answers of the commands "session" and
  // "tree"), the working database, and the files that were handed out. Returns what changed since the last look.
  Changes Look(const Desk& desk, const std::string& session, const std::string& tree,
               const std::vector<std::string>& files);
  const Items& items() const { return items_; }

 private:
  void LookAtForms(const Desk& desk);
  void LookAtPlace(const std::string& session, const std::string& tree);
  void LookAtFiles(const std::vector<std::string>& files);
  void Put(const std::string& name, std::string text);

  const Folders& folders_;
  Items items_, now_;
  std::string path_;
  FileWatch working_;
  std::map<std::string, std::unique_ptr<FileWatch>> others_;
};

}  // namespace merlu::test
