#include "support/fonts.h"

#include <cstdlib>

namespace merlu::test {

void UseTestFont() {
  constexpr int kKeep = 0;
  ::setenv("FONTCONFIG_FILE", MERLU_FONTS_FOLDER "/plain/fonts.conf", kKeep);
}

}  // namespace merlu::test
