// The engine's codes as faults, and how its connections are set up.
#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace merlu {

inline constexpr const char* kStoreSource = "MERLU store";

// The fault that an extended result code stands for, with the engine's own message where there is nothing better.
int FaultNumber(int extended);
[[noreturn]] void FailWith(int code, const std::string& message);
// A failure of the disk in the system's own words; nothing for another one, or where the system said none.
void ThrowFailedDisk(int code, int system);
// A statement that the engine does not understand: a table that it names may be missing.
[[noreturn]] void ThrowMisunderstood(sqlite3* db, std::string_view sql, const std::string& message);

// Inventories hold no triggers: one that somebody has put into a file is not run.
void RunNothingOfTheFile(sqlite3* db);
// Beyond that, for a file of unknown origin.
void Distrust(sqlite3* db);
// The collation of IDs.
void AddIdCollation(sqlite3* db);

}  // namespace merlu
