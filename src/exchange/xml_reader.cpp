#include "exchange/xml_reader.h"

#include <expat.h>

#include <charconv>
#include <exception>
#include <memory>

#include "exchange/foreign_cells.h"

namespace merlu {
namespace {

constexpr char kBar = '|';

// One read: what the handler throws waits until the parser, which is written in C, has returned.
struct Reading {
  XML_Parser parser;
  XmlHandler& handler;
  std::exception_ptr failure;

  template <typename Step>
  void Do(Step&& step) {
    if (failure) return;
    try {
      step();
    } catch (...) {
      failure = std::current_exception();
      XML_StopParser(parser, XML_FALSE);
    }
  }
};

void XMLCALL OnStart(void* user, const XML_Char* name, const XML_Char** attributes) {
  auto& reading = *static_cast<Reading*>(user);
  reading.Do([&] { reading.handler.Start(LocalName(name), XmlAttributes(attributes)); });
}
void XMLCALL OnEnd(void* user, const XML_Char* name) {
  auto& reading = *static_cast<Reading*>(user);
  reading.Do([&] { reading.handler.End(LocalName(name)); });
}
void XMLCALL OnText(void* user, const XML_Char* text, int length) {
  auto& reading = *static_cast<Reading*>(user);
  reading.Do([&] { reading.handler.Text({text, static_cast<std::size_t>(length)}); });
}
void XMLCALL OnType(void* user, const XML_Char*, const XML_Char*, const XML_Char*, int) {
  static_cast<Reading*>(user)->Do([] { NoWorkbook("it declares a document type"); });
}

}  // namespace

std::string_view LocalName(std::string_view name) {
  const auto bar = name.rfind(kBar);
  return bar == std::string_view::npos ? name : name.substr(bar + 1);
}

std::string_view XmlAttributes::Get(std::string_view local, std::string_view space) const {
  for (const char** each = list_; *each != nullptr; each += 2) {
    const std::string_view name = each[0];
    if (LocalName(name) != local) continue;
    if (space.empty() || name.substr(0, name.size() - std::min(name.size(), local.size() + 1)).ends_with(space))
      return each[1];
  }
  return {};
}

int XmlAttributes::Number(std::string_view local, int otherwise) const {
  const std::string_view text = Get(local);
  int number = otherwise;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : otherwise;
}

void ReadXml(std::string_view text, XmlHandler& handler) {
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreateNS(nullptr, kBar),
                                                                            XML_ParserFree);
  if (parser == nullptr) throw std::bad_alloc();
  Reading reading{parser.get(), handler, nullptr};
  XML_SetUserData(parser.get(), &reading);
  XML_SetElementHandler(parser.get(), OnStart, OnEnd);
  XML_SetCharacterDataHandler(parser.get(), OnText);
  XML_SetStartDoctypeDeclHandler(parser.get(), OnType);
  const XML_Status status = XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
  if (reading.failure) std::rethrow_exception(reading.failure);
  if (XML_GetErrorCode(parser.get()) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
  if (status != XML_STATUS_OK)
    NoWorkbook(std::string("a part of it cannot be read: ") + XML_ErrorString(XML_GetErrorCode(parser.get())));
}

}  // namespace merlu
