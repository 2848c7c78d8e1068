#include "desktop/desktop.h"
namespace merlu { int RunDesktop(int, char**, const std::string&) { return 1; } }
