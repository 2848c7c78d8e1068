// The engine's codes as faults, and how its connections are set up.
#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace merlu {

inline constexpr const char* kStoreSource = "MERLU store";

// The fault for an extended result code of the engine; the engine's own message is used where there is none better.
int FaultNumber(int extended);
[[noreturn]] void FailWith(int code, const std::string& message);
// Throws for a failure of the disk, with the system's own words; returns for any other, or without a system error.
void ThrowFailedDisk(int code, int system);
// A statement that the engine does not understand: a table that it names may be missing.
[[noreturn]] void ThrowMisunderstood(sqlite3* db, std::string_view sql, const std::string& message);

// Before the first file is opened: the engine keeps no count of the memory in use, for which it would take a lock at
// each allocation, and threads that work on files of their own would wait for each other. Without effect afterwards.
void CountNoMemory();

// Inventories have no triggers: any that a file contains are not run.
void RunNothingOfTheFile(sqlite3* db);
// Beyond that, for a file of unknown origin.
void Distrust(sqlite3* db);
// The collation of IDs.
void AddIdCollation(sqlite3* db);

}  // namespace merlu
