#include "desktop/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>

#include "base/dates.h"
#include "desktop/caret.h"
#include "desktop/look.h"
#include "desktop/shortcuts.h"
#include "forms/dialog_buttons.h"
#include "session/main_names.h"
#include "shell/dialog_names.h"
#include "shell/help.h"
#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/strip_dock.h"

namespace merlu {
namespace {

constexpr const char* kMainButtons[] = {names::cmdEditMode,  names::cmdQC,       names::cmdCANCEL,
                                        names::cmdSaveEdits, names::cmdSaveExit, names::cmdEdit};
constexpr const char* kCancel = names::cmdCANCEL;
constexpr const char* kSave = names::cmdSaveEdits;
constexpr int kTreeWidth = 280;
constexpr QSize kWindowFrame(8, 40);

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

using Docks = std::map<std::string, DockWindow*>;

// Of docks beside each other the months of a field take a third at most, lists the rest.
void ShareWidth(QMainWindow& window, const Docks& docks) {
  QList<QDockWidget*> beside;
  QList<int> widths;
  int needed = 0;
  for (const auto& [name, dock] : docks) {
    if (dock == nullptr || dock->isHidden() || dock->isFloating()) continue;
    if (window.dockWidgetArea(dock) != Qt::BottomDockWidgetArea) continue;
    beside << dock;
    widths << dock->minimumSizeHint().width();
    needed += widths.last();
  }
  const int spare = window.width() - needed;
  if (beside.size() < 2 || spare < 0) return;
  int lists = 0, left = spare;
  for (qsizetype at = 0; at < beside.size(); ++at) {
    const bool is_strip = beside[at]->objectName() == strip_dock::kForm;
    lists += is_strip ? 0 : 1;
    if (!is_strip) continue;
    const int more = std::clamp(window.width() / 3 - widths[at], 0, spare);
    widths[at] += more;
    left -= more;
  }
  for (qsizetype at = 0; at < beside.size(); ++at)
    if (beside[at]->objectName() != strip_dock::kForm) widths[at] += left / lists;
  window.resizeDocks(beside, widths, Qt::Horizontal);
}

}  // namespace

MainWindow::MainWindow(Acts& acts, QSettings& settings) : acts_(acts), s_(acts.s), settings_(settings) {
  setObjectName(names::frmMain);
  splitter_ = new QSplitter(this);
  buttons_ = std::make_unique<FormBinding>(acts_, *s_.main, nullptr);
  tree_ = new TreePanel(acts_, *buttons_, splitter_);
  connect(tree_, &TreePanel::Opened, this, [this] {
    if (SheetView* view = SheetInView()) view->FocusAnything();
  });
  connect(tree_, &TreePanel::MenuWanted, this, [this](const QPoint& at) { menus_->Menu(names::mnuEdit).popup(at); });
  auto* right = new QWidget(splitter_);
  auto* column = new QVBoxLayout(right);
  const bool low = IsLowScreen(*this);
  column->setContentsMargins(low ? QMargins(8, 4, 8, 4) : QMargins(14, 12, 14, 10));
  column->setSpacing(low ? 4 : 10);
  sheets_ = new QStackedWidget(right);
  blank_ = new QLabel(sheets_);
  blank_->setObjectName("blank");
  blank_->setAlignment(Qt::AlignCenter);
  blank_->setWordWrap(true);
  QPalette quiet = blank_->palette();
  quiet.setColor(QPalette::WindowText, Quiet(quiet));
  blank_->setPalette(quiet);
  sheets_->addWidget(blank_);
  column->addWidget(sheets_, 1);
  auto* row = new QWidget(right);
  MakeButtons(row);
  column->addWidget(row);
  splitter_->addWidget(right);
  splitter_->setStretchFactor(1, 1);
  splitter_->setChildrenCollapsible(false);
  splitter_->setSizes({kTreeWidth, 900});
  setCentralWidget(splitter_);
  status_ = new StatusLine(s_, *statusBar());
  menus_ = new MainMenus(acts_, *this, *buttons_, tree_->tree(),
                         {[this] { ShowHelpHere(); }, [this](const char* button) { PressButton(button); },
                          [this](const std::string& act) { DoShortcut(act); }});
  setMinimumSize(560, 320);  // the sheets scroll
  const QSize room = screen()->availableSize() - kWindowFrame;
  resize(QSize(1180, 760).boundedTo(room).expandedTo(minimumSize()));
  restoreGeometry(settings_.value("Window/geometry").toByteArray());
  splitter_->restoreState(settings_.value("Window/splitter").toByteArray());
  restoreState(settings_.value("Window/docks").toByteArray());
}

MainWindow::~MainWindow() {
  settings_.setValue("Window/geometry", saveGeometry());
  settings_.setValue("Window/splitter", splitter_->saveState());
  settings_.setValue("Window/docks", saveState());
}

QTreeView& MainWindow::tree() {
  return tree_->tree();
}

// ---- making ----

void MainWindow::MakeButtons(QWidget* place) {
  auto* row = new QHBoxLayout(place);
  // on a small screen, or with large texts, the tree needs the room
  constexpr int kSmallScreen = 800;
  const bool tight = screen()->availableSize().width() < kSmallScreen;
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(tight ? 4 : 8);
  buttons_->may_press = [this](const std::string& button) { return button != kCancel || MayDrop(); };
  buttons_->pressed = [this](const std::string& button) {
    SheetView* view = SheetInView();
    if (button == kSave && view != nullptr && s_.editing && !s_.save_failed) view->KeepTexts();
  };
  for (const char* name : kMainButtons) {
    Bound& button = buttons_->AddButton(s_.main->At(name), place);
    SetLook(*button.widget, "tight", tight);
    row->addWidget(button.widget);
    if (std::string(name) == names::cmdEditMode) row->addStretch(1);
  }
  // room for the buttons of an edit is kept from the start, so that nothing moves when one begins
  int width = -row->spacing();
  for (const char* name : kMainButtons)
    if (std::string_view(name) != names::cmdEdit) width += buttons_->Find(name)->sizeHint().width() + row->spacing();
  place->setMinimumWidth(width);
  for (const char* name : {names::cmdEdit, names::cmdSaveExit}) SetLook(*buttons_->Find(name), "main", true);
}

SheetView* MainWindow::SheetInView() {
  return qobject_cast<SheetView*>(sheets_->currentWidget());
}

// ---- acts ----

// Asks whether to drop what was typed since the record was loaded; true when nothing was.
bool MainWindow::MayDrop() {
  const SheetView* view = SheetInView();
  if (!s_.editing || view == nullptr || !view->HasTyped()) return true;
  bool drop = false;
  acts_.Run([&] {
    constexpr std::size_t kNo = 1;  // Enter keeps what was typed
    const Box box{"Drop what was typed?", s_.title, Icon::kQuestion, {Button::kYes, Button::kNo}, kNo};
    drop = Ask(s_, box) == Button::kYes;
  });
  return drop;
}

void MainWindow::PressButton(const char* button) {
  const bool cancels = std::string_view(button) == kCancel;
  if (cancels && ClosePages()) return;
  SheetView* view = SheetInView();
  if (cancels && s_.editing && view != nullptr && view->TakeBackField()) return;
  const bool was_editing = s_.editing;
  QWidget* focus = focusWidget();
  const Caret caret = CaretOf(focus);
  // the focused field must pass on its text first, as it does when it loses the focus
  if (focus != nullptr && !cancels && s_.main->Handles(button, Event::kClick)) {
    focus->clearFocus();
    focus->setFocus();
    PutBack(caret);
  }
  buttons_->Press(button);
  // the edit of the same record continues: the cursor stays where it was
  if (was_editing && s_.editing && !s_.save_failed) PutBack(caret);
}

void MainWindow::DoShortcut(const std::string& act) {
  if (act == shortcut::kNextNode) return tree_->Step(1);
  if (act == shortcut::kPreviousNode) return tree_->Step(-1);
  if (act == shortcut::kNextPage) return StepPage(1);
  if (act == shortcut::kPreviousPage) return StepPage(-1);
  if (act == shortcut::kNextPart) return StepPart(1);
  if (act == shortcut::kPreviousPart) return StepPart(-1);
  ShortcutSheet(*s_.main, this).exec();
}

// Moves the focus from the tree to the sheet to the buttons and round again.
void MainWindow::StepPart(int step) {
  const QWidget* focus = focusWidget();
  QWidget* buttons = buttons_->Find(kMainButtons[0])->parentWidget();
  const std::vector<QWidget*> parts = {&tree_->tree(), sheets_, buttons};
  const auto now = std::find_if(parts.begin(), parts.end(), [&](const QWidget* part) {
    return focus != nullptr && (part == focus || part->isAncestorOf(focus));
  });
  const int count = static_cast<int>(parts.size());
  int at = now == parts.end() ? (step > 0 ? -1 : 0) : static_cast<int>(now - parts.begin());
  for (int tries = 0; tries < count; ++tries) {
    at = (at + step + count) % count;
    if (FocusPart(parts[static_cast<std::size_t>(at)])) return;
  }
}

bool MainWindow::FocusPart(QWidget* part) {
  if (part == &tree_->tree()) {
    part->setFocus(Qt::TabFocusReason);
    return part->hasFocus();
  }
  if (part == sheets_) {
    SheetView* view = SheetInView();
    if (view != nullptr) view->FocusAnything();
    return view != nullptr;
  }
  for (const char* name : kMainButtons) {
    QWidget* button = buttons_->Find(name);
    if (!button->isVisible() || !button->isEnabled()) continue;
    button->setFocus(Qt::TabFocusReason);
    return true;
  }
  return false;
}

void MainWindow::StepPage(int step) {
  if (SheetView* view = SheetInView()) view->StepPage(step);
}

void MainWindow::ShowHelpHere() {
  // the focused widget, or an ancestor of it, has the name of the control
  std::string control, dock;
  for (const QWidget* widget = focusWidget(); widget != nullptr && control.empty(); widget = widget->parentWidget()) {
    const std::string name = widget->objectName().toStdString();
    for (const Form* form : s_.desk.showing)
      if (!name.empty() && form->Find(name) != nullptr) {
        control = name;
        if (!form->dock.empty()) dock = form->name();
      }
  }
  if (!WhyNot(s_.desk, *s_.main, s_.main->At(names::mnuHCurrentScreen), true).empty()) return;
  acts_.Run([&] { dock.empty() ? ShowCurrentHelp(s_, control) : ShowDialogHelp(s_, dock, control); });
}

QMenu* MainWindow::createPopupMenu() {
  auto* menu = new QMenu(this);
  for (const Control& control : s_.main->controls())
    if (control.checkable) menu->addAction(menus_->Find(control.name));
  return menu;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  bool closed = s_.ended;
  if (!closed) acts_.Run([&] { closed = CloseMainWindow(s_); });
  event->setAccepted(closed);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && ClosePages()) return;
  QMainWindow::keyPressEvent(event);
}

// ---- drawing ----

SheetView* MainWindow::ViewOf(Form& form, const std::string& frame) {
  SheetView*& view = views_[form.name() + "." + frame];
  if (view == nullptr) {
    view = new SheetView(acts_, form, frame, sheets_);
    if (&form != s_.main) view->setObjectName(Q(form.name()));
    view->behind_last = [this] { OfferNext(); };
    sheets_->addWidget(view);
  }
  return view;
}

SheetView* MainWindow::SheetToShow() {
  for (auto at = s_.desk.showing.rbegin(); at != s_.desk.showing.rend(); ++at) {
    Form& form = **at;
    if (form.modal || !form.dock.empty() || &form == s_.main || form.name() == names::frmAbout) continue;
    for (const Control& control : form.controls())
      if (control.kind == Kind::kFrame && control.parent.empty()) return ViewOf(form, control.name);
  }
  const Control* front = s_.main->Find(s_.main->front);
  return front == nullptr || !front->visible ? nullptr : ViewOf(*s_.main, front->name);
}

QString MainWindow::Where() const {
  const QCLocation& at = s_.current;
  QStringList parts;
  if (at.Is(level::kUser)) parts << "RIMA company no. " + Q(at.UserID) << Q("inventory of " + std::to_string(s_.year));
  if (at.Is(level::kEquipment)) parts << Q(at.EquipID);
  if (s_.tree.selected >= 0 && (at.Is(level::kEquipment) || at.Is(level::kStructure))) {
    const TreeNode& node = s_.tree.nodes[static_cast<std::size_t>(s_.tree.selected)];
    const int structure = at.Is(level::kEquipment) ? node.parent : s_.tree.selected;
    parts << Q(s_.tree.nodes[static_cast<std::size_t>(structure)].text);
  }
  if (at.Month > 0) parts << Q(MonthName(at.Month) + " " + std::to_string(at.Year));
  return parts.join("  ·  ");
}

void MainWindow::SyncSheet(const QWidget* before) {
  SheetView* view = SheetToShow();
  if (view != nullptr) view->Sync(Where());
  QWidget* widget = blank_;
  if (view != nullptr) widget = view;
  if (sheets_->currentWidget() != widget) sheets_->setCurrentWidget(widget);
  if (view == nullptr) blank_->setText(WhatNext());
  if (view != nullptr) view->TakeFocus();
  if (view != nullptr) SyncEdit(*view, before);
  if (s_.main->focus == names::tvwTree) {
    s_.main->focus.clear();
    tree().setFocus();
  }
}

// When an edit begins, on this record or on the next, the first open field gets the focus, unless the user was in one
// already. What has the focus by now may have got it from a tree or a button that was disabled.
void MainWindow::SyncEdit(SheetView& view, const QWidget* before) {
  const int node = s_.editing ? s_.tree.selected : -1;
  const bool begins = s_.editing && edited_ != node;
  const bool goes_on = begins && edited_ >= 0;
  edited_ = node;
  if (!begins) return;
  view.KeepTexts();
  if (goes_on || !view.IsOpenField(before)) view.FocusFirstOpen();
}

// Enter in the last field: pressed a second time, it saves and edits the next record.
void MainWindow::OfferNext() {
  QAction* next = menus_->Find(names::mnuNNext);
  if (next == nullptr || !next->isEnabled()) {
    if (QWidget* save = buttons_->Find(names::cmdSaveExit); save->isVisible()) save->setFocus(Qt::TabFocusReason);
    return;
  }
  QWidget* field = focusWidget();
  if (offered_ == field) {
    offered_ = nullptr;
    return next->trigger();
  }
  offered_ = field;
  SheetInView()->Say(tr("Enter once more saves and goes on to the next record; Tab goes on in this one."));
}

QString MainWindow::WhatNext() const {
  if (!s_.db.IsOpen()) return tr("No inventory is open. The menu File opens one, or makes a new one.");
  return s_.tree.nodes.empty() ? QString() : tr("Choose a month, a structure or a piece of equipment in the tree.");
}

// A low screen has no room for a list below the sheet: a dock with one is a page in the place of tree and sheet until
// a record is opened. The months of a field need little and stay below it.
bool MainWindow::IsPage(DockWindow& dock) const {
  return IsLowScreen(*this) && dock.form().visible && dock.form().name() != strip_dock::kForm && !dock.isFloating();
}

bool MainWindow::ClosePages() {
  bool closed = false;
  for (const auto& [name, dock] : docks_) {
    if (dock == nullptr || !IsPage(*dock)) continue;
    dock->close();
    closed = true;
  }
  return closed;
}

// A page gives way when this changes.
std::string MainWindow::PlaceInHand() const {
  std::string place = s_.editing ? "edit" : "";
  if (s_.tree.selected >= 0) place += s_.tree.nodes[static_cast<std::size_t>(s_.tree.selected)].key;
  for (const Form* form : s_.desk.showing)
    if (!form->modal && form->dock.empty()) place += "." + form->focus;
  return place;
}

// Docks that are too wide to stand beside each other stand below each other. Where that makes the window too high, a
// list takes the place of the others.
void MainWindow::MakeRoomFor(DockWindow& opened) {
  std::vector<DockWindow*> below;
  for (const auto& [name, dock] : docks_) {
    if (dock == nullptr || !dock->form().visible || dock->isFloating()) continue;
    if (dockWidgetArea(dock) == Qt::BottomDockWidgetArea) below.push_back(dock);
  }
  const QSize room = (screen()->availableSize() - kWindowFrame).boundedTo(size());
  const auto all = [&below] {
    QSize sum(0, 0);
    for (const DockWindow* dock : below) sum += dock->minimumSizeHint();
    return sum;
  };
  if (below.size() < 2 || all().width() <= room.width()) return;
  const auto is_strip = [](DockWindow* dock) { return dock->form().name() == strip_dock::kForm; };
  std::stable_partition(below.begin(), below.end(), is_strip);
  const int sheet = IsPage(opened) ? 0 : centralWidget()->minimumSizeHint().height();
  if (menuBar()->height() + sheet + all().height() + statusBar()->height() > room.height()) {
    DockWindow* stays = is_strip(&opened) ? below.back() : &opened;
    const auto goes = [&](DockWindow* dock) { return dock != stays && !is_strip(dock); };
    for (DockWindow* dock : below)
      if (goes(dock)) QMetaObject::invokeMethod(dock, &QWidget::close, Qt::QueuedConnection);
    std::erase_if(below, goes);
  }
  const Qt::Orientation side = all().width() <= room.width() ? Qt::Horizontal : Qt::Vertical;
  for (std::size_t at = 1; at < below.size(); ++at) splitDockWidget(below[at - 1], below[at], side);
}

void MainWindow::SyncDocks() {
  for (const auto& form : s_.desk.forms) {
    if (form->dock.empty()) continue;
    DockWindow*& dock = docks_[form->name()];
    if (dock == nullptr) {
      if (!form->visible) continue;
      dock = new DockWindow(acts_, *form, this);
      if (!restoreDockWidget(dock)) addDockWidget(Qt::BottomDockWidgetArea, dock);
    }
    if (form->visible) dock->Sync();
    if (dock->isHidden() != form->visible) continue;
    dock->setVisible(form->visible);
    if (!form->visible) continue;
    MakeRoomFor(*dock);
    ShareWidth(*this, docks_);
    dock->raise();
    if (IsLowScreen(*this)) resizeDocks({dock}, {dock->minimumSizeHint().height()}, Qt::Vertical);
    if (IsPage(*dock)) dock->FocusTable();
  }
  SyncPages();
}

void MainWindow::SyncPages() {
  const bool shows = std::any_of(docks_.begin(), docks_.end(),
                                 [this](const auto& named) { return named.second && IsPage(*named.second); });
  if (shows != splitter_->isHidden()) {
    splitter_->setVisible(!shows);
    SheetView* view = SheetInView();
    if (!shows && view != nullptr) view->TakeFocus();
    if (!shows && view != nullptr && !sheets_->isAncestorOf(focusWidget())) view->FocusAnything();
    DockWindow* strip = docks_[strip_dock::kForm];
    const bool was_beside_page = !shows && strip != nullptr && !strip->isHidden() && !strip->isFloating();
    if (was_beside_page) resizeDocks({strip}, {strip->minimumSizeHint().height()}, Qt::Vertical);
    for (Form* form : s_.desk.showing)
      if (shows && !form->modal && form->dock.empty()) form->focus.clear();
  } else if (shows && PlaceInHand() != place_) {
    QMetaObject::invokeMethod(
        this, [this] { ClosePages(); }, Qt::QueuedConnection);
  }
  place_ = PlaceInHand();
}

void MainWindow::Sync() {
  const QWidget* before = focusWidget();
  setWindowTitle(Q(s_.main->caption));
  menus_->Sync();
  tree_->Sync();
  SyncSheet(before);
  buttons_->Sync();
  SyncDocks();
  status_->Sync();
}

}  // namespace merlu
