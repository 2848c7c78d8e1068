#include "desktop/wait_window.h"

#include <QVBoxLayout>

namespace merlu {
namespace {

// Centred over the window, a little above its middle.
void Centre(QWidget& widget, QWidget* over) {
  if (over == nullptr) return;
  const QPoint middle = over->mapToGlobal(over->rect().center());
  widget.move(middle - QPoint(widget.width() / 2, widget.height() / 2 + over->height() / 12));
}

void SetSize(QLabel& label, qreal factor, bool bold) {
  QFont font = label.font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(bold);
  label.setFont(font);
}

}  // namespace

WaitWindow::WaitWindow(QWidget* over)
    : QWidget(over, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowDoesNotAcceptFocus),
      title_(new QLabel(this)),
      text_(new QLabel(this)),
      bar_(new QProgressBar(this)) {
  setObjectName("frmWait");
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(10);
  SetSize(*title_, 1.2, true);
  column->addWidget(title_);
  column->addWidget(text_);
  column->addWidget(bar_);
  setFixedWidth(420);
  bar_->setTextVisible(false);
  bar_->setAccessibleName(tr("Progress"));
}

void WaitWindow::Show(const WaitScreen& wait) {
  setWindowTitle("MERLU");
  title_->setText(QString::fromStdString(wait.title));
  text_->setText(QString::fromStdString(wait.text));
  bar_->setRange(0, wait.total);
  bar_->setValue(wait.done);
  if (isHidden()) {
    adjustSize();
    Centre(*this, parentWidget());
    show();
  }
  repaint();
}

}  // namespace merlu
