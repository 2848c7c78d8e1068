#include "exchange/xls_records.h"

#include <algorithm>

#include "base/text.h"

namespace merlu::xls {
namespace {

// A record that continues in CONTINUE records when its body is full.
class LongRecord {
 public:
  LongRecord(Bytes& out, Type type) : out_(out), type_(type) {}

  Bytes& body() { return body_; }
  std::size_t Room() const { return kMostBody - body_.size(); }
  void Break() {
    PutRecord(out_, type_, body_);
    type_ = Type::kContinue;
    body_.data.clear();
  }

 private:
  Bytes& out_;
  Type type_;
  Bytes body_;
};

void PutUnits(Bytes& body, std::u16string_view units, bool wide) {
  for (const char16_t unit : units) wide ? body.U16(unit) : body.U8(unit);
}

// How many units of the text go into the room, with pairs left whole: readers take each record's part for itself.
std::size_t PartThatFits(std::u16string_view text, std::size_t room) {
  if (text.size() <= room) return text.size();
  const bool first_of_pair = text[room - 1] >= 0xD800 && text[room - 1] < 0xDC00;
  return first_of_pair ? room - 1 : room;
}

void PutText(LongRecord& record, std::u16string_view text) {
  constexpr std::size_t kHead = 3;
  const bool wide = std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0xFF; });
  const std::size_t each = wide ? 2 : 1;
  // the head must not be split, and at least one character must follow it
  if (record.Room() < kHead + 2 * each) record.Break();
  record.body().U16(static_cast<unsigned>(text.size())).U8(wide);
  while (true) {
    const std::size_t count = PartThatFits(text, record.Room() / each);
    PutUnits(record.body(), text.substr(0, count), wide);
    text.remove_prefix(count);
    if (text.empty()) return;
    record.Break();
    record.body().U8(wide);  // a continued text repeats its encoding flag
  }
}

}  // namespace

void PutRecord(Bytes& out, Type type, const Bytes& body) {
  out.U16(static_cast<unsigned>(type)).U16(static_cast<unsigned>(body.size())).Put(body.data);
}

void PutSettings(Bytes& out, std::initializer_list<Setting> settings) {
  for (const Setting& setting : settings) PutRecord(out, setting.type, Bytes().U16(setting.value));
}

void PutShortName(Bytes& body, std::string_view text) {
  body.U8(static_cast<unsigned>(text.size())).U8(0).Put(text);
}

void PutLongName(Bytes& body, std::string_view text) {
  body.U16(static_cast<unsigned>(text.size())).U8(0).Put(text);
}

std::uint32_t SharedTexts::NumberOf(std::string_view text) {
  ++uses_;
  if (const auto found = numbers_.find(text); found != numbers_.end()) return found->second;
  const auto number = static_cast<std::uint32_t>(texts_.size());
  numbers_.emplace(texts_.emplace_back(text), number);
  return number;
}

void SharedTexts::PutTable(Bytes& out) const {
  LongRecord record(out, Type::kSharedTexts);
  record.body().U32(uses_).U32(static_cast<std::uint32_t>(texts_.size()));
  for (const std::string& text : texts_) PutText(record, ToUtf16(text));
  record.Break();
}

}  // namespace merlu::xls
