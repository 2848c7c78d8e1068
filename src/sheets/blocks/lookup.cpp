#include "sheets/blocks/lookup.h"

#include <algorithm>

#include "base/fault.h"
#include "session/act.h"
#include "session/notices.h"
#include "store/engine.h"

namespace merlu {
namespace {

std::string Where(const LookupCriteria& criteria, Values& values) {
  std::string where;
  for (const auto& [column, text] : criteria) {
    if (text.find('\'') != std::string::npos)
      throw Fault(fault_number::kSyntax, kStoreSource,
                  "Syntax error (missing operator) in query expression '[" + column + "] = '" + text + "''.");
    where.append(where.empty() ? " WHERE [" : " AND [").append(column).append("]=?");
    values.emplace_back(text);
  }
  return where;
}

}  // namespace

void FillLookupList(Session& s, Form& form, const std::string& list, const std::string& table,
                    const std::string& column, const LookupCriteria& criteria) {
  NotingSheetFaults(s.notices, [&] {
    Control& control = form.At(list);
    control.items.clear();
    Values values;
    const std::string where = Where(criteria, values);
    s.db.ForEach("SELECT [" + column + "] FROM [" + table + "]" + where + " ORDER BY rowid", values,
                 [&](const RowView& row) {
                   const std::string value(row.Text(0));
                   if (control.items.empty() || control.items.back() != value) control.items.push_back(value);
                 });
    const auto found = std::find(control.items.begin(), control.items.end(), control.text);
    control.index = found == control.items.end() ? -1 : static_cast<int>(found - control.items.begin());
  });
}

void AddToLookup(Session& s, const std::string& table, const LookupCriteria& row) {
  NotingSheetFaults(s.notices, [&] {
    Values values;
    const std::string where = Where(row, values);
    if (!IsNull(s.db.Single("SELECT 1 FROM [" + table + "]" + where, values))) return;
    s.companion.ContinueWith(s.edit_step);  // one that grows twice in an edit
    const Act act(s, "Look-up List");
    if (!act.MayWrite()) return;
    Note(s.notices, "Adding new Make-Model to lookup.");
    std::string columns, marks;
    for (const auto& [column, text] : row) {
      columns.append(columns.empty() ? "[" : ",[").append(column).append("]");
      marks.append(marks.empty() ? "?" : ",?");
    }
    s.db.Execute("INSERT INTO [" + table + "] (" + columns + ") VALUES (" + marks + ")", values);
    s.edit_step = s.companion.last_step();
  });
}

}  // namespace merlu
