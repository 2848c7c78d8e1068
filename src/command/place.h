// A record's place as the commands print it: "2017/03 · GI, 43, A · Combustion Flare: F1".
#pragma once

#include <string>
#include <string_view>

namespace merlu {

// The structure as the tree names it.
std::string StructureWords(std::string_view area, std::string_view block, std::string_view name);
// Month 0 is a description; parts that are empty are left out.
std::string PlaceText(int year, int month, const std::string& structure, const std::string& type,
                      const std::string& id);

}  // namespace merlu
