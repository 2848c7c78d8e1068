// base/ is what every room uses and what knows no inventory: texts, numbers, dates, documents, the operating system,
// and faults. A Fault is the one exception type. Everything below the screens that cannot do its work throws a Fault;
// the procedure of a screen that called it has one handler, which shows it in a box and returns.
#pragma once

#include <exception>
#include <string>

namespace merlu {

// The numbers of faults. The user sees them after the description.
namespace fault_number {
inline constexpr int kOverflow = 6;          // more than a file format takes
inline constexpr int kSubscript = 9;         // an array is full
inline constexpr int kBadFileName = 52;      // a name that no file may be written under
inline constexpr int kFileNotFound = 53;     // a file to copy is missing
inline constexpr int kDeviceError = 57;      // a device that fails
inline constexpr int kDiskFull = 61;         // no room for a file
inline constexpr int kFileAccess = 75;       // no permission to write a file or folder
inline constexpr int kNoSuchFolder = 76;     // the folder of a file is not there
inline constexpr int kNotSet = 91;           // a record set that was never opened
inline constexpr int kNoChange = 3020;       // an update that nothing began
inline constexpr int kNoCurrentRow = 3021;   // the cursor has no current row
inline constexpr int kDuplicateKey = 3022;   // a key that exists
inline constexpr int kPathNotFound = 3024;   // the database file is not there
inline constexpr int kDiskFullStore = 3026;  // no room in the database's file system
inline constexpr int kReadOnly = 3051;       // the file cannot be opened for writing
inline constexpr int kSyntax = 3075;         // criteria that cannot be read
inline constexpr int kNoSuchTable = 3078;    // a table that the file lacks
inline constexpr int kOther = 3146;          // any other failure of the engine
inline constexpr int kRecordDeleted = 3167;  // a change of a row that was deleted
inline constexpr int kReference = 3201;      // a row whose parent is missing
inline constexpr int kInUseTable = 3261;     // locked by another process during the work
inline constexpr int kNoSuchItem = 3265;     // a column or table name that does not exist
inline constexpr int kNotADatabase = 3343;   // not a file of this layout
inline constexpr int kDamaged = 3428;        // a database file whose pages are damaged
inline constexpr int kInUse = 3356;          // locked by another process at the open
inline constexpr int kKeyNotUnique = 35602;  // two tree nodes with one key
inline constexpr int kNoSuchNode = 35601;    // a node key that is not in the tree
}  // namespace fault_number

struct Fault : std::exception {
  Fault(int number_of_fault, std::string raised_by, std::string text)
      : number(number_of_fault), source(std::move(raised_by)), description(std::move(text)) {}
  const char* what() const noexcept override { return description.c_str(); }

  int number;               // one of fault_number
  std::string source;       // the subsystem that raised it
  std::string description;  // what happened, in words for the user
};

}  // namespace merlu
