#include "base/dates.h"

#include <array>
#include <cstdio>

namespace merlu {
namespace {

constexpr std::array<const char*, 12> kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                                 "July",    "August",   "September", "October", "November", "December"};

int DaysIn(int year, int month) {
  constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return days[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
}

bool IsValid(const DateTime& d) {
  return d.year >= 1 && d.year <= 9999 && d.month >= 1 && d.month <= 12 && d.day >= 1 &&
         d.day <= DaysIn(d.year, d.month) && d.hour >= 0 && d.hour <= 23 && d.minute >= 0 && d.minute <= 59 &&
         d.second >= 0 && d.second <= 59;
}

template <typename... Parts>
std::string Format(const char* form, Parts... parts) {
  std::array<char, 96> buffer;
  std::snprintf(buffer.data(), buffer.size(), form, parts...);
  return buffer.data();
}

}  // namespace

std::string StoredDate(const DateTime& d) {
  return Format("%04d-%02d-%02d %02d:%02d:%02d", d.year, d.month, d.day, d.hour, d.minute, d.second);
}

std::optional<DateTime> ParseDate(std::string_view text) {
  const std::string copy(text);
  DateTime d;
  int used = 0;
  const int length = static_cast<int>(copy.size());
  const auto whole = [&](int fields, int wanted) { return fields == wanted && used == length && IsValid(d); };
  if (whole(std::sscanf(copy.c_str(), "%4d-%2d-%2d %2d:%2d:%2d%n", &d.year, &d.month, &d.day, &d.hour, &d.minute,
                        &d.second, &used),
            6))
    return d;
  d.second = 0;
  if (whole(std::sscanf(copy.c_str(), "%4d-%2d-%2d %2d:%2d%n", &d.year, &d.month, &d.day, &d.hour, &d.minute, &used),
            5))
    return d;
  d.hour = d.minute = 0;
  if (whole(std::sscanf(copy.c_str(), "%4d-%2d-%2d%n", &d.year, &d.month, &d.day, &used), 3)) return d;
  return std::nullopt;
}

std::string MonthName(int month) {
  return month >= 1 && month <= 12 ? kMonths[static_cast<std::size_t>(month - 1)] : "";
}

std::string SheetDate(const DateTime& d) {
  return Format("%.3s %02d, %04d %02d:%02d", MonthName(d.month).c_str(), d.day, d.year, d.hour, d.minute);
}

}  // namespace merlu
