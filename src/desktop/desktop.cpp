#include "desktop/desktop.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

#include "desktop/desktop_app.h"
#include "desktop/look.h"

namespace merlu {

void SetUpLook() {
  QApplication::setStyle(new LookStyle);
  QPalette palette = QApplication::palette();
  for (const QPalette::ColorRole ink : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, ink, Dimmed(palette));
  QApplication::setPalette(palette);
  qApp->setStyleSheet(StyleSheet(palette));
}

namespace {

constexpr int kNoDisplay = 2;

// The toolkit's last word when it finds no display is an abort.
void SayThereIsNoDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  std::fputs("merlu: there is no display to open a window on; \"merlu script\" works without one, see merlu --help\n",
             stderr);
  std::_Exit(kNoDisplay);
}

}  // namespace

int RunDesktop(int argc, char** argv, const DesktopOptions& options) {
  const QtMessageHandler handler = qInstallMessageHandler(SayThereIsNoDisplay);
  const QApplication application(argc, argv);
  qInstallMessageHandler(handler);
  QApplication::setQuitOnLastWindowClosed(false);
  // the desktop finds the program's entry, and so its icon, by this name
  QGuiApplication::setDesktopFileName("merlu");
  QApplication::setWindowIcon(ProgramIcon());
  SetUpLook();
  DesktopApp desktop(options.settings_file);
  return desktop.Start(options.inventory) ? QApplication::exec() : 0;
}

}  // namespace merlu
