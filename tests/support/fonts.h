// The fonts of the tests.
#pragma once

namespace merlu::test {

// Shows texts in the font that the build chose, whatever the machine has. FONTCONFIG_FILE chooses another one. Before
// the application is made.
void UseTestFont();

}  // namespace merlu::test
