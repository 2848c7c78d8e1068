// Make and model lists that the sheet reads from a table of the database, and that grow with what is typed.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "session/session.h"

namespace merlu {

// Columns and the texts that they must equal. Texts stand in the criteria as they are: an apostrophe in one
// is a fault of the criteria, which is told.
using LookupCriteria = std::vector<std::pair<std::string, std::string>>;

// Fills a list from one column of a look-up table, over a short-lived connection of its own. Rows come in
// the table's order, and a value equal to the list's last item is skipped. The list's text stands.
void FillLookupList(Session& s, Form& form, const std::string& list, const std::string& table,
                    const std::string& column, const LookupCriteria& criteria);

// Adds the row to the look-up table and says so, unless it is there.
void AddToLookup(Session& s, const std::string& table, const LookupCriteria& row);

}  // namespace merlu
