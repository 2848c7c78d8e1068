#include "desktop/bound.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>
#include <QTabWidget>

#include <cstddef>

#include "desktop/captions.h"
#include "desktop/fields.h"
#include "desktop/grid_view.h"
#include "desktop/long_line.h"
#include "desktop/look.h"
#include "desktop/model_list.h"
#include "desktop/results_list.h"
#include "forms/desk.h"

namespace merlu {
namespace {

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

// The whole text of a line that is too short for it; empty when it is not.
QString HiddenPart(const QWidget& widget) {
  const auto* line = qobject_cast<const QLineEdit*>(&widget);
  constexpr int kMargins = 18, kMostMeasured = 1000;
  if (line == nullptr) return {};
  const QString text = WholeText(*line);
  const bool hides =
      text.size() > kMostMeasured || line->fontMetrics().horizontalAdvance(text) > line->width() - kMargins;
  return hides ? Beginning(text) : QString();
}

// Of long notes that cannot be changed the beginning; others are not wrapped, as that takes a time that grows faster
// than they do.
void ShowNotes(QPlainTextEdit& notes, const QString& text, bool locked) {
  constexpr qsizetype kLongest = 50000;
  const bool is_long = text.size() > kLongest, cut = locked && is_long;
  const QString shown = cut ? text.left(kLongest) + QStringLiteral("…") : text;
  if (notes.toPlainText() == shown) return;
  const bool wraps = !is_long || cut;
  if (!wraps) notes.setLineWrapMode(QPlainTextEdit::NoWrap);
  const bool quiet = notes.blockSignals(cut);  // nobody has typed it
  notes.setPlainText(shown);
  notes.blockSignals(quiet);
  if (wraps) notes.setLineWrapMode(QPlainTextEdit::WidgetWidth);
}

void ShowText(QWidget& widget, const Control& now) {
  const QString text = Q(now.text);
  if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    ShowLine(*line, text);
    if (!line->hasFocus()) line->setCursorPosition(0);  // a long text shows its beginning
  } else if (auto* notes = qobject_cast<QPlainTextEdit*>(&widget)) {
    ShowNotes(*notes, text, now.locked);
  } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
    // a date that is not known leaves blanks behind its caption
    label->setText(Beginning(Q(now.text.substr(0, now.text.find_last_not_of(' ') + 1))));
  }
}

void ShowList(ListField& list, const Control& now, const Control& shown, bool drawn) {
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

void ShowFinding(Bound& bound, const Control& now) {
  const QString finding = Q(!now.finding.empty() ? now.finding : now.back == Back::kFlag ? now.tip : "");
  QStringList said;
  for (const QString& text :
       {finding, Q(now.hint), now.copied ? QObject::tr("Copied from the month before, not yet confirmed") : ""})
    if (!text.isEmpty()) said << text;
  bound.widget->setToolTip(said.isEmpty() ? HiddenPart(*bound.widget) : Beginning(said.join('\n')));
  if (!now.unit.empty()) said.prepend(Q(now.unit));
  bound.widget->setAccessibleDescription(said.join('\n'));
  if (bound.mark == nullptr) return;
  bound.mark->setText(finding.isEmpty() ? "" : "!");
  bound.mark->setToolTip(finding);
  QPalette red = bound.mark->palette();
  red.setColor(QPalette::WindowText, EditingRed(bound.row->palette()));
  bound.mark->setPalette(red);
}

void ShowState(const Form& form, Bound& bound, const Control& now) {
  const bool enabled = IsEnabled(form, *bound.control);
  bound.widget->setEnabled(enabled || qobject_cast<ResultsList*>(bound.widget) != nullptr);
  if (bound.caption != nullptr) bound.caption->setEnabled(enabled);
  if (!IsSelectable(now.kind)) return;
  if (auto* line = qobject_cast<QLineEdit*>(bound.widget)) line->setReadOnly(now.locked);
  if (auto* notes = qobject_cast<QPlainTextEdit*>(bound.widget)) notes->setReadOnly(now.locked);
  // what is locked looks it, whatever a procedure has painted
  const Back back = now.locked && now.back == Back::kWindow ? Back::kFace : now.back;
  SetLook(*bound.widget, "look", LookName(back));
  SetLook(*bound.widget, "copied", now.copied);
  // after SetLook, which resets the colours of a list's text
  if (auto* list = qobject_cast<ListField*>(bound.widget)) list->SetState(now.locked, back, now.copied);
  ShowFinding(bound, now);
}

// Shows the texts beside and below the field; true when a row became higher or lower.
bool ShowRemarks(Bound& bound, const Control& now) {
  const auto small = [&](QLabel*& label, const char* what, QWidget* parent) {
    if (label != nullptr) return;
    label = new QLabel(parent);
    label->setObjectName(Q(now.name) + what);
    label->setTextFormat(Qt::PlainText);
    QPalette quiet = label->palette();
    quiet.setColor(QPalette::WindowText, Quiet(quiet));
    label->setPalette(quiet);
  };
  if (!now.was.empty() && bound.was == nullptr) {
    small(bound.was, "_Was", bound.row);
    QFont font = bound.was->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    bound.was->setFont(font);
    bound.was->setToolTip(QObject::tr("The month before"));
    auto* row = static_cast<QHBoxLayout*>(bound.row->layout());
    row->insertWidget(row->indexOf(bound.mark) + 1, bound.was);
  }
  if (bound.was != nullptr) {
    bound.was->setText(Beginning(Q(now.was)));
    bound.was->setVisible(!now.was.empty());
  }
  const bool has_remark = !now.hint.empty() && bound.caption != nullptr;
  if (has_remark && bound.remark == nullptr) {
    small(bound.remark, "_Hint", bound.row->parentWidget());
    bound.remark->setWordWrap(true);
  }
  if (bound.remark == nullptr) return false;
  constexpr qsizetype kLongest = 300;
  const QString hint = Beginning(Q(now.hint), kLongest);
  const bool changes = bound.remark->text() != hint || bound.remark->isHidden() == has_remark;
  bound.remark->setText(hint);
  bound.remark->setVisible(has_remark);
  return changes;
}

void ShowTab(QTabWidget& tab, const Control& now) {
  for (int page = 0; page < tab.count(); ++page) {
    const auto at = static_cast<std::size_t>(page);
    tab.setTabEnabled(page, now.page_available[at]);
    if (at >= now.counts.size()) continue;
    const QString text = Q(now.items[at]) + (now.counts[at] == 0 ? QString() : QString(" (%1)").arg(now.counts[at]));
    if (tab.tabText(page) != text) tab.setTabText(page, text);
  }
  if (tab.currentIndex() != now.index) tab.setCurrentIndex(now.index);
}

void Show(const Form& form, Bound& bound, const Control& now) {
  if (auto* list = qobject_cast<ListField*>(bound.widget)) {
    ShowList(*list, now, bound.shown, bound.drawn);
  } else if (auto* results = qobject_cast<ResultsList*>(bound.widget)) {
    if (!bound.drawn || now.rows != bound.shown.rows) results->ShowRows(now);
    const QList<int> picked(now.picked.begin(), now.picked.end());
    if (IsEnabled(form, now) && results->Picked() != picked) results->ShowPicked(now);
    results->SetUsable(IsEnabled(form, now));
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
  ShowState(form, bound, now);
}

}  // namespace

bool IsSelectable(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList;
}

bool Draw(const Form& form, Bound& bound) {
  bool moved = false;
  const Control& now = *bound.control;
  const bool visible = IsVisible(form, now);
  QWidget* shell = bound.row != nullptr ? bound.row : bound.widget;
  if (!bound.drawn || shell->isHidden() == visible) {
    moved = true;
    shell->setVisible(visible);
    if (bound.caption != nullptr) bound.caption->setVisible(visible);
  }
  Show(form, bound, now);
  if (bound.mark != nullptr && ShowRemarks(bound, now)) moved = true;
  bound.shown = now;
  bound.drawn = true;
  return moved;
}

}  // namespace merlu
