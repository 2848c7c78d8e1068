#include "desktop/about_window.h"

#include <QGridLayout>
#include <QScreen>
#include <QTimer>

#include "desktop/look.h"
#include "shell/dialog_names.h"
#include "shell/dialogs.h"

namespace merlu {
namespace {

constexpr int kSplashMilliseconds = 2500;
constexpr int kIconSize = 96;
constexpr const char* kTitle = names::lblTitle;

void SetSize(QWidget& widget, qreal factor, bool bold) {
  QFont font = widget.font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(bold);
  widget.setFont(font);
}

void CentreOnScreen(QWidget& widget) {
  const QWidget* over = widget.parentWidget();
  const QRect room = (over != nullptr ? over->screen() : widget.screen())->availableGeometry();
  widget.move(room.center() - QPoint(widget.width() / 2, widget.height() / 2));
}

}  // namespace

void FillAbout(QWidget& place, FormBinding& binding) {
  auto* grid = new QGridLayout(&place);
  grid->setContentsMargins(28, 28, 28, 20);
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(6);
  grid->setColumnStretch(1, 1);
  auto* icon = new QLabel(&place);
  icon->setPixmap(ProgramIcon().pixmap(QSize(kIconSize, kIconSize), place.devicePixelRatioF()));
  int row = 0;
  for (const Control& control : binding.form().controls()) {
    if (control.kind == Kind::kLabel) {
      auto* label = static_cast<QLabel*>(binding.AddLabel(control, &place).widget);
      label->setWordWrap(false);
      if (control.name == kTitle) {
        SetSize(*label, 2.0, true);
      } else if (row > 1) {
        QPalette quiet = label->palette();
        quiet.setColor(QPalette::WindowText, Quiet(quiet));
        label->setPalette(quiet);
      }
      grid->addWidget(label, row++, 1);
    } else if (control.kind == Kind::kButton) {
      auto* button = static_cast<QPushButton*>(binding.AddButton(control, &place).widget);
      button->setDefault(control.name == binding.form().default_button);
      SetLook(*button, "main", true);
      grid->setRowMinimumHeight(row, 12);
      grid->addWidget(button, row + 1, 1, Qt::AlignRight);
    }
  }
  grid->addWidget(icon, 0, 0, row, 1, Qt::AlignTop);
  binding.Sync();
  place.adjustSize();
  CentreOnScreen(place);
}

Splash::Splash(Acts& acts, Form& about, QWidget* over)
    : QWidget(over, Qt::SplashScreen | Qt::FramelessWindowHint), binding_(acts, about, this) {
  setObjectName(kAboutForm);
  setAccessibleName(QString::fromStdString(about.caption));
  setAttribute(Qt::WA_ShowWithoutActivating);
  // without a frame of the system it would run into the window below
  setAttribute(Qt::WA_StyledBackground);
  setStyleSheet(QString("QWidget#%1 { border: 1px solid %2; }").arg(kAboutForm, Border(palette()).name()));
  FillAbout(*this, binding_);
  auto* timer = new QTimer(this);
  timer->setObjectName("tmrAbout");
  timer->setSingleShot(true);
  connect(timer, &QTimer::timeout, this, [&acts] { acts.Run([&acts] { CloseSplash(acts.s); }); });
  timer->start(kSplashMilliseconds);
}

}  // namespace merlu
