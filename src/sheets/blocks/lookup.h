// Make and model lists that the sheet reads from a table of the database, and that grow with what is typed.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "session/session.h"

namespace merlu {

// Columns and the texts that they must equal. The texts are put into the criteria unchanged: an apostrophe makes the
// criteria invalid, which is shown as a fault.
using LookupCriteria = std::vector<std::pair<std::string, std::string>>;

// Fills a list from one column of a look-up table, over its own short-lived connection. Rows come in the table's order,
// and a value equal to the list's last item is skipped. The list's text is kept.
void FillLookupList(Session& s, Form& form, const std::string& list, const std::string& table,
                    const std::string& column, const LookupCriteria& criteria);

// Adds the row to the look-up table, with a message, unless it exists.
void AddToLookup(Session& s, const std::string& table, const LookupCriteria& row);

}  // namespace merlu
