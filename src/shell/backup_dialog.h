// The list of backups, and what is made or brought back there.
#pragma once

#include "session/session.h"

namespace merlu {

Form& BackupDialog(Session& s);
void OpenBackups(Session& s);

}  // namespace merlu
