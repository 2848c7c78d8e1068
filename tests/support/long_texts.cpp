#include "support/long_texts.h"

#include <gtest/gtest.h>
#include <time.h>

#include <algorithm>
#include <set>

#include "store/database.h"

namespace merlu::test {
namespace {

constexpr int kShort = 16 << 10, kTimes = 4, kLong = kShort * kTimes;
// What grows with the square of the text takes 16 times as long.
constexpr double kMost = 8;
// What takes less is not judged by its growth; it is no square with texts of 64 KB.
constexpr double kTooShort = 0.015;

std::string Repeated(const std::string& what, int bytes) {
  std::string text;
  while (static_cast<int>(text.size() + what.size()) <= bytes) text += what;
  return text;
}

// Words, a text without blanks, lines, and what files and pages write in another way than it is.
std::string LongText(int bytes) {
  std::string text;
  for (const char* part : {"lorem ipsum ", "x", "ab\n", "\u00E9\u4E2D", "<&\"'=", "_x0041_"})
    text += Repeated(part, bytes / 6);
  return text;
}

}  // namespace

double ProcessorSeconds() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

void FillTexts(const std::string& path, int bytes, const std::string& short_id) {
  static const std::set<std::string> keep = {"RIMA_CO_NUM", "CMPLX_ID_NUM", "STRUCT_NUM",   "CmplxID",     "StructID",
                                             "status",      "EA_STATUS",    "UserID",       "Level",       "EditMode",
                                             "FieldID",     "EquipType",    "ED_EQUIP_TYP", "EA_EQUIP_TYP"};
  static const std::set<std::string> ids = {"ED_MERLU_EQUIP_ID", "EquipID"};
  Database db;
  db.Open(path);
  const std::string text = LongText(bytes), solid = Repeated("x", bytes);
  for (const auto& table :
       db.Query("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'H\\_%' ESCAPE "
                "'\\' AND name NOT LIKE 'list%' AND name NOT LIKE 'sqlite%'")
           .rows) {
    const std::string name = NullToEmpty(table[0]);
    for (const auto& column : db.Query("PRAGMA table_info(" + name + ")").rows) {
      const std::string field = NullToEmpty(column[1]);
      if (NullToEmpty(column[2]) != "TEXT" || keep.contains(field)) continue;
      const bool is_id = ids.contains(field);
      db.Execute("UPDATE " + name + " SET [" + field + "]=coalesce([" + field + "],'')||?" +
                     (is_id ? " WHERE [" + field + "] NOT IN ('','" + short_id + "')" : ""),
                 {is_id ? solid : text});
    }
  }
}

void ExpectLinear(const TimedWork& work) {
  std::vector<Piece> few, many;
  const auto measure = [&](int bytes, std::vector<Piece>& best) {
    const std::vector<Piece> now = work(bytes);
    if (best.empty()) best = now;
    ASSERT_EQ(now.size(), best.size());
    for (std::size_t i = 0; i < now.size(); ++i) best[i].seconds = std::min(best[i].seconds, now[i].seconds);
  };
  const auto slow = [&](std::size_t i) { return many[i].seconds > kMost * std::max(few[i].seconds, kTooShort); };
  // again, as another program may have slowed one of the two down
  for (int turn = 0; turn < 3; ++turn) {
    measure(kShort, few);
    measure(kLong, many);
    ASSERT_EQ(few.size(), many.size());
    ASSERT_FALSE(few.empty());
    bool any = false;
    for (std::size_t i = 0; i < few.size(); ++i) any = any || slow(i);
    if (!any) return;
  }
  for (std::size_t i = 0; i < few.size(); ++i)
    EXPECT_FALSE(slow(i)) << few[i].what << ": " << few[i].seconds << " s, and " << many[i].seconds << " s with "
                          << kTimes << " times the text";
}

}  // namespace merlu::test
