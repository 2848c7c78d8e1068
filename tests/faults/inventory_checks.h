// What is in an inventory, and what must hold of it.
#pragma once

#include <string>

#include "store/database.h"

namespace merlu::test {

// What must hold of every inventory: sound pages, no reference without its row, every month of every structure and
// equipment. Empty when it does.
std::string WhatIsUnsound(Database& db);

// Has the connection keep what it reads of a large file: the checks go over every page many times.
void KeepPages(Database& db);

// Every row of the inventory with its number.
std::string AllRows(Database& db);

}  // namespace merlu::test
