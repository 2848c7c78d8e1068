#include "desktop/desktop.h"

#include <QApplication>
#include <QStyleFactory>

#include "desktop/desktop_app.h"
#include "desktop/look.h"

namespace merlu {

void SetUpLook() {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  qApp->setStyleSheet(StyleSheet(QApplication::palette()));
}

int RunDesktop(int argc, char** argv, const std::string& settings_file) {
  const QApplication application(argc, argv);
  QApplication::setApplicationDisplayName("MERLU-2017");
  QApplication::setQuitOnLastWindowClosed(false);
  SetUpLook();
  DesktopApp desktop(settings_file);
  return desktop.Start() ? QApplication::exec() : 0;
}

}  // namespace merlu
