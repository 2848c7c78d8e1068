#include "desktop/binding.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyle>
#include <QTabBar>
#include <QTimer>
#include <QToolTip>

#include <algorithm>

#include "desktop/grid_view.h"
#include "desktop/look.h"
#include "desktop/model_list.h"
#include "desktop/results_list.h"
#include "desktop/shortcuts.h"

namespace merlu {
namespace {

constexpr int kNumberDigits = 12;
constexpr int kNoteLines = 5;
constexpr const char* kWidthsSection = "Columns";
const QRegularExpression kLineBreaks("[\r\n]+");

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

bool IsSelectable(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList;
}

bool IsShortcut(const QKeyEvent& key) {
  const QKeySequence pressed(key.keyCombination());
  return std::any_of(Shortcuts().begin(), Shortcuts().end(), [&](const Shortcut& row) {
    return *row.id != '\0' && QKeySequence(row.keys) == pressed && key.modifiers() != Qt::NoModifier;
  });
}

// The focus comes back to the field: a list opened, or another window came to the front.
bool IsTemporary(const QFocusEvent& leaves) {
  return leaves.reason() == Qt::PopupFocusReason || leaves.reason() == Qt::ActiveWindowFocusReason;
}

// The whole text of a line that is too short for it; empty when it is not.
QString HiddenPart(const QWidget& widget) {
  const auto* line = qobject_cast<const QLineEdit*>(&widget);
  constexpr int kMargins = 18;
  return line != nullptr && line->fontMetrics().horizontalAdvance(line->text()) > line->width() - kMargins
             ? line->text()
             : QString();
}

}  // namespace

QString CaptionOf(const Control& control) {
  if (!control.caption.empty()) return Q(control.caption);
  return control.tag.empty() ? QString() : Q(control.tag) + ":";
}

QString SpokenCaption(const Control& control) {
  static const QRegularExpression mnemonic("&(.)");
  return CaptionOf(control).replace(mnemonic, "\\1");
}

Bound& FormBinding::Add(const Control& control, QWidget* widget) {
  widget->setObjectName(Q(control.name));
  widget->setAccessibleName(SpokenCaption(control));
  Bound& bound = *bound_.emplace_back(std::make_unique<Bound>());
  bound.control = &control;
  bound.widget = widget;
  return bound;
}

QWidget* FormBinding::Find(const std::string& name) const {
  for (const auto& bound : bound_)
    if (bound->control->name == name) return bound->widget;
  return nullptr;
}

QWidget* FormBinding::RowOf(const std::string& name) const {
  for (const auto& bound : bound_)
    if (bound->control->name == name) return bound->row;
  return nullptr;
}

bool FormBinding::IsCaptionOrNote(const std::string& label) const {
  return std::any_of(form_.controls().begin(), form_.controls().end(),
                     [&](const Control& control) { return control.label == label || control.note == label; });
}

// ---- making widgets ----

void FormBinding::TypeInto(const std::string& name, QLineEdit& line) {
  const Control& control = form_.At(name);
  QString typed = line.text();
  if (typed.contains(kLineBreaks)) {
    // what is copied from a spreadsheet ends with its line
    while (typed.endsWith('\n') || typed.endsWith('\r')) typed.chop(1);
    typed.replace(kLineBreaks, " ");
    const QSignalBlocker quiet(line);
    line.setText(typed);
  }
  const int digits_before = static_cast<int>(typed.left(line.cursorPosition()).count(QRegularExpression("[0-9]")));
  acts_.Do([&] { return act::Type(acts_.s.desk, form_, name, typed.toStdString()); });
  if (control.kind != Kind::kMasked) return;
  // the caret stands behind the digit that was typed
  const QString shown = line.text();
  int at = 0;
  for (int digits = 0; at < shown.size() && digits < digits_before; ++at) digits += shown[at].isDigit() ? 1 : 0;
  line.setCursorPosition(digits_before == 0 ? static_cast<int>(std::max<qsizetype>(0, shown.indexOf('_'))) : at);
}

QWidget* FormBinding::MakeLine(const Control& control, QWidget* parent) {
  const std::string name = control.name;
  if (control.lines) {
    auto* notes = new NotesField(parent);
    notes->setFixedHeight(notes->fontMetrics().lineSpacing() * kNoteLines + 20);
    connect(notes, &QPlainTextEdit::textChanged, this, [this, notes, name] {
      acts_.Do([&] { return act::Type(acts_.s.desk, form_, name, notes->toPlainText().toStdString()); });
    });
    return notes;
  }
  auto* line = new LineField(parent);
  if (control.limit > 0) line->setMaxLength(control.limit);
  if (control.numeric) {
    line->setAlignment(Qt::AlignRight);
    line->setFixedWidth(line->fontMetrics().horizontalAdvance(QString(kNumberDigits, '0')) + 18);
  }
  // also what an assistive program sets; what the program itself shows is no act
  connect(line, &QLineEdit::textChanged, this, [this, line, name] {
    if (!acts_.IsDrawing()) TypeInto(name, *line);
  });
  return line;
}

QWidget* FormBinding::MakeChoice(const Control& control, QWidget* parent) {
  const std::string name = control.name;
  const auto choose = [this, name](const QString& text) {
    acts_.Do([&] { return act::Choose(acts_.s.desk, form_, name, text.toStdString()); });
  };
  auto* list = new ListField(parent);
  list->setEditable(control.free_text);
  if (control.free_text) {
    list->setInsertPolicy(QComboBox::NoInsert);
    list->lineEdit()->installEventFilter(this);
    list->lineEdit()->setAccessibleName(SpokenCaption(control));
    connect(list->lineEdit(), &QLineEdit::textEdited, this, choose);
  }
  connect(list, &QComboBox::activated, this, [list, choose](int index) { choose(list->itemText(index)); });
  return list;
}

QWidget* FormBinding::MakeField(const Control& control, QWidget* parent) {
  const std::string name = control.name;
  if (control.kind == Kind::kList) return MakeChoice(control, parent);
  if (control.kind == Kind::kCheck) {
    auto* box = new QCheckBox(Q(control.caption), parent);
    connect(box, &QCheckBox::toggled, this,
            [this, name](bool on) { acts_.Do([&] { return act::Check(acts_.s.desk, form_, name, on); }); });
    return box;
  }
  if (control.kind == Kind::kOption) {
    auto* option = new QRadioButton(Q(control.caption), parent);
    option->setAutoExclusive(false);
    connect(option, &QRadioButton::clicked, this,
            [this, name] { acts_.Do([&] { return act::Click(acts_.s.desk, form_, name); }); });
    return option;
  }
  return MakeLine(control, parent);
}

Bound& FormBinding::AddField(const Control& control, QWidget* parent, bool with_caption) {
  auto* row = new QWidget(parent);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(6);
  QWidget* field = MakeField(control, row);
  field->installEventFilter(this);
  if (control.kind == Kind::kList) {
    // assistive programs name a list by the label beside it
    auto* spoken = new QLabel(SpokenCaption(control), row);
    spoken->setBuddy(field);
    spoken->hide();
  }
  const bool takes_width = control.kind == Kind::kMasked || (control.kind == Kind::kText && !control.numeric);
  line->addWidget(field, takes_width ? 1 : 0);
  Bound& bound = Add(control, field);
  bound.row = row;
  if (IsSelectable(control.kind)) {
    bound.mark = new QLabel("!", row);
    bound.mark->setFixedWidth(10);
    bound.mark->setObjectName(Q(control.name) + "_Mark");
    QFont bold = bound.mark->font();
    bold.setBold(true);
    bound.mark->setFont(bold);
    line->addWidget(bound.mark, 0, control.lines ? Qt::AlignTop : Qt::AlignVCenter);
  }
  if (!takes_width) line->addStretch(1);
  if (!with_caption) return bound;
  bound.caption = new QLabel(CaptionOf(control), parent);
  bound.caption->setWordWrap(true);
  bound.caption->setAlignment(Qt::AlignRight | (control.lines ? Qt::AlignTop : Qt::AlignVCenter));
  bound.caption->setTextFormat(Qt::PlainText);
  bound.caption->setBuddy(field);
  if (!control.label.empty()) bound.caption->setObjectName(Q(control.label));
  return bound;
}

Bound& FormBinding::AddLabel(const Control& control, QWidget* parent) {
  auto* label = new QLabel(Q(control.text), parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return Add(control, label);
}

Bound& FormBinding::AddButton(const Control& control, QWidget* parent) {
  auto* button = new QPushButton(Q(control.caption), parent);
  button->setAutoDefault(false);
  button->installEventFilter(this);
  const std::string name = control.name;
  connect(button, &QPushButton::clicked, this,
          [this, name] { acts_.Do([&] { return act::Click(acts_.s.desk, form_, name); }); });
  return Add(control, button);
}

Bound& FormBinding::AddGrid(const Control& control, QWidget* parent) {
  return Add(control, new GridView(acts_, form_, control, parent));
}

Bound& FormBinding::AddList(const Control& control, QWidget* parent) {
  if (control.model != nullptr)
    return Add(control, new ModelList(acts_, form_, control, tr("Nothing to show"), parent));
  auto* list = new ResultsList(control, tr(control.many ? "Nothing to choose from" : "No findings"), parent);
  const std::string name = control.name;
  connect(list, &QTreeWidget::itemSelectionChanged, this, [this, list, name] {
    const QList<int> rows = list->Picked();
    acts_.Do([&] { return act::Pick(acts_.s.desk, form_, name, {rows.begin(), rows.end()}); });
  });
  list->ChooseWidths(Q(acts_.s.platform.Setting(kWidthsSection, name)));
  connect(list, &ResultsList::WidthsChosen, this, [this, list, name] {
    acts_.s.platform.StoreSetting(kWidthsSection, name, list->ChosenWidths().toStdString());
  });
  connect(list, &ResultsList::Opened, this,
          [this, name] { acts_.Do([&] { return act::DoubleClick(acts_.s.desk, form_, name); }); });
  return Add(control, list);
}

Bound& FormBinding::AddTab(const Control& control, QWidget* parent) {
  auto* tab = new QTabWidget(parent);
  tab->setDocumentMode(false);
  const std::string name = control.name;
  connect(tab, &QTabWidget::currentChanged, this,
          [this, name](int page) { acts_.Do([&] { return act::Page(acts_.s.desk, form_, name, page); }); });
  return Add(control, tab);
}

Bound& FormBinding::AddFrame(const Control& control, QWidget* widget) {
  return Add(control, widget);
}

// ---- acts of the keyboard ----

bool FormBinding::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  // a double click presses a button once: another one may stand in its place by then
  if (qobject_cast<QPushButton*>(watched) != nullptr) return event->type() == QEvent::MouseButtonDblClick;
  // a command of the window goes before what a line of text would do with its keys
  if (event->type() == QEvent::ShortcutOverride && IsShortcut(*static_cast<QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  QWidget* named = widget;
  while (named != nullptr && form_.Find(named->objectName().toStdString()) == nullptr) named = named->parentWidget();
  if (named == nullptr) return QObject::eventFilter(watched, event);
  const std::string name = named->objectName().toStdString();
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (enter && key->modifiers() == Qt::NoModifier && !form_.modal &&
        qobject_cast<QPlainTextEdit*>(widget) == nullptr) {
      QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
      QCoreApplication::sendEvent(widget, &tab);
      return true;
    }
  }
  if (event->type() == QEvent::FocusIn && !acts_.IsDrawing()) {
    const Control& control = form_.At(name);
    if (form_.Handles(name, Event::kGotFocus)) acts_.Do([&] { return act::GotFocus(acts_.s.desk, form_, name); });
    // behind the focus itself, which takes tips away and puts the caret
    QTimer::singleShot(0, named, [named, widget, tip = control.back == Back::kFlag ? Q(control.tip) : QString()] {
      if (!tip.isEmpty() && named->hasFocus())
        QToolTip::showText(named->mapToGlobal(QPoint(0, named->height())), tip, named);
      auto* line = qobject_cast<QLineEdit*>(widget);
      if (line != nullptr && line != named && line->hasFocus()) line->selectAll();
    });
  }
  if (event->type() == QEvent::FocusOut && form_.Handles(name, Event::kLostFocus) &&
      !IsTemporary(*static_cast<QFocusEvent*>(event)))
    acts_.Do([&] { return act::LostFocus(acts_.s.desk, form_, name); });
  return QObject::eventFilter(watched, event);
}

void FormBinding::TakeFocus() {
  if (form_.focus.empty()) return;
  QWidget* widget = Find(form_.focus);
  if (widget == nullptr || !widget->isVisible()) return;
  form_.focus.clear();
  widget->setFocus(Qt::OtherFocusReason);
}

// ---- drawing ----

void FormBinding::ShowText(QWidget& widget, const Control& now) {
  const QString text = Q(now.text);
  if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    if (line->text() != text) line->setText(text);
    if (!line->hasFocus()) line->setCursorPosition(0);  // a long text shows its beginning
  } else if (auto* notes = qobject_cast<QPlainTextEdit*>(&widget)) {
    if (notes->toPlainText() != text) notes->setPlainText(text);
  } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
    label->setText(text);
  }
}

void FormBinding::ShowList(ListField& list, const Control& now, const Control& shown, bool drawn) {
  if (!drawn || now.items != shown.items) {
    list.clear();
    for (const std::string& item : now.items) list.addItem(Q(item));
    list.updateGeometry();
  }
  const QString text = Q(now.text);
  // the text decides: a rule may change it without the index
  const int index = list.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (list.currentIndex() != (text.isEmpty() ? -1 : index)) list.setCurrentIndex(text.isEmpty() ? -1 : index);
  if (list.isEditable() && list.currentText() != text) list.setEditText(text);
}

void FormBinding::ShowState(Bound& bound, const Control& now) {
  const bool enabled = IsEnabled(form_, *bound.control);
  bound.widget->setEnabled(enabled);
  if (bound.caption != nullptr) bound.caption->setEnabled(enabled);
  if (!IsSelectable(now.kind)) return;
  const bool flagged = now.back == Back::kFlag;
  if (auto* line = qobject_cast<QLineEdit*>(bound.widget)) line->setReadOnly(now.locked);
  if (auto* notes = qobject_cast<QPlainTextEdit*>(bound.widget)) notes->setReadOnly(now.locked);
  // what is locked looks it, whatever a procedure has painted
  const Back back = now.locked && now.back == Back::kWindow ? Back::kFace : now.back;
  SetLook(*bound.widget, "look", LookName(back));
  // behind it, as a new look resets the colours of a list's text
  if (auto* list = qobject_cast<ListField*>(bound.widget)) list->SetState(now.locked, back);
  bound.widget->setToolTip(flagged ? Q(now.tip) : HiddenPart(*bound.widget));
  bound.widget->setAccessibleDescription(flagged ? bound.widget->toolTip() : QString());
  bound.mark->setText(flagged ? "!" : "");
  QPalette red = bound.mark->palette();
  red.setColor(QPalette::WindowText, EditingRed(bound.row->palette()));
  bound.mark->setPalette(red);
}

void FormBinding::ShowTab(QTabWidget& tab, const Control& now) {
  for (int page = 0; page < tab.count(); ++page)
    tab.setTabEnabled(page, now.page_available[static_cast<std::size_t>(page)]);
  if (tab.currentIndex() != now.index) tab.setCurrentIndex(now.index);
}

void FormBinding::Show(Bound& bound, const Control& now) {
  if (auto* list = qobject_cast<ListField*>(bound.widget)) {
    ShowList(*list, now, bound.shown, bound.drawn);
  } else if (auto* results = qobject_cast<ResultsList*>(bound.widget)) {
    if (!bound.drawn || now.rows != bound.shown.rows) results->ShowRows(now);
    const QList<int> picked(now.picked.begin(), now.picked.end());
    if (results->Picked() != picked) results->ShowPicked(now);
    SetLook(*results, "look", LookName(now.back));
  } else if (auto* list_of_model = qobject_cast<ModelList*>(bound.widget)) {
    list_of_model->Sync();
  } else if (auto* grid = qobject_cast<GridView*>(bound.widget)) {
    grid->Sync();
  } else if (auto* tab = qobject_cast<QTabWidget*>(bound.widget)) {
    ShowTab(*tab, now);
  } else if (auto* button = qobject_cast<QAbstractButton*>(bound.widget)) {
    if (button->text() != Q(now.caption)) {
      button->setText(Q(now.caption));
      button->setAccessibleName(SpokenCaption(now));
    }
    if (button->isChecked() != now.checked && button->isCheckable()) button->setChecked(now.checked);
  } else {
    ShowText(*bound.widget, now);
  }
  ShowState(bound, now);
}

bool FormBinding::Sync() {
  bool moved = false;
  for (const auto& at : bound_) {
    Bound& bound = *at;
    const Control& now = *bound.control;
    const bool visible = IsVisible(form_, now);
    QWidget* shell = bound.row != nullptr ? bound.row : bound.widget;
    if (!bound.drawn || shell->isHidden() == visible) {
      moved = true;
      shell->setVisible(visible);
      if (bound.caption != nullptr) bound.caption->setVisible(visible);
    }
    Show(bound, now);
    bound.shown = now;
    bound.drawn = true;
  }
  return moved;
}

}  // namespace merlu
