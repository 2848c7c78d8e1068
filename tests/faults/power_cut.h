// What a power cut may leave of a database, its companion and their journals: everything up to the last sync of each
// file, and of what came after it any part, in any order, also half a write. Made files and deletions reach the disk in
// their order.
//
// Other files of the process are taken as written.
#pragma once

#include <cstdint>
#include <string>

struct sqlite3_file;

namespace merlu::test {

// From now on the files of that database are watched.
void WatchForPowerCut(const std::string& database, std::uint32_t seed);

// Notified by the file layer before it passes the call on.
void WillOpen(const char* path, bool creates);
void WillWrite(const std::string& path, sqlite3_file* real, const void* bytes, int count, std::int64_t at);
void WillTruncate(const std::string& path, sqlite3_file* real, std::int64_t size);
void WillDelete(const char* path);
// And after the call has succeeded.
void HasSynced(const std::string& path);
void HasDeleted(const char* path, bool synced);

// Leaves the files as the cut does; nothing is watched without WatchForPowerCut.
void CutPower();

}  // namespace merlu::test
