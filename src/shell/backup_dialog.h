// The dialog with the list of backups: make one, restore one.
#pragma once

#include "session/session.h"

namespace merlu {

Form& BackupDialog(Session& s);
void OpenBackups(Session& s);

}  // namespace merlu
