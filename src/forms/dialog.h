// Building dialogs: their controls, one after the other.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "forms/form.h"
#include "forms/grid_model.h"
#include "forms/list_model.h"

namespace merlu {

// Each adds a control to the form and returns it, valid until the next one is added. The caption of a field is beside
// it; `limit` is the most characters that it takes, 0 for no limit.
Control& AddText(Form& form, const std::string& name, const std::string& caption, int limit = 0);
Control& AddList(Form& form, const std::string& name, const std::string& caption, std::vector<std::string> items);
// A list of rows; several can be picked.
Control& AddListView(Form& form, const std::string& name, const std::string& caption, std::vector<std::string> columns);
// The same with rows that are read from the model.
Control& AddListView(Form& form, const std::string& name, const std::string& caption, std::vector<std::string> columns,
                     std::shared_ptr<ListModel> model);
Control& AddGrid(Form& form, const std::string& name, const std::string& caption, std::shared_ptr<GridModel> model);
Control& AddLabel(Form& form, const std::string& name, const std::string& text);
Control& AddButton(Form& form, const std::string& name, const std::string& caption);
// "OK" and "Cancel", as default and as what Escape presses.
void AddDialogButtons(Form& form, const std::string& ok, const std::string& cancel);

}  // namespace merlu
