// The words of a command line, a line a word, on files in a folder.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

#include "command/commands.h"
#include "inventory.h"
#include "workplace.h"

namespace merlu::test {
namespace {

const std::set<std::string> kFiles = {"inventory.mdb", "other.mdb", "sheet.xlsx", "sheet.csv", "text.pdf", "mr.dbt"};

// Words name nothing outside of the folder.
std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string word; std::getline(in, word);) {
    for (std::size_t at = 0; (at = word.find("..", at)) != std::string::npos;) word.replace(at, 2, "__");
    if (word.starts_with("/")) word[0] = '_';
    if (const std::size_t at = word.find('\0'); at != std::string::npos) word.resize(at);
    words.push_back(word);
  }
  return words;
}

Status Run(const CommandSpec& command, const std::vector<std::string>& words, std::string* told = nullptr) {
  std::ostringstream out, err;
  Console console{out, err};
  const Status status = RunCommand(command, words, console);
  if (told != nullptr) *told = err.str();
  return status;
}

struct Inventories {
  Workplace at;
  std::map<std::string, std::string> sound;

  Inventories() {
    InventoryPlan plan;
    plan.structures = 2;
    plan.equipment = 16;
    plan.months = 2;
    plan.fault_share = 0.3;
    MakeInventory(TemplatePath(), at.path("inventory.mdb"), plan);
    plan.seed = 2;
    MakeInventory(TemplatePath(), at.path("other.mdb"), plan);
    Raw(at.path("other.mdb"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='9'||CMPLX_ID_NUM"});
    Run(*FindCommand("workbook"), {at.path("inventory.mdb"), "--month", "2", "-o", at.path("sheet.xlsx")});
    std::ofstream(at.path("sheet.csv")) << "a,b\n1,2\n";
    std::ofstream(at.path("text.pdf")) << "no page\n";
    for (const std::string& name : kFiles) sound[name] = FileBytes(at.path(name));
  }

  void Fresh() const {
    for (const auto& entry : fs::directory_iterator(at.path()))
      if (!kFiles.contains(entry.path().filename())) fs::remove_all(entry.path());
    for (const auto& [name, bytes] : sound)
      if (FileBytes(at.path(name)) != bytes) std::ofstream(at.path(name), std::ios::binary) << bytes;
  }
};

void Fail(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

void Play(const std::string& text) {
  static const Inventories inventories;
  static const bool there = ::chdir(inventories.at.path().c_str()) == 0;
  if (!there) return;
  std::vector<std::string> words = Words(text);
  if (words.empty()) return;
  const CommandSpec* command = FindCommand(words[0]);
  if (command == nullptr) return;
  words.erase(words.begin());
  inventories.Fresh();
  std::string told;
  const Status status = Run(*command, words, &told);
  if (status >= Status::kWrongUsage && told.empty()) Fail("a failure without a word");
  const std::string name = command->name;
  const bool writes = name == "import" || name == "read";
  for (const auto& [file, bytes] : inventories.sound) {
    const bool is_out = std::find(words.begin(), words.end(), "--force") != words.end();
    if (FileBytes(inventories.at.path(file)) == bytes || is_out) continue;
    if (!writes || status >= Status::kWrongUsage || !file.ends_with(".mdb")) Fail(name + " changed " + file);
    if (NullToEmpty(RawValue(inventories.at.path(file), "PRAGMA integrity_check")) != "ok") Fail(file + " is damaged");
  }
  for (const auto& entry : fs::directory_iterator(inventories.at.path()))
    if (entry.path().filename().string().starts_with(".merlu-")) Fail(entry.path().string() + " is left");
}

}  // namespace
}  // namespace merlu::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  merlu::test::Play(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
