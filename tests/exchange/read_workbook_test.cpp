// Workbooks of other programs, read without trust.
#include "exchange/read_workbook.h"

#include <gtest/gtest.h>
#include <fstream>

#include "base/fault.h"
#include "exchange/foreign_cells.h"
#include "exchange/workbook.h"
#include "support/test_run.h"
#include "support/zip.h"

namespace merlu::test {
namespace {

using Kind = ForeignCell::Kind;

constexpr const char* kRelations =
    "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>";
constexpr const char* kDocument = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

// An .xlsx of one sheet, whose part is named from the top of the archive as some programs do.
Parts Xlsx(const std::string& sheet, const std::string& more = "", const Parts& others = {}) {
  Parts parts = {
      {"_rels/.rels", std::string(kRelations) + "<Relationship Id='a' Type='" + kDocument +
                          "officeDocument' Target='xl/workbook.xml'/></Relationships>"},
      {"xl/workbook.xml",
       "<workbook xmlns='m' xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'><sheets>"
       "<sheet name='One' sheetId='1' r:id='b'/></sheets></workbook>"},
      {"xl/_rels/workbook.xml.rels", std::string(kRelations) + "<Relationship Id='b' Type='" + kDocument +
                                         "worksheet' Target='/xl/worksheets/sheet1.xml'/>" + more + "</Relationships>"},
      {"xl/worksheets/sheet1.xml", "<worksheet xmlns='m'>" + sheet + "</worksheet>"}};
  parts.insert(others.begin(), others.end());
  return parts;
}

std::string Relation(const std::string& id, const std::string& type, const std::string& target) {
  return "<Relationship Id='" + id + "' Type='" + kDocument + type + "' Target='" + target + "'/>";
}

class ReadsWorkbook : public testing::Test {
 protected:
  std::vector<ForeignSheet> Read(const std::string& name, const std::string& bytes) {
    const std::string path = folder.path(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return ReadForeignWorkbook(path);
  }
  std::vector<ForeignSheet> ReadXlsxOf(const std::string& rows, const std::string& behind = "") {
    return Read("a.xlsx", Zip(Xlsx("<sheetData>" + rows + "</sheetData>" + behind)));
  }
  // The fault's number and description.
  std::pair<int, std::string> Refused(const std::string& name, const std::string& bytes) {
    try {
      Read(name, bytes);
    } catch (const Fault& fault) {
      return {fault.number, fault.description};
    }
    return {0, "it was read"};
  }
  static std::string Told(const ForeignSheet& sheet) {
    std::string told;
    for (const ForeignCell& cell : sheet.cells)
      told += std::to_string(cell.row) + "," + std::to_string(cell.column) + " " + "tndf"[static_cast<int>(cell.kind)] +
              " " + cell.text + "\n";
    return told;
  }

  TemporaryFolder folder;
};

TEST_F(ReadsWorkbook, of_every_kind_of_cell) {
  const auto sheets = ReadXlsxOf(
      "<row r='1'><c r='A1' t='inlineStr'><is><t>in</t><r><t> parts</t></r><rPh><t>spoken</t></rPh></is></c>"
      "<c r='B1'><v>0.30000000000000004</v></c><c t='b'><v>1</v></c><c t='e'><v>#N/A</v></c></row>"
      "<row r='3'><c r='B3' t='str'><f>A1</f><v>result</v></c><c r='C3'><f>1+1</f></c><c r='D3' t='e'><f>1/0</f>"
      "<v>#DIV/0!</v></c><c r='E3'><f>2*3</f><v>6</v></c><c r='F3' t='d'><v>2017-03-01</v></c></row>");
  ASSERT_EQ(sheets.size(), 1U);
  EXPECT_EQ(sheets[0].name, "One");
  EXPECT_EQ(Told(sheets[0]),
            "0,0 t in parts\n0,1 n 0.3\n0,2 t TRUE\n0,3 t #N/A\n2,1 t result\n2,2 f \n2,3 f \n2,4 n 6\n"
            "2,5 d 2017-03-01\n");
}

TEST_F(ReadsWorkbook, with_shared_texts_and_numbers_that_show_dates) {
  const std::string sheet =
      "<sheetData><row><c t='s'><v>1</v></c><c t='s'><v>9</v></c><c s='1'><v>42795</v></c><c s='2'><v>3</v></c>"
      "<c s='3'><v>4</v></c></row></sheetData>";
  const Parts others = {
      {"xl/texts.xml", "<sst xmlns='m'><si><t>a</t></si><si><t>_x0041_x005F_ &amp;</t></si></sst>"},
      {"xl/styles.xml",
       "<styleSheet xmlns='m'><numFmts><numFmt numFmtId='170' formatCode='yyyy&quot;-&quot;mm'/><numFmt "
       "numFmtId='171' formatCode='0.0&quot;days&quot;'/></numFmts><cellStyleXfs><xf numFmtId='14'/></cellStyleXfs>"
       "<cellXfs><xf numFmtId='0'/><xf numFmtId='14'/><xf numFmtId='170'/><xf "
       "numFmtId='171'/></cellXfs></styleSheet>"}};
  const auto sheets =
      Read("a.xlsx",
           Zip(Xlsx(sheet, Relation("c", "sharedStrings", "texts.xml") + Relation("d", "styles", "../xl/styles.xml"),
                    others)));
  EXPECT_EQ(Told(sheets.at(0)), "0,0 t Ax005F_ &\n0,2 d 42795\n0,3 d 3\n0,4 n 4\n");
}

TEST_F(ReadsWorkbook, with_merged_cells_and_cells_out_of_order) {
  const auto sheets = ReadXlsxOf(
      "<row r='2'><c r='B2'><v>1</v></c><c r='A2'><v>2</v></c><c r='A1'><v>3</v></c><c r='A2'><v>4</v></c></row>",
      "<mergeCells><mergeCell ref='A1:B3'/><mergeCell ref='nonsense'/></mergeCells>");
  EXPECT_EQ(Told(sheets.at(0)), "0,0 n 3\n1,0 n 4\n1,1 n 1\n");
  ASSERT_EQ(sheets[0].merged.size(), 1U);
  EXPECT_EQ(sheets[0].merged[0].last_row, 2);
  EXPECT_EQ(sheets[0].merged[0].last_column, 1);
  EXPECT_EQ(sheets[0].Text(1, 0), "4");
  EXPECT_EQ(sheets[0].Text(1, 5), "");
}

TEST_F(ReadsWorkbook, of_the_open_document_format) {
  const std::string content =
      "<office:document-content xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0' "
      "xmlns:table='urn:oasis:names:tc:opendocument:xmlns:table:1.0' "
      "xmlns:text='urn:oasis:names:tc:opendocument:xmlns:text:1.0' xmlns:calcext='urn:calcext:1.0'>"
      "<table:table table:name='One'><table:table-row table:number-rows-repeated='2'>"
      "<table:table-cell table:number-columns-repeated='2' calcext:value-type='string' office:value-type='float' "
      "office:value='1.5'><text:p>1,50</text:p></table:table-cell></table:table-row>"
      "<table:table-row table:number-rows-repeated='1000'><table:table-cell/></table:table-row>"
      "<table:table-row><table:table-cell office:value-type='string' table:number-columns-spanned='2' "
      "table:number-rows-spanned='2'><office:annotation><text:p>a note</text:p></office:annotation><text:p>two<text:s "
      "text:c='2'/>words</text:p><text:p>a line</text:p></table:table-cell><table:covered-table-cell/>"
      "<table:table-cell office:value-type='date' office:date-value='2017-03-01'/>"
      "<table:table-cell table:formula='of:=1/0'><text:p>#DIV/0!</text:p></table:table-cell>"
      "<table:table-cell table:formula='of:=1+1' office:value-type='float' office:value='2'/>"
      "<table:table-cell office:value-type='boolean' office:boolean-value='true'/></table:table-row>"
      "<table:table-row table:number-rows-repeated='1048000'><table:table-cell "
      "table:number-columns-repeated='16384'/></table:table-row></table:table></office:document-content>";
  const auto sheets = Read("a.ods", Zip({{"content.xml", content}}));
  EXPECT_EQ(Told(sheets.at(0)),
            "0,0 n 1.5\n0,1 n 1.5\n1,0 n 1.5\n1,1 n 1.5\n1002,0 t two  words\na line\n1002,2 d 2017-03-01\n"
            "1002,3 f \n1002,4 n 2\n1002,5 t TRUE\n");
  ASSERT_EQ(sheets[0].merged.size(), 1U);
  EXPECT_EQ(sheets[0].merged[0].row, 1002);
}

TEST_F(ReadsWorkbook, without_what_stands_outside_of_its_sheets) {
  const std::string row =
      "<t:table-row><t:table-cell o:value-type='float' o:value='1' t:number-rows-spanned='2'/></t:table-row>";
  const std::string begin = "<a xmlns:t='urn:table:1.0' xmlns:o='urn:office:1.0'>" + row;
  EXPECT_TRUE(Read("a.ods", Zip({{"content.xml", begin + "</a>"}})).empty());
  const auto sheets = Read("b.ods", Zip({{"content.xml", begin + "<t:table>" + row + "</t:table></a>"}}));
  EXPECT_EQ(Told(sheets.at(0)), "0,0 n 1\n");
  EXPECT_EQ(sheets[0].merged.size(), 1U);
}

TEST_F(ReadsWorkbook, as_comma_separated_text_of_any_origin) {
  EXPECT_EQ(Told(Read("a.csv", "a;\"b\"\"c\"\r\n;2\n").at(0)), "0,0 t a\n0,1 t b\"c\n1,1 t 2\n");
  EXPECT_EQ(Told(Read("b.CSV", "caf\xE9,\n").at(0)), "0,0 t caf\xC3\xA9\n");
  EXPECT_EQ(Refused("c.csv", std::string("a\0b", 3)).first, fault_number::kNotADatabase);
}

TEST_F(ReadsWorkbook, and_refuses_what_is_none) {
  EXPECT_THROW(ReadForeignWorkbook(folder.path("none.xlsx")), Fault);
  EXPECT_THROW(ReadForeignWorkbook(folder.path()), Fault);
  EXPECT_EQ(Refused("a.xlsx", "").second, "The file is not a workbook.");
  EXPECT_EQ(Refused("a.xlsx", "PK and nothing more, but long enough to hold an end").first,
            fault_number::kNotADatabase);
  EXPECT_EQ(Refused("a.ods", Zip({{"content.xml", "<a><b></a>"}})).second.substr(0, 60),
            "The file is not a workbook: a part of it cannot be read: mis");
  EXPECT_EQ(Refused("a.ods", Zip({{"mimetype", ""}})).second, "The file is not a workbook: it lacks content.xml.");
  std::string torn = Zip(Xlsx("<sheetData><row><c><v>1</v></c></row></sheetData>"));
  torn[torn.find("<c>")] = '(';
  EXPECT_EQ(Refused("a.xlsx", torn).second, "The file is not a workbook: a part of it is damaged.");
  const std::string bomb = "<!DOCTYPE a [<!ENTITY x 'xxxxxxxxxx'><!ENTITY y '&x;&x;&x;&x;'>]><a>&y;</a>";
  EXPECT_EQ(Refused("a.ods", Zip({{"content.xml", bomb}})).second,
            "The file is not a workbook: it declares a document type.");
}

TEST_F(ReadsWorkbook, and_refuses_what_is_too_large) {
  EXPECT_EQ(Refused("a.xlsx", Zip(Xlsx("<sheetData><row r='200001'><c><v>1</v></c></row></sheetData>"))).second,
            "The workbook is too large: more than 200,000 rows.");
  EXPECT_EQ(Refused("a.xlsx", Zip(Xlsx("<sheetData><row><c r='ZZZ1'><v>1</v></c></row></sheetData>"))).second,
            "The workbook is too large: more than 500 columns.");
  const std::string repeated =
      "<a xmlns:t='urn:table:1.0' xmlns:o='urn:office:1.0'><t:table><t:table-row t:number-rows-repeated='190000'>"
      "<t:table-cell o:value-type='float' o:value='1' t:number-columns-repeated='400'/></t:table-row></t:table></a>";
  EXPECT_EQ(Refused("a.ods", Zip({{"content.xml", repeated}})).second,
            "The workbook is too large: more than 2,000,000 cells.");
  // a directory that promises more than there is
  std::string liar = Zip({{"content.xml", "<a/>"}});
  const std::size_t entry = liar.find("PK\x01\x02");
  liar.replace(entry + 24, 4, std::string("\xFF\xFF\xFF\x7F", 4));
  EXPECT_EQ(Refused("a.ods", liar).second, "The workbook is too large: more than 256 MB unpacked.");
}

TEST_F(ReadsWorkbook, that_this_program_wrote) {
  Sheet sheet;
  sheet.name = "One";
  sheet.rows.push_back({{Cell("=1+1 _x0041_ \x01 <&>"), Cell(2.5), Cell(std::string("two\nlines "))}});
  const auto file = NewXlsx(folder.path("own.xlsx"));
  file->Add(sheet);
  file->Write();
  EXPECT_EQ(Told(ReadForeignWorkbook(folder.path("own.xlsx")).at(0)),
            "0,0 t =1+1 _x0041_ \x01 <&>\n0,1 n 2.5\n0,2 t two\nlines \n");
}

// Whatever is in the bytes, it is read or refused.
TEST_F(ReadsWorkbook, of_mutated_bytes_or_refuses_it) {
  const std::string whole =
      Zip(Xlsx("<sheetData><row><c t='inlineStr'><is><t>a</t></is></c><c><v>1</v></c></row></sheetData>"));
  unsigned seed = 1;
  const auto next = [&seed] { return seed = seed * 1664525U + 1013904223U; };
  int read = 0, refused = 0;
  for (int round = 0; round < 2000; ++round) {
    std::string bytes = whole;
    for (unsigned n = 0; n <= next() % 4; ++n) bytes[next() % bytes.size()] = static_cast<char>(next() >> 16U);
    if (next() % 8 == 0) bytes.resize(next() % bytes.size());
    try {
      ReadXlsx(bytes);
      ++read;
    } catch (const Fault&) {
      ++refused;
    }
  }
  EXPECT_GT(read, 0);
  EXPECT_GT(refused, 1000);
}

}  // namespace
}  // namespace merlu::test
