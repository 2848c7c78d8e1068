// What an import would do, shown before it is done.
#pragma once

#include "exchange/import_plan.h"
#include "session/session.h"

namespace merlu {

// Makes the dialog, with nothing in it.
void MakeImportPlanDialog(Session& s);

// Shows the plan until the dialog is closed.
void ShowImportPlan(Session& s, const ImportPlan& plan);

}  // namespace merlu
