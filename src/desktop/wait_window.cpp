#include "desktop/wait_window.h"

#include <QKeyEvent>
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

Qt::WindowFlags FlagsOf(bool can_stop) {
  const Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
  return can_stop ? flags : flags | Qt::WindowDoesNotAcceptFocus;
}

}  // namespace

WaitWindow::WaitWindow(QWidget* over, bool can_stop)
    : QWidget(over, FlagsOf(can_stop)),
      title_(new QLabel(this)),
      text_(new QLabel(this)),
      bar_(new QProgressBar(this)) {
  setObjectName("frmWait");
  if (can_stop)
    setWindowModality(Qt::ApplicationModal);
  else
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
  if (!can_stop) return;
  stop_ = new QPushButton(tr("Cancel"), this);
  stop_->setObjectName("cmdWaitStop");
  column->addWidget(stop_, 0, Qt::AlignRight);
  connect(stop_, &QPushButton::clicked, this, [this] { Stop(); });
}

void WaitWindow::Stop() {
  stop_wanted_ = true;
  stop_->setEnabled(false);
}

void WaitWindow::keyPressEvent(QKeyEvent* event) {
  if (stop_ != nullptr && event->key() == Qt::Key_Escape) return Stop();
  QWidget::keyPressEvent(event);
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
    if (stop_ != nullptr) stop_->setFocus();
  }
  repaint();
}

}  // namespace merlu
