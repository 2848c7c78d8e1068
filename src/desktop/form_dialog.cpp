#include "desktop/form_dialog.h"

#include <QAction>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShowEvent>

#include <algorithm>
#include <utility>

#include "desktop/about_window.h"
#include "desktop/blocks_panel.h"
#include "desktop/captions.h"
#include "desktop/grid_view.h"
#include "desktop/look.h"
#include "desktop/model_list.h"
#include "desktop/results_list.h"
#include "desktop/table_panel.h"
#include "forms/dialog_buttons.h"
#include "shell/help.h"

namespace merlu {
namespace {

constexpr int kListWidth = 740, kListHeight = 260, kColumnWidth = 140, kFieldWidth = 280;

bool IsField(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList;
}

// Fields and lists in a grid. A list scrolls by itself, so the page is never higher than its lists make it at their
// lowest.
class DialogPage : public QWidget {
 public:
  using QWidget::QWidget;
  int heightForWidth(int width) const override { return layout()->minimumHeightForWidth(width); }
};

// What does not fit scrolls, and the buttons below it stay.
class FittingPage : public ScrollingPage {
 public:
  using ScrollingPage::ScrollingPage;
  QSize sizeHint() const override { return widget()->sizeHint(); }
  QSize minimumSizeHint() const override {
    constexpr int kLowest = 120;
    const QSize least = widget()->minimumSizeHint();
    return {least.width(), std::min(least.height(), kLowest)};
  }
};

}  // namespace

DialogWindow::DialogWindow(Acts& acts, Form& form, QWidget* parent)
    : QDialog(parent), acts_(acts), binding_(acts, form, this) {
  setObjectName(QString::fromStdString(form.name()));
  setModal(true);
  binding_.LeaveOutMarks();
  auto* help = new QAction(this);
  help->setShortcut(QKeySequence("F1"));
  connect(help, &QAction::triggered, this, &DialogWindow::ShowHelpHere);
  addAction(help);
  auto* accept = new QAction(this);
  accept->setShortcuts({QKeySequence("Ctrl+Return"), QKeySequence("Ctrl+Enter")});
  if (IsTablePanel(form)) accept->setShortcuts(accept->shortcuts() << QKeySequence("Ctrl+S"));
  connect(accept, &QAction::triggered, this, &DialogWindow::PressMainAct);
  addAction(accept);
}

void DialogWindow::PressMainAct() {
  // a cell that is being typed in hands over its text first
  if (auto* grid = findChild<GridView*>()) grid->setFocus();
  const Form& shown = binding_.form();
  std::string button = !shown.default_button.empty() ? shown.default_button : names::cmdOK;
  for (const auto* each : findChildren<QPushButton*>())
    if (shown.default_button.empty() && each->property("main").toBool()) button = each->objectName().toStdString();
  if (shown.Find(button) != nullptr) binding_.Press(button);
}

void DialogWindow::ShowHelpHere() {
  const QWidget* focus = focusWidget();
  const std::string control = focus == nullptr ? "" : focus->objectName().toStdString();
  acts_.Run([&] { ShowDialogHelp(acts_.s, binding_.form().name(), control); });
}

FormDialog::FormDialog(Acts& acts, Form& form, QWidget* parent) : DialogWindow(acts, form, parent) {
  if (form.name() == kAboutForm)
    FillAbout(*this, binding_);
  else if (IsTablePanel(form))
    FillTablePanel(*this, binding_);
  else
    FillGrid();
  // a grid takes the room that there is
  constexpr int kAside = 24;
  if (IsTablePanel(form) && parent != nullptr)
    resize((parent->window()->size() - QSize(kAside, kAside)).expandedTo(minimumSizeHint()));
}

void FormDialog::FillGrid() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  const bool low = IsLowScreen(*this);
  auto* page = new DialogPage(this);
  grid_ = new QGridLayout(page);
  grid_->setContentsMargins(low ? QMargins(10, 8, 10, 4) : QMargins(16, 16, 16, 8));
  grid_->setHorizontalSpacing(10);
  grid_->setVerticalSpacing(low ? 4 : 8);
  grid_->setColumnMinimumWidth(1, kFieldWidth);
  grid_->setColumnStretch(1, 1);
  buttons_ = new QHBoxLayout;
  buttons_->setContentsMargins(low ? QMargins(10, 4, 10, 8) : QMargins(16, 8, 16, 16));
  buttons_->setSpacing(8);
  buttons_->addStretch(1);
  const auto& controls = binding_.form().controls();
  const bool has_notes =
      std::any_of(controls.begin(), controls.end(), [](const Control& c) { return !c.note.empty(); });
  columns_ = has_notes ? 3 : 2;
  for (const Control& control : binding_.form().controls()) {
    if (IsField(control.kind))
      AddField(control);
    else if (control.kind == Kind::kLabel && !binding_.IsCaptionOrNote(control.name))
      AddLabel(control);
    else if (control.kind == Kind::kListView)
      AddList(control);
    else if (control.kind == Kind::kButton)
      AddButton(control);
  }
  // a dialog that is only closed has its Close last
  const bool has_main = main_ != nullptr && main_->objectName().toStdString() == binding_.form().default_button;
  if (!has_main && main_ != nullptr) buttons_->insertWidget(1, main_);
  // where the first button is beside its field, the last one of the row is the main button
  const Control* first = binding_.form().Find(binding_.form().default_button);
  QWidget* leads_to = has_main ? main_ : first != nullptr && !first->beside.empty() ? last_ : nullptr;
  if (cancel_ != nullptr) buttons_->addWidget(cancel_);
  if (leads_to != nullptr) {
    buttons_->removeWidget(leads_to);
    buttons_->addWidget(leads_to);
  }
  column->addWidget(new FittingPage(page, this), 1);
  column->addLayout(buttons_);
}

// As large as its contents, up to the size of the screen; where they are higher than that, with room for the bar that
// scrolls them.
void FormDialog::showEvent(QShowEvent* event) {
  const QSize room = screen()->availableSize() - QSize(16, 48);  // with the frame of the window
  if (grid_ != nullptr && !event->spontaneous()) {
    QSize wanted = sizeHint();
    const auto* page = findChild<QScrollArea*>();
    if (wanted.height() > room.height()) wanted.rwidth() += page->verticalScrollBar()->sizeHint().width();
    resize(wanted.boundedTo(room));
  }
  DialogWindow::showEvent(event);
}

void FormDialog::AddField(const Control& control) {
  Bound& bound = binding_.AddField(control, this, true);
  bound.caption->setWordWrap(false);
  const auto& controls = binding_.form().controls();
  if (std::any_of(controls.begin(), controls.end(), [&](const Control& c) { return c.beside == control.name; })) {
    // with buttons beside the field its caption stands above: together they need the whole width
    bound.caption->setAlignment(Qt::AlignLeft);
    grid_->addWidget(bound.caption, row_++, 0, 1, columns_);
    grid_->addWidget(bound.row, row_++, 0, 1, columns_);
    return;
  }
  grid_->addWidget(bound.caption, row_, 0,
                   control.lines ? Qt::AlignRight | Qt::AlignTop : Qt::AlignRight | Qt::AlignVCenter);
  grid_->addWidget(bound.row, row_, 1);
  if (!control.note.empty()) {
    const Control& note = binding_.form().At(control.note);
    auto* label = static_cast<QLabel*>(binding_.AddLabel(note, this).widget);
    label->setWordWrap(false);
    grid_->addWidget(label, row_, 2);
  }
  ++row_;
}

void FormDialog::AddLabel(const Control& control) {
  QWidget* label = binding_.AddLabel(control, this).widget;
  QFont font = label->font();
  font.setBold(row_ == 0);
  label->setFont(font);
  grid_->addWidget(label, row_++, 0, 1, columns_);
}

void FormDialog::AddList(const Control& control) {
  auto* caption = new QLabel(LabelText(control), this);
  QWidget* list = binding_.AddList(control, this).widget;
  caption->setBuddy(list);
  const int columns = static_cast<int>(control.columns.size());
  const QSize wanted(std::max(kListWidth, columns * kColumnWidth), kListHeight);
  if (auto* model_list = qobject_cast<ModelList*>(list)) model_list->Want(wanted);
  if (auto* results = qobject_cast<ResultsList*>(list)) results->Want(wanted);
  grid_->addWidget(caption, row_++, 0, 1, columns_);
  grid_->addWidget(list, row_, 0, 1, columns_);
  grid_->setRowStretch(row_++, 1);
}

void FormDialog::AddButton(const Control& control) {
  auto* button = static_cast<QPushButton*>(binding_.AddButton(control, this).widget);
  button->setAutoDefault(true);  // Enter presses the button that has the focus
  if (!control.beside.empty())
    binding_.RowOf(control.beside)->layout()->addWidget(button);
  else if (control.name == binding_.form().cancel_button)
    cancel_ = button;
  else if (!binding_.form().default_button.empty() &&
           (main_ == nullptr || control.name == binding_.form().default_button))
    main_ = std::exchange(button, main_);
  // buttons that neither accept nor cancel come before those that do
  if (!control.beside.empty() || button == nullptr || button == cancel_) return;
  buttons_->addWidget(button);
  last_ = button;
}

void DialogWindow::Sync() {
  setWindowTitle(QString::fromStdString(binding_.form().caption));
  binding_.Sync();
  binding_.TakeFocus();
}

void FormDialog::Sync() {
  DialogWindow::Sync();
  if (main_ == nullptr) return;
  // the main act of the moment: Enter in a field does it
  for (auto* button : findChildren<QPushButton*>()) {
    const bool is_main = button->objectName().toStdString() == binding_.form().default_button;
    button->setDefault(is_main);
    SetLook(*button, "main", is_main);
  }
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
  const bool down = event->key() == Qt::Key_Down, up = event->key() == Qt::Key_Up;
  auto* list = findChild<ModelList*>();
  if ((!down && !up) || list == nullptr || qobject_cast<QLineEdit*>(focusWidget()) == nullptr)
    return QDialog::keyPressEvent(event);
  const int row = list->selectionModel()->hasSelection() ? list->currentIndex().row() + (down ? 1 : -1) : 0;
  const QModelIndex next = list->model()->index(row, 0);
  if (next.isValid())
    list->selectionModel()->setCurrentIndex(next, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void DialogWindow::reject() {
  Form& form = binding_.form();
  acts_.Do([&] { return act::Click(acts_.s.desk, form, form.cancel_button); });
}

}  // namespace merlu
