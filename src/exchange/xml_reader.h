// Reads the XML of workbook parts: elements and texts in their order. A document with a document type (and so with
// entities) is refused.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace merlu {

// "urn:...:table:1.0|table-cell": the name without what is before the bar.
std::string_view LocalName(std::string_view name);

class XmlAttributes {
 public:
  explicit XmlAttributes(const char** list) : list_(list) {}
  // The value of the first attribute of that local name, whose namespace ends so. Empty without one.
  std::string_view Get(std::string_view local, std::string_view space = {}) const;
  int Number(std::string_view local, int otherwise) const;

 private:
  const char** list_;
};

class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  virtual void Start(std::string_view name, const XmlAttributes& attributes) = 0;
  virtual void End(std::string_view name) = 0;
  virtual void Text(std::string_view text) = 0;
};

// Names are handed out without their namespaces. kNotADatabase for what is no XML; what the handler throws is passed
// on.
void ReadXml(std::string_view text, XmlHandler& handler);

}  // namespace merlu
