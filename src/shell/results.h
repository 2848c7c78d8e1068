// What a double click on a row of a sheet's results does.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// While the record is edited: opens the comment of the selected finding. In view: goes to the row's record, by
// OpenResult.
void DoubleClickResult(Session& s, Form& form, const std::string& list);

// From a finding to its field, from a summary to the record whose findings it counts. Also where the list itself cannot
// be used.
void OpenResult(Session& s, Form& form, const std::string& list, int row);

}  // namespace merlu
