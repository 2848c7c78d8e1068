#include "exchange/workbook.h"

#include <algorithm>
#include <chrono>

#include "base/fault.h"
#include "base/text.h"

namespace merlu {
namespace {

constexpr std::size_t kMostTextUnits = 32767;  // UTF-16 units of a cell's text, in either format

double CharacterWidth(char16_t c) {
  if (c >= 0x1100 && !(c >= 0x1E00 && c < 0x2E80) && !(c >= 0xDC00 && c < 0xE000)) return 2;  // East Asian, emoji
  if (c >= 0xDC00 && c < 0xE000) return 0;                                                    // counted with its pair
  return (c >= 'A' && c <= 'Z') || c == '_' || c == 'm' || c == 'w' ? 1.25 : 1;
}

[[noreturn]] void TooLarge(const Sheet& sheet, const std::string& what) {
  throw Fault(fault_number::kOverflow, "MERLU spreadsheet", "The table " + sheet.name + " has " + what);
}

}  // namespace

std::optional<SerialDate> ToSerial(const DateTime& d) {
  using namespace std::chrono;
  const auto days_of = [](int year, int month, int day) {
    const year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day)));
    return sys_days(date).time_since_epoch().count();
  };
  if (days_of(d.year, d.month, d.day) < days_of(1900, 3, 1)) return std::nullopt;
  // the programs count a 29th of February 1900 that never was
  const auto days = days_of(d.year, d.month, d.day) - days_of(1899, 12, 30);
  return SerialDate{static_cast<double>(days) + (d.hour * 3600 + d.minute * 60 + d.second) / 86400.0};
}

double TextWidth(std::string_view text) {
  double widest = 0, line = 0;
  for (const char16_t c : ToUtf16(text)) {
    line = c == '\n' ? 0 : line + CharacterWidth(c);
    widest = std::max(widest, line);
  }
  return widest;
}

bool Wraps(const Sheet& sheet, std::size_t row, std::size_t column) {
  const SheetRow& content = sheet.rows[row];
  if (!content.wraps || column < content.headings || column >= sheet.widths.size()) return false;
  const auto* text = std::get_if<std::string>(&content.cells[column]);
  return text != nullptr && (text->find('\n') != std::string::npos || TextWidth(*text) > sheet.widths[column]);
}

void CheckFits(const Sheet& sheet, const SheetLimits& limits) {
  const auto room = [](std::size_t most) { return "the file takes " + std::to_string(most) + "."; };
  if (sheet.rows.size() > limits.rows)
    TooLarge(sheet, "too many records: " + std::to_string(sheet.rows.size()) + " rows, " + room(limits.rows));
  for (const SheetRow& row : sheet.rows) {
    if (row.cells.size() > limits.columns)
      TooLarge(sheet, "too many fields: " + std::to_string(row.cells.size()) + " columns, " + room(limits.columns));
    for (const Cell& cell : row.cells) {
      const auto* text = std::get_if<std::string>(&cell);
      if (text == nullptr || text->size() <= kMostTextUnits) continue;
      const std::size_t units = ToUtf16(*text).size();
      if (units > kMostTextUnits)
        TooLarge(sheet, "a text of " + std::to_string(units) + " characters, a cell takes " +
                            std::to_string(kMostTextUnits) + ".");
    }
  }
}

}  // namespace merlu
