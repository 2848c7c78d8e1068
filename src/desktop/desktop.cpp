#include "desktop/desktop.h"

#include <QApplication>

#include "desktop/desktop_app.h"
#include "desktop/look.h"

namespace merlu {

void SetUpLook() {
  QApplication::setStyle(new LookStyle);
  qApp->setStyleSheet(StyleSheet(QApplication::palette()));
}

int RunDesktop(int argc, char** argv, const DesktopOptions& options) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  // the desktop finds the program's entry, and so its icon, by this name
  QGuiApplication::setDesktopFileName("merlu");
  QApplication::setWindowIcon(ProgramIcon());
  SetUpLook();
  DesktopApp desktop(options.settings_file);
  return desktop.Start(options.inventory) ? QApplication::exec() : 0;
}

}  // namespace merlu
