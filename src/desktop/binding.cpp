#include "desktop/binding.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyle>
#include <QTabBar>
#include <QTimer>

#include <algorithm>

#include "base/number_entry.h"
#include "desktop/captions.h"
#include "desktop/grid_view.h"
#include "desktop/long_line.h"
#include "desktop/model_list.h"
#include "desktop/page_tabs.h"
#include "desktop/results_list.h"
#include "desktop/shortcuts.h"
#include "forms/pasted.h"
#include "shell/messages.h"

namespace merlu {
namespace {

constexpr int kNumberDigits = 12;
constexpr int kNoteLines = 5;
constexpr const char* kWidthsSection = "Columns";
const QRegularExpression kLineBreaks("[\r\n]+");

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

bool IsShortcut(const QKeyEvent& key) {
  const QKeySequence pressed(key.keyCombination());
  // a field takes back and does again what was typed in it
  if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) return false;
  return std::any_of(Shortcuts().begin(), Shortcuts().end(), [&](const Shortcut& row) {
    return *row.id != '\0' && QKeySequence(row.keys) == pressed && key.modifiers() != Qt::NoModifier;
  });
}

// The focus comes back to the field: a list opened, or another window came to the front.
bool IsTemporary(const QFocusEvent& leaves) {
  return leaves.reason() == Qt::PopupFocusReason || leaves.reason() == Qt::ActiveWindowFocusReason;
}

// A text in as many lines as it takes. However long its words are, no window is wider for them.
class WrappedText : public QLabel {
 public:
  explicit WrappedText(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
  }
  QSize minimumSizeHint() const override {
    constexpr QSize kMost(400, 200);
    return QLabel::minimumSizeHint().boundedTo(kMost);
  }
};

}  // namespace

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
  // the cursor is put after the digit that was typed
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
  line->SetNumeric(control.numeric);
  connect(line, &LineField::PastedFurther, this,
          [this, &control](const QStringList& cells) { PasteBehind(control, cells); });
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
  if (IsSelectable(control.kind) && marks_) {
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
  bound.caption = new QLabel(LabelText(control), parent);
  bound.caption->setWordWrap(true);
  bound.caption->setAlignment(Qt::AlignRight | (control.lines ? Qt::AlignTop : Qt::AlignVCenter));
  bound.caption->setTextFormat(Qt::PlainText);
  bound.caption->setBuddy(field);
  if (!control.label.empty()) bound.caption->setObjectName(Q(control.label));
  return bound;
}

Bound& FormBinding::AddLabel(const Control& control, QWidget* parent) {
  auto* label = new WrappedText(parent);
  label->setText(Beginning(Q(control.text)));
  return Add(control, label);
}

Bound& FormBinding::AddButton(const Control& control, QWidget* parent) {
  auto* button = new QPushButton(Q(control.caption), parent);
  button->setAutoDefault(false);
  button->installEventFilter(this);
  const std::string name = control.name;
  connect(button, &QPushButton::clicked, this, [this, name] { Press(name); });
  return Add(control, button);
}

void FormBinding::Press(const std::string& button) {
  if (may_press && !may_press(button)) return;
  acts_.Do([&] { return act::Click(acts_.s.desk, form_, button); });
  if (pressed) pressed(button);
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
    if (!list->usable()) return;
    const QList<int> rows = list->Picked();
    acts_.Do([&] { return act::Pick(acts_.s.desk, form_, name, {rows.begin(), rows.end()}); });
  });
  list->ChooseWidths(Q(acts_.s.host.Setting(kWidthsSection, name)));
  connect(list, &ResultsList::WidthsChosen, this,
          [this, list, name] { KeepSetting(acts_.s, kWidthsSection, name, list->ChosenWidths().toStdString()); });
  connect(list, &ResultsList::Opened, this, [this, list, name] {
    if (!list->usable() && open_row) return open_row(name, list->Picked().value(0, -1));
    acts_.Do([&] { return act::DoubleClick(acts_.s.desk, form_, name); });
  });
  return Add(control, list);
}

Bound& FormBinding::AddTab(const Control& control, QWidget* parent) {
  auto* tab = new PageTabs(parent);
  tab->setDocumentMode(false);
  const std::string name = control.name;
  connect(tab, &QTabWidget::currentChanged, this,
          [this, name](int page) { acts_.Do([&] { return act::Page(acts_.s.desk, form_, name, page); }); });
  return Add(control, tab);
}

Bound& FormBinding::AddFrame(const Control& control, QWidget* widget) {
  return Add(control, widget);
}

// ---- pasted rows ----

std::vector<QWidget*> FormBinding::OpenFields() const {
  std::vector<QWidget*> fields;
  for (const auto& bound : bound_) {
    const Control& control = *bound->control;
    const bool is_field = IsSelectable(control.kind) || control.kind == Kind::kCheck || control.kind == Kind::kOption;
    if (is_field && !control.locked && bound->widget->isEnabled() && bound->widget->isVisible())
      fields.push_back(bound->widget);
  }
  return fields;
}

// False when the field takes no such text.
bool FormBinding::PutInto(QWidget& field, const QString& cell) {
  if (auto* line = qobject_cast<QLineEdit*>(&field)) {
    const Control* control = ControlOf(&field);
    line->setText(control->numeric ? Q(PastedNumber(cell.toStdString())) : cell);
    return true;
  }
  if (auto* notes = qobject_cast<QPlainTextEdit*>(&field)) {
    notes->setPlainText(cell);
    return true;
  }
  auto* list = qobject_cast<ListField*>(&field);
  const int item = list == nullptr ? -1 : list->findText(cell.trimmed(), Qt::MatchFixedString);
  if (item < 0) return cell.trimmed().isEmpty();
  list->setCurrentIndex(item);
  emit list->activated(item);
  return true;
}

// The further cells of a pasted row go into the fields that follow. A blank one changes nothing.
void FormBinding::PasteBehind(const Control& control, const QStringList& cells) {
  const std::string first = control.name;
  std::vector<QWidget*> fields = OpenFields();
  auto at =
      std::find_if(fields.begin(), fields.end(), [&](const QWidget* field) { return field->objectName() == Q(first); });
  bool all = true;
  for (const QString& cell : cells) {
    if (at != fields.end()) ++at;
    if (at == fields.end()) {
      all = false;
      break;
    }
    (*at)->setFocus(Qt::TabFocusReason);
    if (!cell.trimmed().isEmpty() && !PutInto(**at, cell)) all = false;
  }
  if (!all) acts_.s.ui.Beep();
}

// ---- acts of the keyboard ----

const Control* FormBinding::ControlOf(const QWidget* widget) const {
  for (; widget != nullptr; widget = widget->parentWidget())
    if (const Control* control = form_.Find(widget->objectName().toStdString())) return control;
  return nullptr;
}

// True when the key was the field's.
bool FormBinding::HandleKey(QWidget* widget, const QKeyEvent& key) {
  const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  const bool enters = plain && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
  if (enters && !form_.modal && qobject_cast<QPlainTextEdit*>(widget) == nullptr) {
    if (enter && enter(widget)) return true;
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &tab);
    return true;
  }
  auto* list = qobject_cast<ListField*>(widget);
  if (plain && key.key() == Qt::Key_Delete && list != nullptr && !list->isEditable() && !list->locked()) {
    const std::string name = widget->objectName().toStdString();
    acts_.Do([&] { return act::Choose(acts_.s.desk, form_, name, ""); });
    return true;
  }
  return false;
}

void FormBinding::KeepField() {
  if (const Control* control = form_.Find(entered_)) entered_text_ = control->text;
}

bool FormBinding::TakeBackField() {
  QWidget* focus = QApplication::focusWidget();
  const Control* control = ControlOf(focus);
  if (control == nullptr || control->name != entered_ || control->text == entered_text_ || control->locked)
    return false;
  const std::string name = entered_, text = entered_text_;
  acts_.Do([&] {
    return control->kind == Kind::kList ? act::Choose(acts_.s.desk, form_, name, text)
                                        : act::Type(acts_.s.desk, form_, name, text);
  });
  if (auto* line = qobject_cast<QLineEdit*>(focus)) line->selectAll();
  return control->text == text;
}

void FormBinding::EnterField(const Control& control, QWidget* named, QWidget* widget, Qt::FocusReason reason) {
  const std::string name = control.name;
  if (IsEntered(reason)) {
    entered_ = name;
    entered_text_ = control.text;
  }
  if (form_.Handles(name, Event::kGotFocus)) acts_.Do([&] { return act::GotFocus(acts_.s.desk, form_, name); });
  // after the focus event itself, which sets the cursor
  auto* line = qobject_cast<QLineEdit*>(widget);
  if (line == nullptr || line == named || !IsEntered(reason)) return;
  QTimer::singleShot(0, line, [line] {
    if (line->hasFocus()) line->selectAll();
  });
}

bool FormBinding::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (auto* button = qobject_cast<QPushButton*>(watched)) {
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
      button->click();
      return true;
    }
    // a double click presses a button once: another one may be in its place by then
    return event->type() == QEvent::MouseButtonDblClick;
  }
  // a command of the window takes precedence over the line edit's own use of the key
  if (event->type() == QEvent::ShortcutOverride && IsShortcut(*static_cast<QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  const Control* control = ControlOf(widget);
  if (control == nullptr) return QObject::eventFilter(watched, event);
  QWidget* named = widget;
  while (named->objectName().toStdString() != control->name) named = named->parentWidget();
  switch (event->type()) {
    case QEvent::KeyPress:
      if (HandleKey(widget, *static_cast<QKeyEvent*>(event))) return true;
      break;
    case QEvent::Enter: emit Pointed(control); break;
    case QEvent::Leave: emit Pointed(nullptr); break;
    case QEvent::ToolTip:
      // a sheet shows it in its bottom line, which covers no field
      if (!form_.modal && !(control->finding.empty() && control->back != Back::kFlag)) return true;
      break;
    case QEvent::FocusIn:
      if (!acts_.IsDrawing()) EnterField(*control, named, widget, static_cast<QFocusEvent*>(event)->reason());
      break;
    case QEvent::FocusOut:
      if ((form_.Handles(control->name, Event::kLostFocus) || (control->numeric && IsSum(control->text))) &&
          !IsTemporary(*static_cast<QFocusEvent*>(event)))
        acts_.Do([&] { return act::LostFocus(acts_.s.desk, form_, control->name); });
      break;
    default: break;
  }
  return QObject::eventFilter(watched, event);
}

void FormBinding::TakeFocus() {
  if (form_.focus.empty()) return;
  QWidget* widget = Find(form_.focus);
  if (widget == nullptr || !widget->isVisible()) return;
  form_.focus.clear();
  widget->setFocus(Qt::OtherFocusReason);
}

bool FormBinding::Sync() {
  bool moved = false;
  for (const auto& bound : bound_) moved = Draw(form_, *bound) || moved;
  return moved;
}

}  // namespace merlu
