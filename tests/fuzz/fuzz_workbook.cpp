// Workbooks that come back: the bytes of a file, or the parts of an archive as one text, so that what is inside is met.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "faults/hostile_workbook.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace merlu::test;
  static HostileWorkbook workbook;
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::string wrong;
  switch (data[0]) {
    case 'x': wrong = workbook.WhatGoesWrong(".xlsx", text); break;
    case 'o': wrong = workbook.WhatGoesWrong(".ods", text); break;
    case 'X': wrong = workbook.WhatGoesWrong(".xlsx", ZipOfText(text)); break;
    case 'O': wrong = workbook.WhatGoesWrong(".ods", ZipOfText(text)); break;
    default: wrong = workbook.WhatGoesWrong(".csv", text);
  }
  if (wrong.empty()) return 0;
  std::fprintf(stderr, "%s\n", wrong.c_str());
  std::abort();
}
