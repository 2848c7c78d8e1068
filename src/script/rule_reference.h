// The rule reference for users, in Markdown: every sheet's fields with their names in findings, and every
// rule with its bounds, made from the tables that the program runs on.
#pragma once

#include <string>

namespace merlu {

std::string RuleReference();

}  // namespace merlu
