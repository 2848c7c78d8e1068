// The records of .xls files, taken apart again by a reader of their rules.
#include "exchange/xls_records.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace merlu::xls {
namespace {

struct Record {
  unsigned type;
  std::string body;
};

unsigned U16(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) | static_cast<unsigned>(static_cast<unsigned char>(bytes[at + 1])) << 8;
}

unsigned U32(std::string_view bytes, std::size_t at) {
  return U16(bytes, at) | U16(bytes, at + 2) << 16;
}

std::vector<Record> Split(const Bytes& bytes) {
  std::vector<Record> records;
  std::string_view rest = bytes.data;
  while (rest.size() >= 4) {
    const std::size_t size = U16(rest, 2);
    EXPECT_LE(size, kMostBody);
    EXPECT_LE(size + 4, rest.size());
    records.push_back({U16(rest, 0), std::string(rest.substr(4, size))});
    rest.remove_prefix(std::min(rest.size(), size + 4));
  }
  EXPECT_TRUE(rest.empty());
  return records;
}

// Reads the table of texts as a spreadsheet program does.
class TableReader {
 public:
  explicit TableReader(std::vector<Record> records) : records_(std::move(records)) {
    EXPECT_EQ(records_[0].type, 0x00FCu);
    for (std::size_t i = 1; i < records_.size(); ++i) EXPECT_EQ(records_[i].type, 0x003Cu);
    uses = U32(records_[0].body, 0);
    const unsigned count = U32(records_[0].body, 4);
    at_ = 8;
    for (unsigned i = 0; i < count; ++i) texts.push_back(Text());
    EXPECT_EQ(record_, records_.size() - 1);
    EXPECT_EQ(at_, body().size());
  }

  unsigned uses = 0;
  std::vector<std::u16string> texts;

 private:
  const std::string& body() const { return records_[record_].body; }
  void NextRecord() {
    ++record_;
    ASSERT_LT(record_, records_.size()) << "a text goes on, and no record does";
    at_ = 0;
  }
  std::u16string Text() {
    if (at_ == body().size()) NextRecord();
    EXPECT_LE(at_ + 3, body().size()) << "a torn head";
    const std::size_t units = U16(body(), at_);
    bool wide = body()[at_ + 2] != 0;
    at_ += 3;
    std::u16string text;
    while (text.size() < units && !testing::Test::HasFailure()) {
      if (at_ == body().size()) {
        EXPECT_FALSE(text.empty()) << "a head without a letter";
        EXPECT_FALSE(text.back() >= 0xD800 && text.back() < 0xDC00) << "a torn pair";
        NextRecord();
        wide = body()[0] != 0;
        at_ = 1;
      }
      EXPECT_LE(at_ + (wide ? 2 : 1), body().size()) << "a torn unit";
      text.push_back(static_cast<char16_t>(wide ? U16(body(), at_) : static_cast<unsigned char>(body()[at_])));
      at_ += wide ? 2 : 1;
    }
    return text;
  }

  std::vector<Record> records_;
  std::size_t record_ = 0, at_ = 0;
};

TableReader ReadTable(const SharedTexts& texts) {
  Bytes bytes;
  texts.PutTable(bytes);
  return TableReader(Split(bytes));
}

void ExpectKept(const std::vector<std::string>& texts) {
  SharedTexts shared;
  for (const std::string& text : texts) shared.NumberOf(text);
  const TableReader table = ReadTable(shared);
  ASSERT_EQ(table.texts.size(), texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_TRUE(table.texts[i] == ToUtf16(texts[i])) << "text " << i << " of " << texts[i].size() << " bytes";
}

std::string Repeat(std::string_view part, std::size_t count) {
  std::string text;
  while (count-- > 0) text += part;
  return text;
}

TEST(XlsRecord, has_type_length_and_body_low_bytes_first) {
  Bytes out;
  PutRecord(out, Type::kNumberCell, Bytes().U16(1).U16(258).U16(15).F64(1));
  EXPECT_EQ(out.data, std::string("\x03\x02\x0E\0\x01\0\x02\x01\x0F\0\0\0\0\0\0\0\xF0\x3F", 18));
}

TEST(XlsRecord, names_carry_their_length_in_one_byte_or_two) {
  Bytes one, two;
  PutShortName(one, "Arial");
  PutLongName(two, "0.00");
  EXPECT_EQ(one.data, std::string("\x05\0Arial", 7));
  EXPECT_EQ(two.data, std::string("\x04\0\0"
                                  "0.00",
                                  7));
}

TEST(SharedTexts, keep_each_text_once_and_count_its_uses) {
  SharedTexts texts;
  EXPECT_EQ(texts.NumberOf("a"), 0u);
  EXPECT_EQ(texts.NumberOf("b"), 1u);
  EXPECT_EQ(texts.NumberOf("a"), 0u);
  EXPECT_EQ(texts.NumberOf("A"), 2u);
  const TableReader table = ReadTable(texts);
  EXPECT_EQ(table.uses, 4u);
  EXPECT_EQ(table.texts, (std::vector<std::u16string>{u"a", u"b", u"A"}));
}

TEST(SharedTexts, without_a_text_are_an_empty_table) {
  EXPECT_TRUE(ReadTable(SharedTexts()).texts.empty());
}

TEST(SharedTexts, take_one_byte_a_letter_where_that_is_enough) {
  for (const auto& [text, bytes] : std::vector<std::pair<std::string, std::size_t>>{
           {"plain", 5}, {"é", 1}, {"\u00FF", 1}, {"\u0100", 2}, {"aж", 4}, {"😀", 4}}) {
    SharedTexts texts;
    texts.NumberOf(text);
    Bytes out;
    texts.PutTable(out);
    EXPECT_EQ(out.size(), 4 + 8 + 3 + bytes) << text;
  }
}

TEST(SharedTexts, go_on_over_many_records) {
  ExpectKept({Repeat("x", 32767), Repeat("ж", 32767), Repeat("中", 32766) + "a", Repeat("😀", 16383), "end"});
}

TEST(SharedTexts, are_whole_wherever_a_record_ends) {
  for (const char* tail : {"after", "послe", "😀😀😀", "文"})
    for (std::size_t length = kMostBody - 30; length < kMostBody + 10; ++length)
      ExpectKept({Repeat("x", length), tail, "last"});
}

TEST(SharedTexts, never_tear_a_pair_wherever_a_record_ends) {
  for (std::size_t shift = 0; shift < 6; ++shift)
    ExpectKept({Repeat("x", shift) + "!", Repeat("ж", shift % 2) + Repeat("😀", 9000), "last"});
}

TEST(SharedTexts, can_be_many) {
  std::vector<std::string> texts;
  for (int i = 0; i < 20000; ++i) texts.push_back((i % 3 == 0 ? "ид " : "id ") + std::to_string(i));
  ExpectKept(texts);
}

}  // namespace
}  // namespace merlu::xls
