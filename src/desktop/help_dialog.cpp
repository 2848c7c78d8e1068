#include "desktop/help_dialog.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QSettings>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/fields.h"
#include "desktop/look.h"
#include "shell/dialog_names.h"

namespace merlu {
namespace {

constexpr QSize kSize(760, 640);
constexpr int kMargin = 22, kIndent = 18;
constexpr const char* kSizeSetting = "Help/size";

QString DocumentStyle(const QPalette& palette) {
  return QStringLiteral(R"(
    body { color: %1; }
    p { margin-top: 0; margin-bottom: 7px; }
    h1 { font-size: 19pt; font-weight: 600; margin-bottom: 10px; }
    h2 { font-size: 14pt; font-weight: 600; margin-top: 22px; margin-bottom: 8px; color: %2; }
    h3 { font-size: 11pt; font-weight: 600; margin-top: 16px; margin-bottom: 4px; color: %3; }
    h4 { font-size: 10pt; font-weight: 600; margin-top: 12px; margin-bottom: 2px; }
    li { margin-bottom: 4px; }
    ul, ol { margin-top: 2px; margin-bottom: 8px; }
    table { border-collapse: collapse; border-color: %4; margin-top: 6px; margin-bottom: 12px; }
    td, th { border: 1px solid %4; }
    th { background-color: %5; text-align: left; }
    pre, code { font-family: monospace; }
  )")
      .arg(palette.color(QPalette::Text).name(), Accent(palette).name(), Quiet(palette).name(), Line(palette).name(),
           FaceColour(palette).name());
}

}  // namespace

// ---- the text ----

HelpView::HelpView(QWidget* parent) : QTextBrowser(parent) {
  setObjectName(names::rtfHelp);
  setAccessibleName("Help");
  setOpenLinks(false);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
}

void HelpView::Show(const Document& document) {
  html_ = QString::fromStdString(ToHtml(document));
  Draw();
}

void HelpView::Draw() {
  drawing_ = true;
  document()->setDefaultStyleSheet(DocumentStyle(palette()));
  setHtml(html_);
  document()->setDocumentMargin(kMargin);
  document()->setIndentWidth(kIndent);
  drawing_ = false;
  FitBar();
}

// What exceeds the width by less than the margin is all seen: no bar for it.
void HelpView::FitBar() {
  const bool needed = document()->size().width() - viewport()->width() > kMargin;
  setHorizontalScrollBarPolicy(needed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void HelpView::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  FitBar();
}

void HelpView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !drawing_ && !html_.isEmpty()) Draw();
}

// ---- the window ----

HelpDialog::HelpDialog(Acts& acts, Form& form, QSettings& settings, QWidget* parent)
    : DialogWindow(acts, form, parent), settings_(settings) {
  setSizeGripEnabled(true);
  setMinimumSize(420, 240);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(10);
  for (const Control& control : form.controls())
    if (control.document != nullptr) text_ = &control;
  view_ = new HelpView(this);
  column->addWidget(view_, 1);
  bar_ = MakeFindBar();
  column->addWidget(bar_);
  column->addLayout(MakeButtons(form));
  MakeKeys();
  const QSize room = screen()->availableSize() - QSize(16, 48);  // with the frame of the window
  resize(settings_.value(kSizeSetting, kSize).toSize().boundedTo(room));
}

HelpDialog::~HelpDialog() {
  settings_.setValue(kSizeSetting, size());
}

QLayout* HelpDialog::MakeButtons(Form& form) {
  auto* buttons = new QHBoxLayout;
  auto* print = new QPushButton(tr("Print..."), this);
  print->setObjectName("helpPrint");
  print->setAutoDefault(false);
  connect(print, &QPushButton::clicked, this, &HelpDialog::Print);
  buttons->addWidget(print);
  auto* find = new QPushButton(tr("Find..."), this);
  find->setObjectName("helpFindOpen");
  find->setAutoDefault(false);
  find->setToolTip(QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText));
  connect(find, &QPushButton::clicked, this, &HelpDialog::OpenFindBar);
  buttons->addWidget(find);
  buttons->addStretch(1);
  auto* close = static_cast<QPushButton*>(binding_.AddButton(form.At(form.cancel_button), this).widget);
  SetLook(*close, "main", true);
  close->setAutoDefault(false);  // Enter in the bar seeks
  buttons->addWidget(close);
  return buttons;
}

QWidget* HelpDialog::MakeFindBar() {
  auto* bar = new QWidget(this);
  bar->setObjectName("helpFindBar");
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  sought_ = new QLineEdit(bar);
  sought_->setObjectName("helpFind");
  sought_->setPlaceholderText(tr("Find in this page"));
  AddClearButton(*sought_);
  row->addWidget(sought_, 1);
  for (const bool backward : {true, false}) {
    auto* step = new QPushButton(backward ? tr("Previous") : tr("Next"), bar);
    step->setAutoDefault(false);
    connect(step, &QPushButton::clicked, this, [this, backward] { FindNext(backward); });
    row->addWidget(step);
  }
  connect(sought_, &QLineEdit::returnPressed, this, [this] { FindNext(false); });
  connect(sought_, &QLineEdit::textEdited, this, [this] {
    QTextCursor cursor = view_->textCursor();
    cursor.setPosition(cursor.selectionStart());  // the place found may still fit the longer text
    view_->setTextCursor(cursor);
    FindNext(false);
  });
  bar->hide();
  return bar;
}

void HelpDialog::MakeKeys() {
  const auto key = [this](const QKeySequence& keys, auto act) {
    auto* action = new QAction(this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
  };
  key(QKeySequence::Find, [this] { OpenFindBar(); });
  key(QKeySequence::FindNext, [this] { FindNext(false); });
  key(QKeySequence::FindPrevious, [this] { FindNext(true); });
  key(QKeySequence::Print, [this] { Print(); });
}

void HelpDialog::OpenFindBar() {
  bar_->show();
  sought_->setFocus();
  sought_->selectAll();
}

void HelpDialog::FindNext(bool backward) {
  const QString text = sought_->text();
  if (text.isEmpty()) return OpenFindBar();
  const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  bool found = view_->find(text, flags);
  if (!found) {  // once around
    const QTextCursor before = view_->textCursor();
    view_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    found = view_->find(text, flags);
    if (!found) view_->setTextCursor(before);
  }
  sought_->setProperty("look", found ? "window" : "flag");
  sought_->style()->unpolish(sought_);
  sought_->style()->polish(sought_);
}

void HelpDialog::Print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) view_->print(&printer);
}

// Scrolls to the bookmark and highlights its heading.
void HelpDialog::GoToBookmark() {
  const QString bookmark = QString::fromStdString(text_->bookmark);
  QList<QTextEdit::ExtraSelection> marks;
  if (!bookmark.isEmpty()) {
    view_->scrollToAnchor(bookmark);
    for (QTextBlock block = view_->document()->begin(); block.isValid() && marks.isEmpty(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        if (!part.fragment().charFormat().anchorNames().contains(bookmark)) continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        mark.format.setBackground(CopiedGround(palette()));
        marks << mark;
        break;
      }
    }
  }
  view_->setExtraSelections(marks);
}

void HelpDialog::Sync() {
  DialogWindow::Sync();
  if (text_->document == nullptr || text_->document == shown_) return;
  shown_ = text_->document;
  view_->Show(*shown_);
  view_->setFocus();
  // places are known once the window is laid out
  QTimer::singleShot(0, this, &HelpDialog::GoToBookmark);
}

void HelpDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || !bar_->isVisible()) return DialogWindow::keyPressEvent(event);
  bar_->hide();
  view_->setFocus();
}

}  // namespace merlu
