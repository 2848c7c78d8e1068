// Controls, the tree, boxes and the session as the JSON of a script's replies.
#pragma once

#include <nlohmann/json.hpp>

#include "session/session.h"
#include "shell/ui.h"

namespace merlu {

using Json = nlohmann::ordered_json;

Json ControlJson(const Form& form, const Control& control);
Json TreeJson(const Tree& tree);
// Members of the answer to `session`.
void AddSession(Json& answer, const Session& s);
Json BoxJson(const Box& box, Button answer);

// One line; bytes that are no UTF-8 are replaced.
std::string Line(const Json& json);

}  // namespace merlu
