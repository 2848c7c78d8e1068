// A date with its time of day, as the store and the sheets write it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace merlu {

struct DateTime {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  bool operator==(const DateTime&) const = default;
};

// The form of date columns: "2017-03-05 14:02:00".
std::string StoredDate(const DateTime& date);

// Reads "2017-03-05 14:02:00", also without the seconds or without the time; nothing when the text is no
// valid date.
std::optional<DateTime> ParseDate(std::string_view text);

// The form of the sheets: "Mar 05, 2017 14:02".
std::string SheetDate(const DateTime& date);

// The month's name in full: 3 is "March"; empty outside 1 to 12.
std::string MonthName(int month);

}  // namespace merlu
