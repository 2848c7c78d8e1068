#include "command/command_texts.h"

#include <algorithm>

namespace merlu {
namespace {

constexpr std::size_t kWidth = 100;

// Wraps the words to the width, each line after the margin.
std::string Wrapped(const std::string& text, std::size_t margin) {
  std::string wrapped, line;
  const auto end_line = [&] {
    wrapped += std::string(margin, ' ') + line + "\n";
    line.clear();
  };
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const std::string word = text.substr(at, end - at);
    if (!line.empty() && margin + line.size() + 1 + word.size() > kWidth) end_line();
    line += (line.empty() ? "" : " ") + word;
    at = end + 1;
  }
  end_line();
  return wrapped;
}

std::string Padded(std::string text, std::size_t width) {
  if (text.size() < width) text.resize(width, ' ');
  return text;
}

// A hyphen that stays one, and no line of the page that begins as a request.
std::string Roff(const std::string& text) {
  std::string roff;
  for (const char c : text) roff += c == '-' ? "\\-" : c == '\\' ? "\\e" : std::string(1, c);
  return roff.starts_with('.') || roff.starts_with('\'') ? "\\&" + roff : roff;
}

// Words of a synopsis: literals are bold, placeholders italic.
std::string RoffSynopsis(const CommandSpec& command) {
  std::string line = ".B merlu " + std::string(command.name) + "\n";
  return line + Roff(Synopsis(command).substr(7 + std::string(command.name).size())) + "\n";
}

// How the completion asks for what an option takes.
std::string CompletionOf(const CommandOption& option) {
  switch (option.kind) {
    case ValueKind::kNone: return "";
    case ValueKind::kMonth: return "compgen -W '1 2 3 4 5 6 7 8 9 10 11 12'";
    case ValueKind::kChoice: {
      std::string words;
      for (const char* choice : option.choices) words += (words.empty() ? "" : " ") + std::string(choice);
      return "compgen -W '" + words + "'";
    }
    case ValueKind::kInventory:
    case ValueKind::kNewInventory: return "_merlu_files 'mdb'";
    case ValueKind::kPdf: return "_merlu_files 'pdf'";
    case ValueKind::kWorkbook: return "_merlu_files 'xlsx'";
    case ValueKind::kSheetFile: return "_merlu_files 'xlsx|ods|csv'";
    case ValueKind::kCount:
    case ValueKind::kText: return ":";
  }
  return "";
}

std::string OptionNames(const CommandSpec& command) {
  std::string names;
  for (const CommandOption& option : command.options) names += std::string(option.name) + " ";
  return names + "--help";
}

// Of options that exclude one another the command needs one.
std::string NeedOf(const CommandSpec& command, const CommandOption& option) {
  if (!option.needed) return "";
  const bool alone =
      option.group == 0 || std::count_if(command.options.begin(), command.options.end(),
                                         [&](const auto& other) { return other.group == option.group; }) == 1;
  return alone ? "; needed" : "; one of these is needed";
}

}  // namespace

std::string CommandList() {
  std::size_t width = 0;
  for (const CommandSpec& command : Commands()) width = std::max(width, std::string(command.name).size());
  std::string text;
  for (const CommandSpec& command : Commands())
    text += "  " + Padded(command.name, std::max(width + 3, std::size_t{12})) + command.what + "\n";
  return text;
}

std::string CommandHelp(const CommandSpec& command) {
  std::string text = "usage: " + Synopsis(command) + "\n\n" + Wrapped(command.text, 0);
  std::size_t width = 0;
  for (const CommandOption& option : command.options) width = std::max(width, OptionText(option).size());
  if (!command.options.empty()) text += "\n";
  for (const CommandOption& option : command.options)
    text += "  " + Padded(OptionText(option), width + 4) + option.what + "\n";
  return text;
}

std::string ManualSynopsis() {
  std::string text;
  for (const CommandSpec& command : Commands()) text += ".br\n" + RoffSynopsis(command);
  return text;
}

std::string ManualCommands() {
  std::string text;
  for (const CommandSpec& command : Commands()) {
    text += ".SS merlu " + std::string(command.name) + " " + Roff(command.words) + "\n" + Roff(command.text) + "\n";
    for (const CommandOption& option : command.options)
      text += ".TP\n.B " + Roff(OptionText(option)) + "\n" + Roff(option.what) + NeedOf(command, option) + ".\n";
  }
  return text;
}

std::string BashCompletion() {
  std::string names = "script catalogue", commands, options;
  for (const CommandSpec& command : Commands()) {
    names += " " + std::string(command.name);
    commands += "    " + std::string(command.name) + ") words='" + OptionNames(command) + "' ;;\n";
    for (const CommandOption& option : command.options)
      if (option.kind != ValueKind::kNone)
        options += "    '" + std::string(command.name) + " " + option.name + "') mapfile -t COMPREPLY < <(" +
                   CompletionOf(option) + " -- \"$now\") && return ;;\n";
  }
  // a script and the settings may have any name
  options +=
      "    *' --settings') mapfile -t COMPREPLY < <(compgen -f -- \"$now\") && return ;;\n"
      "    *' --clock') return ;;\n";
  return "# Completion of merlu for bash.\n"
         "_merlu_files() {\n"
         "  compgen -d -S / -- \"$3\"\n"
         "  compgen -f -- \"$3\" | grep -iE \"\\.($1)\\$\"\n"
         "}\n"
         "_merlu() {\n"
         "  local now=\"${COMP_WORDS[COMP_CWORD]}\" before=\"${COMP_WORDS[COMP_CWORD - 1]}\" "
         "command=\"${COMP_WORDS[1]}\" "
         "words=''\n"
         "  if ((COMP_CWORD == 1)); then\n"
         "    mapfile -t COMPREPLY < <(compgen -W '" +
         names +
         " --help --version --settings' -- \"$now\"; _merlu_files mdb -- \"$now\")\n"
         "    return\n"
         "  fi\n"
         "  case \"$command $before\" in\n" +
         options +
         "  esac\n"
         "  case \"$command\" in\n"
         "    script) words='--settings --clock --stop-on-error --help' ;;\n"
         "    catalogue) words='--help' ;;\n" +
         commands +
         "    *) words='' ;;\n"
         "  esac\n"
         "  if [[ \"$now\" == -* ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$now\")\n"
         "  elif [[ \"$command\" == script ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$now\")\n"
         "  elif [[ \"$command\" != catalogue ]]; then\n"
         "    mapfile -t COMPREPLY < <(_merlu_files mdb -- \"$now\")\n"
         "  fi\n"
         "}\n"
         "complete -o filenames -F _merlu merlu\n";
}

}  // namespace merlu
