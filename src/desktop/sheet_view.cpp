#include "desktop/sheet_view.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

#include "desktop/captions.h"
#include "desktop/look.h"
#include "desktop/results_list.h"
#include "qc/comment_key.h"
#include "qc/qc_list.h"
#include "session/main_names.h"
#include "shell/results.h"

namespace merlu {
namespace {

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

constexpr const char* kResultsCaption = "QC Results";
constexpr const char* kSurveyResults = names::lvwSURVEY_QCResults;
constexpr const char* kStatusFrame = names::Frame1;
constexpr std::size_t kCommentColumn = 2;

bool IsField(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList || kind == Kind::kCheck ||
         kind == Kind::kOption;
}

}  // namespace

SheetView::SheetView(Acts& acts, Form& form, const std::string& frame, QWidget* parent)
    : QWidget(parent), acts_(acts), binding_(acts, form, this), frame_(frame) {
  for (const Control& control : form.controls())
    if (control.kind == Kind::kTab && control.parent == frame) tab_ = control.name;
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(IsLowScreen(*this) ? 2 : 8);
  MakeBand();
  MakePages();
  line_ = new ElidedLabel(this);
  line_->setObjectName("sheetLine");
  line_->setFixedHeight(line_->fontMetrics().height());
  layout()->addWidget(line_);
  binding_.enter = [this](QWidget* field) { return EnterFrom(field); };
  binding_.open_row = [this](const std::string& list, int row) {
    acts_.Run([&] { OpenResult(acts_.s, binding_.form(), list, row); });
  };
  connect(&binding_, &FormBinding::Pointed, this, [this](const Control* field) {
    pointed_ = field;
    ShowLine();
  });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now == nullptr || !isAncestorOf(now)) return;
    last_focus_ = now;
    ShowLine();
  });
}

// ---- fields ----

std::vector<std::string> SheetView::Texts() const {
  std::vector<std::string> texts;
  for (const Control& control : const_cast<SheetView*>(this)->binding_.form().controls())
    if (IsField(control.kind) && IsInside(control, frame_)) texts.push_back(control.checked ? "on" : control.text);
  return texts;
}

void SheetView::KeepTexts() {
  kept_ = Texts();
  binding_.KeepField();
}

bool SheetView::FocusFirstOpen() {
  const std::vector<QWidget*> fields = binding_.OpenFields();
  if (!fields.empty()) fields.front()->setFocus(Qt::OtherFocusReason);
  return !fields.empty();
}

bool SheetView::IsOpenField(const QWidget* widget) const {
  const std::vector<QWidget*> fields = binding_.OpenFields();
  return widget != nullptr && std::any_of(fields.begin(), fields.end(), [&](const QWidget* field) {
           return field == widget || field->isAncestorOf(widget);
         });
}

void SheetView::FocusAnything() {
  if (last_focus_ != nullptr && last_focus_->isVisible() && last_focus_->isEnabled())
    return last_focus_->setFocus(Qt::TabFocusReason);
  if (!FocusFirstOpen()) tabs_->tabBar()->setFocus(Qt::TabFocusReason);
}

// The last open field before the status and the comments, which are reached with Tab: in comments Enter is a new line.
const QWidget* SheetView::LastField() const {
  const QWidget* last = nullptr;
  for (const QWidget* field : binding_.OpenFields())
    if (const Control* control = binding_.ControlOf(field); !control->lines && control->parent != kStatusFrame)
      last = field;
  return last;
}

// In the last open field of a page Enter moves on to the next page that has one.
bool SheetView::EnterFrom(QWidget* field) {
  const Control* control = binding_.ControlOf(field);
  const QWidget* last = LastField();
  if (control == nullptr || last == nullptr || last->objectName() != Q(control->name)) return false;
  const int before = tabs_->currentIndex();
  for (int page = before + 1; page < tabs_->count(); ++page) {
    if (!tabs_->isTabEnabled(page)) continue;
    tabs_->setCurrentIndex(page);
    if (FocusFirstOpen()) return true;
  }
  if (tabs_->currentIndex() != before) {
    tabs_->setCurrentIndex(before);
    field->setFocus(Qt::OtherFocusReason);
  }
  if (behind_last) behind_last();
  return behind_last != nullptr;
}

void SheetView::Say(const QString& text) {
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, Quiet(palette()));
  line_->setPalette(colours);
  line_->setText(text);
}

// A low screen keeps no room for the line while the record has nothing for it. Whatever is pointed at, nothing moves.
bool SheetView::NeedsLine() {
  if (!IsLowScreen(*this) || acts_.s.editing) return true;
  const auto& controls = binding_.form().controls();
  return std::any_of(controls.begin(), controls.end(), [](const Control& control) {
    return !control.finding.empty() || !control.hint.empty() || control.back == Back::kFlag;
  });
}

// The finding, or else the remark, of the field that is pointed at or has the focus.
void SheetView::ShowLine() {
  const QWidget* focus = QApplication::focusWidget();
  const Control* control = pointed_;
  if (control == nullptr && focus != nullptr && isAncestorOf(focus)) control = binding_.ControlOf(focus);
  if (control == nullptr) return line_->clear();
  const std::string finding = !control->finding.empty()      ? control->finding
                              : control->back == Back::kFlag ? control->tip
                                                             : "";
  if (finding.empty()) return Say(Q(control->hint));
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, EditingRed(palette()));
  line_->setPalette(colours);
  line_->setText(LabelText(*control) + " " + Q(finding));
}

bool SheetView::IsInside(const Control& control, const std::string& ancestor) const {
  const Form& form = const_cast<SheetView*>(this)->binding_.form();
  for (const Control* at = &control; !at->parent.empty(); at = &form.At(at->parent))
    if (at->parent == ancestor) return true;
  return false;
}

bool SheetView::IsOnPage(const Control& control, int page) const {
  const Form& form = const_cast<SheetView*>(this)->binding_.form();
  for (const Control* at = &control; !at->parent.empty(); at = &form.At(at->parent))
    if (at->parent == tab_) return at->page == page;
  return false;
}

// ---- the title band ----

void SheetView::MakeBand() {
  auto* band = new QWidget(this);
  auto* grid = new QGridLayout(band);
  const bool low = IsLowScreen(*this);
  grid->setContentsMargins(0, 0, 0, low ? 2 : 6);
  grid->setVerticalSpacing(low ? 0 : 2);
  title_ = new TitleLabel(band);
  where_ = new ElidedLabel(band);
  where_->setTextFormat(Qt::PlainText);
  where_->setObjectName("where");
  QPalette quiet = where_->palette();
  quiet.setColor(QPalette::WindowText, Quiet(quiet));
  where_->setPalette(quiet);
  grid->addWidget(title_, 0, 0, 1, 2);
  grid->addWidget(where_, 1, 0);
  grid->setColumnStretch(0, 1);
  // below the title, which needs all the width that there is
  auto* remarks = new QHBoxLayout;
  remarks->setSpacing(12);
  grid->addLayout(remarks, 1, 1);
  for (const Control& control : binding_.form().controls()) {
    if (control.kind != Kind::kLabel || control.parent != frame_) continue;
    Bound& label = binding_.AddLabel(control, band);
    label.widget->setPalette(quiet);
    static_cast<QLabel*>(label.widget)->setWordWrap(false);
    if (control.name == names::lblNoEmissions)
      label.widget->setStyleSheet(QString("QLabel { border: 1px solid %1; border-radius: 9px; padding: 1px 10px; }")
                                      .arg(Line(palette()).name()));
    remarks->addWidget(label.widget);
  }
  binding_.AddFrame(binding_.form().At(frame_), band);
  layout()->addWidget(band);
}

void SheetView::ShowBand(const QString& where) {
  const Control& frame = binding_.form().At(frame_);
  QPalette colours = palette();
  if (frame.emphasis) colours.setColor(QPalette::WindowText, EditingRed(palette()));
  title_->setPalette(colours);
  title_->ShowTitle(Q(frame.caption), frame.emphasis);
  where_->setText(where);
}

// ---- the pages ----

void SheetView::MakePages() {
  const Control& tab = binding_.form().At(tab_);
  tabs_ = static_cast<QTabWidget*>(binding_.AddTab(tab, this).widget);
  tabs_->setAccessibleName(tr("Pages"));
  SetLook(*tabs_->tabBar(), "tight", IsLowScreen(*this));
  for (int page = 0; page < static_cast<int>(tab.items.size()); ++page) {
    auto* place = new QWidget(tabs_);
    FillPage(page, place);
    tabs_->addTab(place, Q(tab.items[static_cast<std::size_t>(page)]));
  }
  layout()->addWidget(tabs_);
  static_cast<QVBoxLayout*>(layout())->setStretchFactor(tabs_, 1);
}

void SheetView::StepPage(int step) {
  const int count = tabs_->count();
  for (int away = 1; away < count; ++away) {
    const int page = ((tabs_->currentIndex() + step * away) % count + count) % count;
    if (!tabs_->isTabEnabled(page)) continue;
    tabs_->setCurrentIndex(page);
    // the field that had the focus there may be disabled by now
    if (const QWidget* focus = focusWidget(); focus == nullptr || !focus->isEnabled() || !isAncestorOf(focus))
      tabs_->tabBar()->setFocus(Qt::TabFocusReason);
    return;
  }
}

void SheetView::AddTo(BlocksPanel& panel, const Control& control) {
  const bool captioned = control.kind != Kind::kCheck && control.kind != Kind::kOption;
  Bound& bound = binding_.AddField(control, &panel, captioned);
  QLabel* note = nullptr;
  if (!control.note.empty())
    note = static_cast<QLabel*>(binding_.AddLabel(binding_.form().At(control.note), &panel).widget);
  panel.Add(control.block, bound, note);
}

void SheetView::FillPage(int page, QWidget* place) {
  auto* column = new QVBoxLayout(place);
  const int around = IsLowScreen(*this) ? 4 : 12;
  column->setContentsMargins(around, around, around, around);
  column->setSpacing(IsLowScreen(*this) ? 4 : 8);
  auto* panel = new BlocksPanel(place);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  bool has_fields = false, has_buttons = false;
  for (const Control& control : binding_.form().controls()) {
    if (!IsOnPage(control, page)) continue;
    if (IsField(control.kind)) {
      AddTo(*panel, control);
      has_fields = true;
    } else if (control.kind == Kind::kListView) {
      QWidget* list = binding_.AddList(control, place).widget;
      column->addWidget(list, 1);
      if (control.caption != kResultsCaption) continue;
      results_ = control.name;
      results_page_ = page;
      if (control.name == kSurveyResults)
        column->addWidget(new QLabel(tr("The structures' counts are of all months."), place));
    } else if (control.kind == Kind::kButton) {
      buttons->addWidget(binding_.AddButton(control, place).widget);
      has_buttons = true;
    } else if (control.kind == Kind::kLabel && !binding_.IsCaptionOrNote(control.name)) {
      QWidget* label = binding_.AddLabel(control, place).widget;
      QFont bold = label->font();
      bold.setBold(true);
      label->setFont(bold);
      column->addWidget(label);
    }
  }
  if (has_fields) {
    column->addWidget(new ScrollingPage(panel, place), 1);
    panels_.push_back(panel);
  } else {
    delete panel;
  }
  buttons->addStretch(1);
  if (has_buttons)
    column->addLayout(buttons);
  else
    delete buttons;
}

void SheetView::ShowCount() {
  if (results_page_ < 0) return;
  const auto& rows = binding_.form().At(results_).rows;
  const auto count =
      std::count_if(rows.begin(), rows.end(), [](const auto& row) { return row.back() != kSummaryMark; });
  const QString caption = Q(binding_.form().At(tab_).items[static_cast<std::size_t>(results_page_)]);
  const auto open = std::count_if(rows.begin(), rows.end(), [](const auto& row) {
    return row.back() != kSummaryMark && row.size() > kCommentColumn && !Explains(row[kCommentColumn]);
  });
  auto* list = static_cast<ResultsList*>(binding_.Find(results_));
  list->SetEmptyText(acts_.s.checked ? tr("No findings") : tr("Not checked yet"));
  const QString text = count == 0  ? caption
                       : open == 0 ? caption + QString(" (%1)").arg(count)
                                   : caption + tr(" (%1, %2 open)").arg(count).arg(open);
  tabs_->setTabToolTip(results_page_,
                       count == 0 ? QString() : tr("%1 findings, %2 without comment").arg(count).arg(open));
  if (tabs_->tabText(results_page_) != text) tabs_->setTabText(results_page_, text);
}

void SheetView::Sync(const QString& where) {
  ShowBand(where);
  if (binding_.Sync()) {
    for (BlocksPanel* panel : panels_) {
      panel->KeepPlaces(acts_.s.InActv());
      panel->Arrange();
    }
  }
  ShowCount();
  line_->setVisible(NeedsLine());
  ShowLine();
}

}  // namespace merlu
