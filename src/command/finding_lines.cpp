#include "command/finding_lines.h"

#include <utility>
#include <vector>

#include "base/text.h"
#include "command/lines.h"
#include "exchange/csv.h"

namespace merlu {
namespace {

std::vector<std::pair<const char*, std::string>> MembersOf(const std::string& file, const CheckedFinding& f) {
  return {{"file", file},         {"place", f.place},         {"month", std::to_string(f.month)},
          {"complex", f.complex}, {"structure", f.structure}, {"type", f.type},
          {"id", f.id},           {"field", f.field},         {"control", f.control},
          {"value", f.value},     {"expected", f.expected},   {"text", f.text},
          {"comment", f.comment}, {"state", f.state}};
}

std::string CountsInWords(const CheckedFile& file) {
  return Thousands(file.records) + " records, " + Thousands(static_cast<std::int64_t>(file.findings.size())) +
         " findings, " + Thousands(file.open) + " open, " + Thousands(file.explained) + " explained, " +
         Thousands(file.stale) + " stale";
}

}  // namespace

void WriteFindings(Console& console, const std::string& format, const std::string& path, const CheckedFile& file) {
  for (const CheckedFinding& f : file.findings) {
    if (format == "csv") {
      std::vector<std::string> fields;
      for (const auto& [name, text] : MembersOf(path, f)) fields.push_back(fields.empty() ? text : ValidUtf8(text));
      console.out << CsvLine(fields);
    } else if (format == "json") {
      Json line;
      for (const auto& [name, text] : MembersOf(path, f)) line[name] = text;
      line["month"] = f.month;
      console.out << JsonLine(line);
    } else {
      console.out << OneLine(path) << ": "
                  << Printable(f.place + ": " + f.field + ": " + f.value + ": " + f.text +
                               (f.expected.empty() ? "" : " (expected " + f.expected + ")"))
                  << "\n";
    }
  }
  if (format == "json")
    console.out << JsonLine({{"file", path},
                             {"records", file.records},
                             {"findings", file.findings.size()},
                             {"open", file.open},
                             {"explained", file.explained},
                             {"stale", file.stale}});
  else if (format != "csv")
    console.out << OneLine(path + ": " + CountsInWords(file)) << "\n";
}

void WriteFindingsHead(Console& console, const std::string& format) {
  if (format != "csv") return;
  std::vector<std::string> names;
  for (const auto& [name, text] : MembersOf("", {})) names.emplace_back(name);
  console.out << CsvLine(names);
}

}  // namespace merlu
