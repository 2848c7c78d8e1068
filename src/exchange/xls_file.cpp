// A workbook as an .xls file: the records of the workbook itself, those of every sheet, one stream.
#include <algorithm>
#include <array>
#include <cmath>
#include <list>

#include "exchange/compound_file.h"
#include "exchange/workbook.h"
#include "exchange/xls_records.h"

namespace merlu {
namespace {

using namespace xls;

constexpr SheetLimits kLimits = {65536, 256};

// Cell formats, by their place in the list of all: fifteen styles come first.
constexpr unsigned kStyleFormats = 15;
constexpr unsigned kPlain = 15, kHeading = 16, kDate = 17, kWrapped = 18;
// Fonts likewise. The format counts from 0 and leaves out 4.
constexpr unsigned kPlainFont = 0, kBoldFont = 5;
constexpr unsigned kGeneralNumber = 0, kDateNumber = 164;
constexpr unsigned kDigit = 256;         // widths of columns count in parts of a digit
constexpr unsigned kWidest = 255;        // digits
constexpr unsigned kRowHeight = 255;     // in twentieths of a point
constexpr unsigned kFirstColour = 8;     // number of the palette's first entry
constexpr unsigned kGreyEntry = 22 - 8;  // the light grey, which becomes ours
constexpr unsigned kGreyColour = kFirstColour + kGreyEntry;
constexpr unsigned kWindowText = 0x40, kWindowBack = 0x41;

// The colours that these programs offer, as 0xRRGGBB.
constexpr std::array<unsigned, 56> kPalette = {
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, 0x800000, 0x008000,
    0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, 0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF,
    0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, 0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000,
    0x008080, 0x0000FF, 0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696, 0x003366, 0x339966,
    0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};

Bytes Words(std::initializer_list<unsigned> values) {
  Bytes words;
  for (const unsigned value : values) words.U16(value);
  return words;
}

enum class Part : unsigned { kWorkbook = 0x0005, kSheet = 0x0010 };

void PutBegin(Bytes& out, Part part) {
  // version 8, written by a build of 1997
  PutRecord(out, Type::kBegin, Words({0x0600, static_cast<unsigned>(part), 0x0DBB, 0x07CC, 0, 0, 6, 0}));
}

void PutFont(Bytes& out, const char* name, bool bold) {
  Bytes font;
  font.U16(200).U16(bold ? 1 : 0).U16(0x7FFF).U16(bold ? 700 : 400);  // 10 points, the colour of texts
  font.U16(0).U8(0).U8(2).U8(0).U8(0);                                // swiss family
  PutShortName(font, name);
  PutRecord(out, Type::kFont, font);
}

void PutFonts(Bytes& out) {
  for (int i = 0; i < 4; ++i) PutFont(out, "Arial", false);
  PutFont(out, kHeadingFont, true);
}

struct CellFormat {
  unsigned font, number;
  bool style;    // a style, not a cell
  unsigned own;  // what the cell does not take over from its style
  bool grey;
  bool wraps = false;
};

void PutCellFormat(Bytes& out, const CellFormat& format) {
  constexpr std::uint32_t kSolid = 1u << 26;
  Bytes body;
  body.U16(format.font).U16(format.number).U16(format.style ? 0xFFF5 : 0x0001);
  constexpr unsigned kWrap = 0x08, kAtBottom = 0x20;
  body.U8(format.wraps ? kWrap : kAtBottom).U8(0).U8(0).U8(format.own);
  body.U32(0).U32(format.grey ? kSolid : 0);
  body.U16((format.grey ? kGreyColour : kWindowText) | kWindowBack << 7);
  PutRecord(out, Type::kCellFormat, body);
}

void PutCellFormats(Bytes& out) {
  constexpr unsigned kOwnNumber = 0x04, kOwnFont = 0x08, kOwnAlignment = 0x10, kOwnFill = 0x40;
  for (unsigned i = 0; i < kStyleFormats; ++i) PutCellFormat(out, {kPlainFont, kGeneralNumber, true, 0, false});
  PutCellFormat(out, {kPlainFont, kGeneralNumber, false, 0, false});
  PutCellFormat(out, {kBoldFont, kGeneralNumber, false, kOwnFont | kOwnFill, true});
  PutCellFormat(out, {kPlainFont, kDateNumber, false, kOwnNumber, false});
  PutCellFormat(out, {kPlainFont, kGeneralNumber, false, kOwnAlignment, false, true});
  PutRecord(out, Type::kStyle, Bytes().U16(0x8000).U8(0).U8(0xFF));  // the first format is the style "Normal"
}

void PutPalette(Bytes& out) {
  Bytes body;
  body.U16(kPalette.size());
  for (std::size_t i = 0; i < kPalette.size(); ++i) {
    const unsigned colour = i == kGreyEntry ? kHeadingGrey * 0x010101 : kPalette[i];
    body.U8(colour >> 16).U8(colour >> 8 & 0xFF).U8(colour & 0xFF).U8(0);
  }
  PutRecord(out, Type::kPalette, body);
}

// The records before the list of sheets.
Bytes WorkbookHead(std::size_t sheets) {
  Bytes out, numbers, date;
  PutBegin(out, Part::kWorkbook);
  PutSettings(out, {{Type::kCodePage, 0x04B0}, {Type::kOldCopy, 0}});  // UTF-16
  for (unsigned sheet = 1; sheet <= sheets; ++sheet) numbers.U16(sheet);
  PutRecord(out, Type::kSheetNumbers, numbers);
  PutSettings(out, {{Type::kFunctionGroups, 14}, {Type::kWindowProtect, 0}, {Type::kProtect, 0}, {Type::kPassword, 0}});
  PutRecord(out, Type::kWindow1, Words({0, 0, 0x6000, 0x3000, 0x38, 0, 0, 1, 600}));
  PutSettings(out, {{Type::kBackup, 0}, {Type::kHideObjects, 0}, {Type::kDate1904, 0}});
  PutSettings(out, {{Type::kPrecision, 1}, {Type::kRefreshAll, 0}, {Type::kBookOptions, 0}});
  PutFonts(out);
  date.U16(kDateNumber);
  PutLongName(date, kDateFormat);
  PutRecord(out, Type::kNumberFormat, date);
  PutCellFormats(out);
  PutPalette(out);
  PutSettings(out, {{Type::kNaturalFormulas, 0}});
  return out;
}

Bytes BoundSheet(std::size_t offset, const std::string& name) {
  Bytes body, out;
  body.U32(static_cast<std::uint32_t>(offset)).U8(0).U8(0);  // a visible worksheet
  PutShortName(body, name);
  PutRecord(out, Type::kBoundSheet, body);
  return out;
}

// ---- sheets ----

// How a sheet calculates and prints: as a new one does.
void PutSheetSettings(Bytes& out) {
  PutSettings(out, {{Type::kCalculationMode, 1}, {Type::kCalculationCount, 100}, {Type::kReferenceMode, 1}});
  PutSettings(out, {{Type::kIteration, 0}});
  PutRecord(out, Type::kCalculationDelta, Bytes().F64(0.001));
  PutSettings(out,
              {{Type::kSaveRecalculated, 1}, {Type::kPrintHeaders, 0}, {Type::kPrintGrid, 0}, {Type::kGridSet, 1}});
  PutRecord(out, Type::kGutters, Bytes().Fill(8));
  PutRecord(out, Type::kRowHeight, Bytes().U16(0).U16(kRowHeight));
  PutSettings(out, {{Type::kSheetOptions, 0x04C1}});
  PutRecord(out, Type::kHeader, Bytes());
  PutRecord(out, Type::kFooter, Bytes());
  PutSettings(out, {{Type::kCentreAcross, 0}, {Type::kCentreDown, 0}, {Type::kColumnWidth, 8}});
}

Bytes At(std::size_t row, std::size_t column, unsigned format) {
  Bytes body;
  body.U16(static_cast<unsigned>(row)).U16(static_cast<unsigned>(column)).U16(format);
  return body;
}

struct CellWriter {
  Bytes& out;
  SharedTexts& texts;
  std::size_t row, column;
  bool heading, wraps;

  unsigned Format(unsigned usual) const { return heading ? kHeading : wraps ? kWrapped : usual; }
  void operator()(EmptyCell) const {
    if (heading) PutRecord(out, Type::kBlankCell, At(row, column, kHeading));
  }
  void operator()(bool value) const {
    PutRecord(out, Type::kTruthCell, At(row, column, Format(kPlain)).U8(value).U8(0));
  }
  void operator()(double value) const { PutRecord(out, Type::kNumberCell, At(row, column, Format(kPlain)).F64(value)); }
  void operator()(SerialDate date) const {
    PutRecord(out, Type::kNumberCell, At(row, column, Format(kDate)).F64(date.days));
  }
  void operator()(const std::string& text) const {
    PutRecord(out, Type::kTextCell, At(row, column, Format(kPlain)).U32(texts.NumberOf(text)));
  }
};

void PutColumns(Bytes& out, const std::vector<int>& widths) {
  for (unsigned column = 0; column < widths.size(); ++column) {
    const unsigned width = std::min(static_cast<unsigned>(widths[column]), kWidest) * kDigit;
    PutRecord(out, Type::kColumn, Words({column, column, width, kPlain, 0, 0}));
  }
}

// Lines of the row's highest cell.
unsigned LinesOf(const Sheet& sheet, std::size_t row) {
  constexpr double kMostLines = 30;  // what a row can be high
  double lines = 1;
  const SheetRow& content = sheet.rows[row];
  for (std::size_t column = 0; content.wraps && column < content.cells.size(); ++column)
    if (Wraps(sheet, row, column))
      lines =
          std::max(lines, std::ceil(TextWidth(std::get<std::string>(content.cells[column])) / sheet.widths[column]));
  return static_cast<unsigned>(std::min(lines, kMostLines));
}

void PutRowHead(Bytes& out, std::size_t row, const Sheet& sheet) {
  const SheetRow& content = sheet.rows[row];
  if (content.cells.empty()) return;
  constexpr std::uint32_t kUsual = 0x000F0100;  // of usual height, cells without a format of the row's
  const unsigned height = kRowHeight * LinesOf(sheet, row);
  PutRecord(out, Type::kRow,
            At(row, 0, static_cast<unsigned>(content.cells.size())).U16(height).U16(0).U16(0).U32(kUsual));
}

void PutRowCells(Bytes& out, SharedTexts& texts, std::size_t row, const Sheet& sheet) {
  const SheetRow& content = sheet.rows[row];
  for (std::size_t column = 0; column < content.cells.size(); ++column)
    std::visit(CellWriter{out, texts, row, column, column < content.headings, Wraps(sheet, row, column)},
               content.cells[column]);
}

// Rows come in blocks: the heads of all, then the cells of all.
constexpr std::size_t kRowBlock = 32;

void PutCells(Bytes& out, SharedTexts& texts, const Sheet& sheet) {
  std::size_t columns = 0;
  for (const SheetRow& row : sheet.rows) columns = std::max(columns, row.cells.size());
  PutRecord(out, Type::kDimensions,
            Bytes()
                .U32(0)
                .U32(static_cast<std::uint32_t>(sheet.rows.size()))
                .U16(0)
                .U16(static_cast<unsigned>(columns))
                .U16(0));
  for (std::size_t first = 0; first < sheet.rows.size(); first += kRowBlock) {
    const std::size_t last = std::min(first + kRowBlock, sheet.rows.size());
    for (std::size_t row = first; row < last; ++row) PutRowHead(out, row, sheet);
    for (std::size_t row = first; row < last; ++row) PutRowCells(out, texts, row, sheet);
  }
}

void PutView(Bytes& out, const Sheet& sheet, bool first) {
  constexpr unsigned kUsual = 0x00B6, kFrozen = 0x0108, kShowing = 0x0600;
  constexpr unsigned kTopPane = 3, kBottomPane = 2;
  const auto rows = static_cast<unsigned>(sheet.frozen_rows);
  const unsigned options = kUsual | (rows > 0 ? kFrozen : 0) | (first ? kShowing : 0);
  PutRecord(out, Type::kWindow2, Words({options, 0, 0, kWindowText, 0, 0, 0, 0, 0}));
  if (rows > 0) PutRecord(out, Type::kPane, Words({0, rows, rows, 0, kBottomPane}));
  const auto select = [&out](unsigned pane, unsigned row) {
    PutRecord(out, Type::kSelection, Bytes().U8(pane).U16(row).U16(0).U16(0).U16(1).U16(row).U16(row).U8(0).U8(0));
  };
  select(kTopPane, 0);
  if (rows > 0) select(kBottomPane, rows);
}

class XlsFile : public WorkbookFile {
 public:
  explicit XlsFile(const std::string& path) : path_(path) {}

  void Add(const Sheet& sheet) override {
    CheckFits(sheet, kLimits);
    Bytes& out = parts_.emplace_back(sheet.name, Bytes()).second;
    PutBegin(out, Part::kSheet);
    PutSheetSettings(out);
    PutColumns(out, sheet.widths);
    PutCells(out, texts_, sheet);
    PutView(out, sheet, parts_.size() == 1);
    PutRecord(out, Type::kEnd, Bytes());
  }

  void Write() override {
    const Bytes globals = Globals();
    std::vector<std::string_view> parts = {globals.data};
    for (const auto& [name, part] : parts_) parts.push_back(part.data);
    WriteCompoundFile(path_, "Workbook", parts);
  }

 private:
  // The records of the workbook. The list of sheets holds the offset of each in the stream.
  Bytes Globals() const {
    Bytes out = WorkbookHead(parts_.size()), tail;
    PutRecord(tail, Type::kCountry, Words({1, 1}));
    texts_.PutTable(tail);
    PutRecord(tail, Type::kEnd, Bytes());
    std::size_t offset = out.size() + tail.size();
    for (const auto& [name, part] : parts_) offset += BoundSheet(0, name).size();
    for (const auto& [name, part] : parts_) {
      out.Put(BoundSheet(offset, name).data);
      offset += part.size();
    }
    return out.Put(tail.data);
  }

  std::string path_;
  std::list<std::pair<std::string, Bytes>> parts_;  // name and records of each sheet
  SharedTexts texts_;
};

}  // namespace

std::unique_ptr<WorkbookFile> NewXls(const std::string& path) {
  return std::make_unique<XlsFile>(path);
}

}  // namespace merlu
