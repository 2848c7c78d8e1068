// A damaged database file that structures are imported from.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "faults/mutated_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static merlu::test::MutatedFile file;
  file.Mutate({data, data + size});
  if (!file.ImportLeavesASoundFile()) std::abort();
  return 0;
}
