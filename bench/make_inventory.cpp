// merlu_make_inventory: makes an inventory database to try the program on.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/fault.h"
#include "inventory.h"
#include "session/types.h"

namespace {

constexpr const char* kUsage =
    "merlu_make_inventory OUT [--structures N] [--equipment N] [--months N] [--faults SHARE] [--seed N]\n"
    "                         [--type CODE|mix] [--operator NUMBER] [--year N]\n"
    "Makes the inventory database OUT, over an older one; the program opens files named *.mdb. SHARE is the\n"
    "share of the equipment's rows with a faulty value, 0 to 1. The template mr.dbt must lie beside this\n"
    "program.\n";

struct Options {
  std::string out;
  merlu::InventoryPlan plan;
};

// False for an option that is not known, or a value that makes no sense.
bool Take(merlu::InventoryPlan& plan, const std::string& option, const std::string& value) {
  const int number = std::atoi(value.c_str());
  if (option == "--structures")
    plan.structures = number;
  else if (option == "--equipment")
    plan.equipment = number;
  else if (option == "--months")
    plan.months = number;
  else if (option == "--faults")
    plan.fault_share = std::atof(value.c_str());
  else if (option == "--seed")
    plan.seed = static_cast<std::uint32_t>(number);
  else if (option == "--operator")
    plan.operator_number = value;
  else if (option == "--year")
    plan.year = number;
  else if (option != "--type")
    return false;
  else if (value != "mix")
    plan.types = {value};
  return true;
}

bool IsSound(const Options& options) {
  const merlu::InventoryPlan& plan = options.plan;
  for (const std::string& type : plan.types)
    if (merlu::FindType(type) == nullptr) return false;
  return !options.out.empty() && plan.structures > 0 && plan.equipment >= 0 && plan.months >= 1 && plan.months <= 12 &&
         plan.fault_share >= 0 && plan.fault_share <= 1;
}

bool Read(int count, char** words, Options& options) {
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (!word.starts_with("--"))
      options.out = word;
    else if (i + 1 == count || !Take(options.plan, word, words[++i]))
      return false;
  }
  return IsSound(options);
}

}  // namespace

int main(int count, char** words) {
  Options options;
  if (!Read(count, words, options)) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  try {
    const auto beside = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "mr.dbt";
    const merlu::InventoryCounts counts = merlu::MakeInventory(beside.string(), options.out, options.plan);
    std::printf("%s: %d structures, %d equipment, %d equipment months, %d + %d faulty rows\n", options.out.c_str(),
                options.plan.structures, options.plan.equipment, counts.equipment_months, counts.faulty_descriptions,
                counts.faulty_months);
    return 0;
  } catch (const merlu::Fault& fault) {
    std::fprintf(stderr, "%s\n", fault.description.c_str());
    return 1;
  }
}
