// What the companion knows of all comments at once.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "history/notes.h"

namespace merlu {

// By their findings, as KeepComment names them.
std::vector<std::pair<std::string, KnownComment>> AllComments(const Companion& companion);

}  // namespace merlu
