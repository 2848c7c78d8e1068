#include "base/fault.h"
#include "command/commands.h"
#include "command/diff.h"
#include "command/inventory_file.h"
#include "command/lines.h"
#include "store/value_json.h"

namespace merlu {
namespace {

std::string InWords(const Value& value) {
  const std::string text = NullToEmpty(value);
  return text.empty() ? "(blank)" : text;
}

std::string TextOf(const Difference& one, const Request& request) {
  if (one.column.empty())
    return Printable(one.place + ": " + one.table) + ": only in " +
           request.words[IsNull(one.a) || one.a == Value(false) ? 1 : 0];
  return Printable(one.place + ": " + one.table + "." + one.column + ": " + InWords(one.a) + " -> " + InWords(one.b));
}

bool Open(Database& db, const std::string& file, Console& console) {
  try {
    OpenUntouched(db, file);
    return true;
  } catch (const Fault& fault) {
    Complain(console, "diff", file, fault.description);
    return false;
  }
}

}  // namespace

Status ListDifferences(const Request& request, Console& console) {
  Database a, b;
  const bool both = Open(a, request.words[0], console);
  if (!Open(b, request.words[1], console) || !both) return Status::kFile;
  const std::vector<Difference> differences = CompareInventories(a, b);
  const bool json = request.Text("--format") == "json";
  for (const Difference& one : differences) {
    if (!json) {
      console.out << OneLine(TextOf(one, request)) << "\n";
      continue;
    }
    console.out << JsonLine({{"place", one.place},
                             {"table", one.table},
                             {"column", one.column},
                             {"a", ValueJson(one.a)},
                             {"b", ValueJson(one.b)}});
  }
  return differences.empty() ? Status::kWell : Status::kSomething;
}

}  // namespace merlu
