// The records of the .xls format (BIFF8): a workbook stream is a sequence of them, each with its type, its length and
// at most 8224 bytes of data; longer data continues in CONTINUE records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "exchange/little_endian.h"

namespace merlu::xls {

enum class Type : unsigned {
  kEnd = 0x000A,
  kCalculationCount = 0x000C,
  kCalculationMode = 0x000D,
  kPrecision = 0x000E,
  kReferenceMode = 0x000F,
  kCalculationDelta = 0x0010,
  kIteration = 0x0011,
  kProtect = 0x0012,
  kPassword = 0x0013,
  kHeader = 0x0014,
  kFooter = 0x0015,
  kWindowProtect = 0x0019,
  kSelection = 0x001D,
  kDate1904 = 0x0022,
  kPrintHeaders = 0x002A,
  kPrintGrid = 0x002B,
  kFont = 0x0031,
  kContinue = 0x003C,
  kWindow1 = 0x003D,
  kBackup = 0x0040,
  kPane = 0x0041,
  kCodePage = 0x0042,
  kColumnWidth = 0x0055,
  kSaveRecalculated = 0x005F,
  kColumn = 0x007D,
  kGutters = 0x0080,
  kSheetOptions = 0x0081,
  kGridSet = 0x0082,
  kCentreAcross = 0x0083,
  kCentreDown = 0x0084,
  kBoundSheet = 0x0085,
  kCountry = 0x008C,
  kHideObjects = 0x008D,
  kPalette = 0x0092,
  kFunctionGroups = 0x009C,
  kBookOptions = 0x00DA,
  kCellFormat = 0x00E0,
  kSharedTexts = 0x00FC,
  kTextCell = 0x00FD,
  kSheetNumbers = 0x013D,
  kNaturalFormulas = 0x0160,
  kOldCopy = 0x0161,
  kRefreshAll = 0x01B7,
  kDimensions = 0x0200,
  kBlankCell = 0x0201,
  kNumberCell = 0x0203,
  kTruthCell = 0x0205,
  kRow = 0x0208,
  kRowHeight = 0x0225,
  kWindow2 = 0x023E,
  kStyle = 0x0293,
  kNumberFormat = 0x041E,
  kBegin = 0x0809,
};

inline constexpr std::size_t kMostBody = 8224;

// Appends a record; its body has at most kMostBody bytes.
void PutRecord(Bytes& out, Type type, const Bytes& body);

// A record whose body is one number of two bytes, as those of most settings are.
struct Setting {
  Type type;
  unsigned value;
};
void PutSettings(Bytes& out, std::initializer_list<Setting> settings);

// An ASCII text with its length in one byte, as names of sheets and fonts are kept; in two bytes, as formats are.
void PutShortName(Bytes& body, std::string_view text);
void PutLongName(Bytes& body, std::string_view text);

// The texts of all cells, each kept once; a cell names its text by its number.
class SharedTexts {
 public:
  // The number of a text; it counts one use more.
  std::uint32_t NumberOf(std::string_view text);
  // Appends the table of the texts. Letters up to U+00FF take one byte each, texts with others two bytes a unit.
  void PutTable(Bytes& out) const;

 private:
  std::deque<std::string> texts_;  // in the order of their numbers; never moved
  std::unordered_map<std::string_view, std::uint32_t> numbers_;
  std::uint32_t uses_ = 0;
};

}  // namespace merlu::xls
