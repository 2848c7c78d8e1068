// What the companion knows of all comments at once.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "history/notes.h"

namespace merlu {

// Each with its finding, as KeepComment names it. Empty without a companion.
std::vector<std::pair<std::string, KnownComment>> AllComments(const Companion& companion);

}  // namespace merlu
