// What the sheets are made of, as JSON: every field and every rule.
#pragma once

#include "script/json_views.h"

namespace merlu {

Json Catalogue();

}  // namespace merlu
