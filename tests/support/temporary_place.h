// Where the tests keep their files.
#pragma once

namespace merlu::test {

// Has all temporary folders of this program and of its children made in a folder of its own, where a sync is free when
// there is such a place and none is named: waiting for the disk would be most of the time. Not for tests that ask for a
// real disk. At its end the program removes that folder, and fails if anything was still in it. What a killed program
// has left there is removed by the next one.
void UseTemporaryPlace();

}  // namespace merlu::test
