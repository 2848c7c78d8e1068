// The operator's row: one of CO_COMPANY, the root of the tree, made once by the first-run dialog.
#pragma once

#include "session/session.h"
#include "sheets/operator.h"

namespace merlu {

// Adds the operator's row and writes the inventory year. Faults are passed on.
void NewOperatorRow(Session& s, const NewOperator& made);

}  // namespace merlu
