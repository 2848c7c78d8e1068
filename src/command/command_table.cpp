#include "command/command_table.h"

#include <algorithm>
#include <limits>

#include "command/commands.h"

namespace merlu {
namespace {

constexpr int kAny = std::numeric_limits<int>::max();

const CommandOption kFormat = {"--format", ValueKind::kChoice,     "", "how it is written; text when it is not said", 0,
                               false,      {"text", "json", "csv"}};
const CommandOption kTextOrJson = {"--format", ValueKind::kChoice, "", "how it is written; text when it is not said", 0,
                                   false,      {"text", "json"}};
const CommandOption kMonth = {"--month", ValueKind::kMonth, "M", "only the month, 1 to 12"};
const CommandOption kForce = {"--force", ValueKind::kNone, "", "replaces OUT when it exists"};

CommandOption Out(const char* name, ValueKind kind, const char* what, bool needed) {
  return {"-o", kind, name, what, 0, needed};
}

std::vector<CommandSpec> Make() {
  return {
      {"check",
       "FILE...",
       1,
       kAny,
       "judges every record and lists what the rules find",
       "Judges every record of each file, each by itself as a run of QC over it alone would, and lists the findings. "
       "Records that no run over a structure reaches are judged too, and months without a value. Findings that "
       "are stored with a comment count as explained. Files are judged side by side; what is written stands in their "
       "order. No file is changed.",
       {{"--month", ValueKind::kMonth, "M", "only the month, 1 to 12", 1},
        {"--descriptions", ValueKind::kNone, "", "only the descriptions", 1},
        kFormat,
        {"--jobs", ValueKind::kCount, "N", "so many processors; all of them when it is not said"}},
       CheckFiles},
      {"findings",
       "FILE",
       1,
       1,
       "lists the findings as the program shows them",
       "Lists the findings of the inventory with their values, what was expected, and the operator's comments, in the "
       "order of the tree. The file is not changed.",
       {kMonth,
        {"--state",
         ValueKind::kChoice,
         "",
         "only findings in that state",
         0,
         false,
         {"all", "open", "explained", "stale"}},
        kFormat,
        Out("OUT.xlsx", ValueKind::kWorkbook, "writes the findings into a workbook", false),
        kForce},
       ListFindings},
      {"ready",
       "FILE",
       1,
       1,
       "tells whether the inventory is ready to be handed in",
       "Goes through what must be settled before the inventory, or a month of it, is handed in, and tells what is "
       "open. "
       "The file is not changed.",
       {kMonth, kTextOrJson, Out("REPORT.pdf", ValueKind::kPdf, "writes the report as well", false), kForce},
       TellReadiness},
      {"report",
       "FILE",
       1,
       1,
       "writes the annual summary as a PDF",
       "Looks for missing data in all records of all months and writes the annual summary. The file is not changed.",
       {Out("SUMMARY.pdf", ValueKind::kPdf, "the summary", true), kForce},
       WriteSummary},
      {"export",
       "FILE",
       1,
       1,
       "writes a month, the inventory or structures into a file of their own",
       "Writes an inventory file with a survey month, with everything, or with some structures. The export of a month "
       "is kept in mind as its hand-in.",
       {{"--month", ValueKind::kMonth, "M", "the survey of the month, 1 to 12", 1, true},
        {"--inventory", ValueKind::kNone, "", "everything", 1, true},
        {"--structures", ValueKind::kText, "CMPLX/STRUCT,...", "the structures, by complex and structure", 1, true},
        Out("OUT.mdb", ValueKind::kNewInventory, "the file that is written", true),
        kForce},
       ExportPart},
      {"import",
       "FILE",
       1,
       1,
       "takes structures over from another inventory",
       "Takes structures with their equipment and months over from another inventory of the same year, after a backup. "
       "With --dry-run it tells what would happen and changes nothing.",
       {{"--from", ValueKind::kInventory, "OTHER.mdb", "the inventory that they come from", 0, true},
        {"--structures", ValueKind::kText, "CMPLX/STRUCT,...", "only these; all of them when it is not said"},
        {"--dry-run", ValueKind::kNone, "", "tells what would happen, as a line of JSON a structure"}},
       ImportInto},
      {"workbook",
       "FILE",
       1,
       1,
       "writes a month as a workbook that is filled in elsewhere",
       "Writes a workbook with a sheet for the structures and one for each type of equipment, a row a record: what is "
       "stored is filled in, the fields of the month are open. The file is not changed.",
       {{"--month", ValueKind::kMonth, "M", "the month, 1 to 12", 0, true},
        Out("OUT.xlsx", ValueKind::kWorkbook, "the workbook that is written", true),
        kForce},
       WriteWorkbook},
      {"read",
       "FILE",
       1,
       1,
       "stores what was filled into a month's workbook",
       "Reads a workbook that was written by the program and filled in: .xlsx, .ods, or one sheet of it as .csv. Tells "
       "of every cell that holds something what becomes of it, as a line of JSON, and stores what can be, as one step. "
       "With --dry-run nothing is stored.",
       {{"--from", ValueKind::kSheetFile, "SHEET.xlsx|.ods|.csv", "the workbook", 0, true},
        {"--dry-run", ValueKind::kNone, "", "tells what would be stored, and changes nothing"}},
       ReadWorkbook},
      {"diff",
       "A B",
       2,
       2,
       "lists in what two inventories differ",
       "Compares two inventories record by record, by the places of the records, and lists each value that differs. "
       "Neither file is changed.",
       {kTextOrJson},
       ListDifferences},
      {"backup",
       "FILE",
       1,
       1,
       "makes a backup beside the inventory",
       "Makes a backup in the inventory's folder of backups, and tells its name.",
       {},
       BackUpFile},
  };
}

}  // namespace

const std::vector<CommandSpec>& Commands() {
  static const std::vector<CommandSpec> commands = Make();
  return commands;
}

const CommandSpec* FindCommand(std::string_view name) {
  const auto& all = Commands();
  const auto found = std::find_if(all.begin(), all.end(), [&](const CommandSpec& one) { return one.name == name; });
  return found == all.end() ? nullptr : &*found;
}

std::string OptionText(const CommandOption& option) {
  std::string text = option.name;
  if (option.kind == ValueKind::kNone) return text;
  text += ' ';
  if (option.choices.empty()) return text + option.value;
  for (std::size_t i = 0; i < option.choices.size(); ++i) text += (i == 0 ? "" : "|") + std::string(option.choices[i]);
  return text;
}

std::string Synopsis(const CommandSpec& command) {
  std::string text = std::string("merlu ") + command.name + " " + command.words;
  for (std::size_t i = 0; i < command.options.size();) {
    const CommandOption& first = command.options[i];
    std::string one = OptionText(first);
    std::size_t next = i + 1;
    for (; first.group != 0 && next < command.options.size() && command.options[next].group == first.group; ++next)
      one += "|" + OptionText(command.options[next]);
    const bool alternatives = next > i + 1;
    if (!first.needed)
      text += " [" + one + "]";
    else
      text += alternatives ? " (" + one + ")" : " " + one;
    i = next;
  }
  return text;
}

}  // namespace merlu
