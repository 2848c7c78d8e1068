#include "desktop/desktop.h"

#include <QApplication>

#include "desktop/desktop_app.h"
#include "desktop/look.h"

namespace merlu {

void SetUpLook() {
  QApplication::setStyle(new LookStyle);
  qApp->setStyleSheet(StyleSheet(QApplication::palette()));
}

int RunDesktop(int argc, char** argv, const std::string& settings_file) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  SetUpLook();
  DesktopApp desktop(settings_file);
  return desktop.Start() ? QApplication::exec() : 0;
}

}  // namespace merlu
