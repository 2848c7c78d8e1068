#include "command/command_line.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace merlu {
namespace {

constexpr int kMostJobs = 1024;

std::optional<int> WholeNumber(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

const CommandOption& OptionOf(const CommandSpec& command, const std::string& name) {
  for (const CommandOption& option : command.options)
    if (name == option.name) return option;
  throw WrongUsage("unknown option " + name);
}

void CheckValue(const CommandOption& option, const std::string& value) {
  const std::string name = option.name;
  const std::optional<int> number = WholeNumber(value);
  const auto& choices = option.choices;
  if (option.kind == ValueKind::kMonth && (!number || *number < 1 || *number > 12))
    throw WrongUsage(name + " takes a month, 1 to 12");
  if (option.kind == ValueKind::kCount && (!number || *number < 1 || *number > kMostJobs))
    throw WrongUsage(name + " takes a number, 1 to " + std::to_string(kMostJobs));
  if (option.kind == ValueKind::kChoice && std::find(choices.begin(), choices.end(), value) == choices.end())
    throw WrongUsage(OptionText(option) + ": not " + value);
  if (option.kind == ValueKind::kText) ReadStructures(value);
  if (value.empty()) throw WrongUsage(name + " takes a value");
}

// The options that exclude one another, and those that must be there.
void JudgeTogether(const Request& request) {
  const auto& options = request.command->options;
  for (const CommandOption& option : options) {
    std::string given, names;
    for (const CommandOption& other : options) {
      const bool same = &other == &option || (option.group != 0 && other.group == option.group);
      if (!same) continue;
      names += (names.empty() ? "" : " or ") + std::string(other.name);
      if (!request.Has(other.name)) continue;
      if (!given.empty()) throw WrongUsage(given + " and " + other.name + " exclude one another");
      given = other.name;
    }
    if (option.needed && given.empty()) throw WrongUsage(names + " is needed");
  }
}

}  // namespace

std::string Request::Text(std::string_view option) const {
  const auto found = options.find(option);
  return found == options.end() ? "" : found->second;
}

int Request::Number(std::string_view option) const {
  return WholeNumber(Text(option)).value_or(0);
}

Request ReadRequest(const CommandSpec& command, const std::vector<std::string>& words) {
  Request request;
  request.command = &command;
  bool only_words = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (only_words || word.size() < 2 || word[0] != '-') {
      request.words.push_back(word);
      continue;
    }
    if (word == "--") {
      only_words = true;
      continue;
    }
    if (word == "--help" || word == "-h") {
      request.help = true;
      return request;
    }
    const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
    const std::string name = word.substr(0, equals);
    const CommandOption& option = OptionOf(command, name);
    if (request.Has(name)) throw WrongUsage(name + " is given twice");
    std::string value;
    if (option.kind == ValueKind::kNone) {
      if (equals != std::string::npos) throw WrongUsage(name + " takes no value");
    } else {
      if (equals == std::string::npos && i + 1 == words.size()) throw WrongUsage(name + " takes a value");
      value = equals == std::string::npos ? words[++i] : word.substr(equals + 1);
      CheckValue(option, value);
    }
    request.options.emplace(name, value);
  }
  const int count = static_cast<int>(request.words.size());
  if (count < command.least || count > command.most) throw WrongUsage(std::string("it takes ") + command.words);
  if (std::any_of(request.words.begin(), request.words.end(), [](const std::string& word) { return word.empty(); }))
    throw WrongUsage("a file has a name");
  JudgeTogether(request);
  return request;
}

std::vector<NamedStructure> ReadStructures(const std::string& text) {
  std::vector<NamedStructure> structures;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    const std::string one = text.substr(at, end - at);
    const std::size_t slash = one.find('/');
    if (slash == std::string::npos) throw WrongUsage("a structure is named COMPLEX/STRUCTURE, as 1001/1, not " + one);
    structures.push_back({Trim(one.substr(0, slash)), Trim(one.substr(slash + 1))});
    if (structures.back().complex.empty() || structures.back().structure.empty())
      throw WrongUsage("a structure is named COMPLEX/STRUCTURE, as 1001/1, not " + one);
    at = end + 1;
  }
  return structures;
}

}  // namespace merlu
