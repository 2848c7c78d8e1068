// What the scripts and checks of the kill harness have in common.
#pragma once

#include <cstdint>
#include <string>

#include "faults/kill_operations.h"

namespace merlu::test {

inline constexpr const char* kKillUser = "01234";

inline std::int64_t Count(Database& db, const std::string& what) {
  return ToInteger(db.Single("SELECT COUNT(*) FROM " + what));
}

inline std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

inline std::string SelectNode(const std::string& key) {
  return "select " + Quoted(key);
}

inline KillStep Start(const KillFiles& files) {
  return {"start " + Quoted(files.work())};
}

inline bool IsOneOf(std::int64_t value, int done) {
  return value == done || value == done + 1;
}

inline std::string Told(const std::string& what, std::int64_t found, int done) {
  return what + ": " + std::to_string(found) + " with " + std::to_string(done) + " answered";
}

}  // namespace merlu::test
