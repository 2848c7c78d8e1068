// Prints the rule reference: merlu_rule_reference > docs/rules.md
#include <iostream>

#include "script/rule_reference.h"

int main() {
  std::cout << merlu::RuleReference();
}
