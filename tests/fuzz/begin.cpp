// Has what a fuzz target writes lie where a sync is free, and removes what a killed one has left.
#include "support/temporary_place.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  merlu::test::UseTemporaryPlace();
  return 0;
}
