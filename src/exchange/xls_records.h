// The records of the .xls format (BIFF8): a workbook stream is a run of them, each with its type, its length and
// at most 8224 bytes. What does not fit goes on in CONTINUE records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "exchange/little_endian.h"

namespace merlu::xls {

enum class Type : unsigned {
  kEnd = 0x000A,
  kDate1904 = 0x0022,
  kFont = 0x0031,
  kContinue = 0x003C,
  kWindow1 = 0x003D,
  kPane = 0x0041,
  kCodePage = 0x0042,
  kColumn = 0x007D,
  kSheetOptions = 0x0081,
  kBoundSheet = 0x0085,
  kPalette = 0x0092,
  kCellFormat = 0x00E0,
  kSharedTexts = 0x00FC,
  kTextCell = 0x00FD,
  kSelection = 0x001D,
  kDimensions = 0x0200,
  kBlankCell = 0x0201,
  kNumberCell = 0x0203,
  kTruthCell = 0x0205,
  kWindow2 = 0x023E,
  kStyle = 0x0293,
  kNumberFormat = 0x041E,
  kBegin = 0x0809,
};

inline constexpr std::size_t kMostBody = 8224;

// Appends a record; its body has at most kMostBody bytes.
void PutRecord(Bytes& out, Type type, const Bytes& body);

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
