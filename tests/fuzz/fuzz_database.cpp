// A damaged database file as the working file.
#include <cstddef>
#include <cstdint>

#include "faults/mutated_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static merlu::test::MutatedFile file;
  file.Mutate({data, data + size});
  file.UseAsWorkingFile();
  return 0;
}
