// A workbook that comes back from somewhere, and what reading it leaves of the inventory.
#pragma once

#include <string>
#include <string_view>

#include "support/test_run.h"

namespace merlu::test {

// The parts of an archive as one text: before each part a line "--- NAME".
std::string ZipOfText(std::string_view text);

class HostileWorkbook {
 public:
  HostileWorkbook();

  // The month's workbook that the program itself makes of the inventory, as such a text.
  std::string Own() const;

  // Empty when `merlu read` took or refused the file as it should: cells within bounds and in order, the inventory
  // sound, unchanged unless a cell was told as set or changed. `extension` is ".xlsx", ".ods" or ".csv".
  std::string WhatGoesWrong(const std::string& extension, const std::string& bytes);

 private:
  std::string Rows() const;

  TemporaryFolder folder_, elsewhere_;
  const std::string path_;
  std::string inventory_;  // its bytes, unchanged
  std::string rows_;
};

}  // namespace merlu::test
