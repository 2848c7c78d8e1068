// Where the tests keep their files.
#pragma once

namespace merlu::test {

// Has temporary folders made where a sync is free, when there is such a place and none is named: waiting for the disk
// would be most of the time. Not for tests that ask for a real disk.
void UseFastTemporaryFolder();

}  // namespace merlu::test
