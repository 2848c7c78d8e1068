#include "desktop/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTime>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>

#include "base/dates.h"
#include "desktop/access_keys.h"
#include "desktop/fields.h"
#include "desktop/look.h"
#include "desktop/navigation_tree.h"
#include "desktop/shortcuts.h"
#include "session/messages.h"
#include "shell/help.h"
#include "shell/main_program.h"
#include "shell/routing.h"
#include "shell/status.h"

namespace merlu {
namespace {

constexpr const char* kMainButtons[] = {"cmdEditMode", "cmdQC", "cmdCANCEL", "cmdSaveEdits", "cmdSaveExit", "cmdEdit"};
constexpr const char* kCancel = "cmdCANCEL";
constexpr const char* kSave = "cmdSaveEdits";
constexpr int kTreeWidth = 280;

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

constexpr const char* kDelete = "mnuEDelete";
constexpr const char* kHelpCommand = "mnuHCurrentScreen";

bool HoldsMenus(const Form& main, const Control& menu) {
  return std::any_of(main.controls().begin(), main.controls().end(),
                     [&](const Control& other) { return other.kind == Kind::kMenu && other.parent == menu.name; });
}

constexpr const char* kTreeFilter = "txtTREE_Filter";

// Where the caret stands in a field, and what is selected there.
struct Caret {
  QPointer<QWidget> field;
  int from = 0, to = 0;
};

Caret CaretOf(QWidget* field) {
  Caret caret{field};
  if (const auto* line = qobject_cast<QLineEdit*>(field)) {
    caret.to = line->cursorPosition();
    caret.from = !line->hasSelectedText()                           ? caret.to
                 : line->selectionStart() == line->cursorPosition() ? line->selectionEnd()
                                                                    : line->selectionStart();
  } else if (const auto* notes = qobject_cast<QPlainTextEdit*>(field)) {
    caret.from = notes->textCursor().anchor();
    caret.to = notes->textCursor().position();
  }
  return caret;
}

void PutBack(const Caret& caret) {
  if (caret.field == nullptr || !caret.field->isVisible() || !caret.field->isEnabled()) return;
  caret.field->setFocus(Qt::OtherFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(caret.field)) {
    line->setCursorPosition(caret.from);
    line->cursorForward(true, caret.to - caret.from);
  } else if (auto* notes = qobject_cast<QPlainTextEdit*>(caret.field)) {
    const int end = notes->document()->characterCount() - 1;
    QTextCursor cursor = notes->textCursor();
    cursor.setPosition(std::min(caret.from, end));
    cursor.setPosition(std::min(caret.to, end), QTextCursor::KeepAnchor);
    notes->setTextCursor(cursor);
  }
}

}  // namespace

MainWindow::MainWindow(Acts& acts, QSettings& settings) : acts_(acts), s_(acts.s), settings_(settings) {
  setObjectName("frmMain");
  MakeMenus();
  splitter_ = new QSplitter(this);
  buttons_ = std::make_unique<FormBinding>(acts_, *s_.main, nullptr);
  MakeTree();
  auto* right = new QWidget(splitter_);
  auto* column = new QVBoxLayout(right);
  column->setContentsMargins(14, 12, 14, 10);
  column->setSpacing(10);
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
  path_ = new ElidedLabel(this);
  path_->setObjectName("SB1");
  message_ = new QLabel(this);
  message_->setObjectName("message");
  findings_ = new QLabel(this);
  findings_->setObjectName("findings");
  statusBar()->addWidget(path_, 1);
  statusBar()->addPermanentWidget(message_);
  statusBar()->addPermanentWidget(findings_);
  MakeShortcuts();
  setMinimumSize(560, 320);                                     // the sheets scroll
  const QSize room = screen()->availableSize() - QSize(8, 40);  // with its frame
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
  return *tree_;
}

// ---- making ----

void MainWindow::MakeMenus() {
  for (const Control& control : s_.main->controls()) {
    if (control.kind != Kind::kMenu) continue;
    const std::string name = control.name;
    if (control.parent.empty()) {
      menus_[name] = menuBar()->addMenu(Q(control.caption));
      menus_[name]->setObjectName(Q(name));
      continue;
    }
    QMenu* menu = menus_.at(control.parent);
    if (HoldsMenus(*s_.main, control)) {
      menus_[name] = menu->addMenu(Q(control.caption));
      menus_[name]->setObjectName(Q(name));
      continue;
    }
    QAction* action = control.caption == "-" ? menu->addSeparator() : menu->addAction(Q(control.caption));
    action->setObjectName(Q(name));
    actions_[name] = action;
    if (name == kHelpCommand) {
      connect(action, &QAction::triggered, this, &MainWindow::ShowHelpHere);
      continue;
    }
    connect(action, &QAction::triggered, this,
            [this, name] { acts_.Do([&] { return act::Click(s_.desk, *s_.main, name); }); });
  }
}

void MainWindow::MakeTree() {
  auto* left = new QWidget(splitter_);
  auto* column = new QVBoxLayout(left);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  if (s_.main->Find(kTreeFilter) != nullptr) MakeFilter(left);
  tree_ = new NavigationTree(left);
  column->addWidget(tree_, 1);
  tree_->setObjectName("tvwTree");
  tree_->setAccessibleName("Navigation tree");
  model_ = new TreeModel(s_.tree, tree_);
  tree_->setModel(model_);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  tree_->setMinimumWidth(80);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& now) { ClickTreeNode(now); });
  // what selects without the keyboard or the mouse, as assistive programs do
  connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection& now) {
    if (!now.isEmpty()) ClickTreeNode(now.indexes().front());
  });
  tree_->viewport()->installEventFilter(this);
  connect(tree_, &QTreeView::expanded, this, [this](const QModelIndex& index) {
    if (!acts_.IsDrawing()) s_.tree.nodes[static_cast<std::size_t>(TreeModel::NodeOf(index))].expanded = true;
  });
  connect(tree_, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
    if (!acts_.IsDrawing()) s_.tree.nodes[static_cast<std::size_t>(TreeModel::NodeOf(index))].expanded = false;
  });
  connect(tree_, &QTreeView::customContextMenuRequested, this, &MainWindow::ShowEditMenu);
  connect(tree_, &NavigationTree::Opened, this, [this] {
    if (auto* view = qobject_cast<SheetView*>(sheets_->currentWidget())) view->FocusAnything();
  });
}

// A line that leaves in the tree what it finds. Enter and Down go on to the tree.
void MainWindow::MakeFilter(QWidget* place) {
  buttons_->LeaveOutMarks();
  Bound& filter = buttons_->AddField(s_.main->At(kTreeFilter), place, false);
  place->layout()->addWidget(filter.row);
  auto* line = static_cast<QLineEdit*>(filter.widget);
  line->setPlaceholderText(tr("Find in the tree"));
  line->setAccessibleName(tr("Find in the tree"));
  AddClearButton(*line);
  buttons_->enter = [this](QWidget*) {
    tree_->setFocus(Qt::TabFocusReason);
    return true;
  };
}

void MainWindow::MakeButtons(QWidget* place) {
  auto* row = new QHBoxLayout(place);
  // on a small screen, or on one of large texts, the tree needs the room
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
    if (std::string(name) == "cmdEditMode") row->addStretch(1);
  }
  // the room that an edit needs, from the first on, so that nothing moves when it starts
  int width = -row->spacing();
  for (const char* name : kMainButtons)
    if (std::string_view(name) != "cmdEdit") width += buttons_->Find(name)->sizeHint().width() + row->spacing();
  place->setMinimumWidth(width);
  for (const char* name : {"cmdEdit", "cmdSaveExit"}) SetLook(*buttons_->Find(name), "main", true);
}

SheetView* MainWindow::SheetInView() {
  return qobject_cast<SheetView*>(sheets_->currentWidget());
}

// Whether what was typed since the record was loaded may go.
bool MainWindow::MayDrop() {
  const SheetView* view = SheetInView();
  if (!s_.editing || view == nullptr || !view->HasTyped()) return true;
  bool drop = false;
  acts_.Run([&] { drop = AskUser(s_, "Drop what was typed?", {Button::kYes, Button::kNo}) == Button::kYes; });
  return drop;
}

void MainWindow::PressButton(const char* button) {
  const bool cancels = std::string_view(button) == kCancel;
  SheetView* view = SheetInView();
  if (cancels && s_.editing && view != nullptr && view->TakeBackField()) return;
  const bool was_editing = s_.editing;
  QWidget* focus = focusWidget();
  const Caret caret = CaretOf(focus);
  // the field that is being typed in hands over its text first
  if (focus != nullptr && !cancels && s_.main->Handles(button, Event::kClick)) {
    focus->clearFocus();
    focus->setFocus();
    PutBack(caret);
  }
  buttons_->Press(button);
  // one that goes on in the same record leaves the hands where they are
  if (was_editing && s_.editing && !s_.save_failed) PutBack(caret);
}

std::function<void()> MainWindow::ActOf(const std::string& id) {
  if (id == shortcut::kNextNode) return [this] { StepNode(1); };
  if (id == shortcut::kPreviousNode) return [this] { StepNode(-1); };
  if (id == shortcut::kNextPage) return [this] { StepPage(1); };
  if (id == shortcut::kPreviousPage) return [this] { StepPage(-1); };
  if (id == shortcut::kNextPart) return [this] { StepPart(1); };
  if (id == shortcut::kPreviousPart) return [this] { StepPart(-1); };
  return [this] { ShortcutSheet(*s_.main, this).exec(); };
}

void MainWindow::MakeShortcuts() {
  sheet_menu_ = new QMenu(tr("&Sheet"), menuBar());
  sheet_menu_->setObjectName("sheetMenu");
  const auto before =
      std::find_if(menus_.begin(), menus_.end(), [](const auto& menu) { return menu.first == "mnuReview"; });
  menuBar()->insertMenu((before == menus_.end() ? menus_.at("mnuHelp") : before->second)->menuAction(), sheet_menu_);
  for (const Shortcut& row : Shortcuts()) {
    const std::string id = row.id;
    if (id.empty() || !IsOffered(row, *s_.main)) continue;
    if (const auto command = actions_.find(id); command != actions_.end()) {
      command->second->setShortcut(QKeySequence(row.keys));
      if (id == kDelete) {
        // elsewhere the key is the field's
        command->second->setShortcutContext(Qt::WidgetShortcut);
        tree_->addAction(command->second);
      }
      continue;
    }
    MakeShortcut(row, id);
  }
  QStringList texts;
  for (const QAction* entry : sheet_menu_->actions()) texts << entry->text();
  texts = WithAccessKeys(texts);
  for (qsizetype i = 0; i < texts.size(); ++i) sheet_menu_->actions()[i]->setText(texts[i]);
}

void MainWindow::MakeShortcut(const Shortcut& row, const std::string& id) {
  auto* action = new QAction(tr(row.what), this);
  action->setObjectName(Q(id));
  QList<QKeySequence> keys = {QKeySequence(row.keys)};
  if (*row.also != '\0') keys << QKeySequence(row.also);
  action->setShortcuts(keys);
  if (QWidget* button = buttons_->Find(id)) {
    connect(action, &QAction::triggered, this, [this, name = row.id] { PressButton(name); });
    button->setToolTip(tr(row.what) + " (" + KeysText(row) + ")");
    button->setAccessibleDescription(button->toolTip());
  } else {
    connect(action, &QAction::triggered, this, ActOf(id));
  }
  addAction(action);
  if (id != shortcut::kSheet) return sheet_menu_->addAction(action);
  action->setText(tr("&Keyboard Shortcuts"));
  menus_.at("mnuHelp")->insertAction(actions_.at("mnuHAbout"), action);
}

// ---- acts ----

void MainWindow::ClickTreeNode(const QModelIndex& index) {
  const int node = TreeModel::NodeOf(index);
  if (acts_.IsDrawing() || node < 0 || !s_.tree.enabled || node == s_.tree.selected) return;
  acts_.Run([&] { ClickNode(s_, node); });
}

// A click on the node that is selected already clicks it again; its selection says nothing of that.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tree_->viewport() && event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QModelIndex index = tree_->indexAt(mouse->position().toPoint());
    const int node = TreeModel::NodeOf(index);
    const bool on_text = index.isValid() && tree_->visualRect(index).contains(mouse->position().toPoint());
    if (mouse->button() == Qt::LeftButton && on_text && node == pressed_again_ && s_.tree.enabled)
      acts_.Run([&] { ClickNode(s_, node); });
    pressed_again_ = -1;
  }
  if (watched == tree_->viewport() && event->type() == QEvent::MouseButtonPress) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const int node = TreeModel::NodeOf(tree_->indexAt(mouse->position().toPoint()));
    pressed_again_ = node >= 0 && node == s_.tree.selected ? node : -1;
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::StepNode(int step) {
  const QModelIndex now = tree_->currentIndex();
  if (!s_.tree.enabled || !now.isValid()) return;
  // collapsed nodes are opened on the way
  if (step > 0) {
    tree_->expand(now);
    if (const QModelIndex next = tree_->indexBelow(now); next.isValid()) tree_->setCurrentIndex(next);
    return;
  }
  QModelIndex before = tree_->indexAbove(now);
  while (before.isValid() && before != now.parent() && model_->hasChildren(before) && !tree_->isExpanded(before)) {
    tree_->expand(before);
    before = tree_->indexAbove(now);
  }
  if (before.isValid()) tree_->setCurrentIndex(before);
}

// From the tree to the sheet to the buttons and round again.
void MainWindow::StepPart(int step) {
  const QWidget* focus = focusWidget();
  QWidget* buttons = buttons_->Find(kMainButtons[0])->parentWidget();
  const std::vector<QWidget*> parts = {tree_, sheets_, buttons};
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
  if (part == tree_) {
    tree_->setFocus(Qt::TabFocusReason);
    return tree_->hasFocus();
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
  if (auto* view = qobject_cast<SheetView*>(sheets_->currentWidget())) view->StepPage(step);
}

void MainWindow::ShowEditMenu(const QPoint& at) {
  if (!s_.tree.enabled) return;
  const int node = TreeModel::NodeOf(tree_->indexAt(at));
  if (node >= 0 && node != s_.tree.selected) acts_.Run([&] { ClickNode(s_, node); });
  menus_.at("mnuEdit")->popup(tree_->viewport()->mapToGlobal(at));
}

void MainWindow::ShowHelpHere() {
  // the widget with the focus, or one around it, has the name of the control
  std::string control, dock;
  for (const QWidget* widget = focusWidget(); widget != nullptr && control.empty(); widget = widget->parentWidget()) {
    const std::string name = widget->objectName().toStdString();
    for (const Form* form : s_.desk.showing)
      if (!name.empty() && form->Find(name) != nullptr) {
        control = name;
        if (!form->dock.empty()) dock = form->name();
      }
  }
  if (!WhyNot(s_.desk, *s_.main, s_.main->At(kHelpCommand), true).empty()) return;
  acts_.Run([&] { dock.empty() ? ShowCurrentHelp(s_, control) : ShowDialogHelp(s_, dock, control); });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  bool closed = s_.ended;
  if (!closed) acts_.Run([&] { closed = CloseMainWindow(s_); });
  event->setAccepted(closed);
}

// ---- drawing ----

void MainWindow::SyncCaptions() {
  std::string captions;
  for (const auto& [name, action] : actions_) captions += s_.main->At(name).caption + "\n";
  if (captions == captions_) return;
  captions_ = captions;
  for (const auto& [name, menu] : menus_) {
    QStringList texts;
    const QList<QAction*> entries = menu->actions();
    for (const QAction* entry : entries) {
      const auto control =
          std::find_if(actions_.begin(), actions_.end(), [&](const auto& a) { return a.second == entry; });
      texts << (control == actions_.end() ? entry->text() : Q(s_.main->At(control->first).caption));
    }
    texts = WithAccessKeys(texts);
    for (qsizetype i = 0; i < entries.size(); ++i)
      if (!entries[i]->isSeparator()) entries[i]->setText(texts[i]);  // a line with a text shows the text
  }
}

void MainWindow::SyncMenus() {
  SyncCaptions();
  for (const auto& [name, menu] : menus_) {
    const Control& control = s_.main->At(name);
    menu->setEnabled(control.enabled);
    menu->menuAction()->setVisible(control.visible && !menu->isEmpty());
  }
  for (const char* id : {shortcut::kNextNode, shortcut::kPreviousNode})
    findChild<QAction*>(id)->setEnabled(s_.tree.enabled);
  for (QAction* entry : sheet_menu_->actions())
    if (const Control* button = s_.main->Find(entry->objectName().toStdString()))
      entry->setEnabled(button->enabled && button->visible);
  for (const auto& [name, action] : actions_) {
    const Control& control = s_.main->At(name);
    action->setEnabled(control.enabled);
    action->setVisible(control.visible);
    if (!control.checkable) continue;
    action->setCheckable(true);
    action->setChecked(control.checked);
  }
}

void MainWindow::SyncExpansion() {
  const bool filtered =
      std::any_of(s_.tree.nodes.begin(), s_.tree.nodes.end(), [](const TreeNode& n) { return n.hidden; });
  if (filtered || filtered_) {
    for (std::size_t node = 0; node < s_.tree.nodes.size(); ++node) {
      const QModelIndex index = model_->IndexOf(static_cast<int>(node));
      tree_->setRowHidden(index.row(), index.parent(), s_.tree.nodes[node].hidden);
    }
    filtered_ = filtered;
  }
  for (std::size_t node = 0; node < s_.tree.nodes.size(); ++node) {
    if (s_.tree.nodes[node].children.empty()) continue;
    const QModelIndex index = model_->IndexOf(static_cast<int>(node));
    if (tree_->isExpanded(index) != s_.tree.nodes[node].expanded)
      tree_->setExpanded(index, s_.tree.nodes[node].expanded);
  }
}

void MainWindow::SyncTree() {
  if (seen_revision_ != s_.tree.revision) {
    model_->Reset();
    seen_revision_ = s_.tree.revision;
    seen_expansion_ = ~std::uint64_t{0};
  }
  if (seen_expansion_ != s_.tree.expansion) {
    SyncExpansion();
    seen_expansion_ = s_.tree.expansion;
  }
  const QModelIndex selected = model_->IndexOf(s_.tree.selected);
  if (tree_->currentIndex() != selected) {
    tree_->setCurrentIndex(selected);
    if (selected.isValid()) tree_->scrollTo(selected);
  }
  tree_->setEnabled(s_.tree.enabled);
}

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
    if (form.modal || !form.dock.empty() || &form == s_.main || form.name() == "frmAbout") continue;
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

void MainWindow::SyncSheet() {
  SheetView* view = SheetToShow();
  if (view != nullptr) view->Sync(Where());
  QWidget* widget = blank_;
  if (view != nullptr) widget = view;
  if (sheets_->currentWidget() != widget) sheets_->setCurrentWidget(widget);
  if (view == nullptr) blank_->setText(WhatNext());
  if (view != nullptr) view->TakeFocus();
  if (view != nullptr) SyncEdit(*view);
  if (s_.main->focus == "tvwTree") {
    s_.main->focus.clear();
    tree_->setFocus();
  }
}

// An edit that begins, on this record or on the next, puts the hands on its first open field.
void MainWindow::SyncEdit(SheetView& view) {
  const int node = s_.editing ? s_.tree.selected : -1;
  const bool begins = s_.editing && edited_ != node;
  const bool goes_on = begins && edited_ >= 0;
  edited_ = node;
  if (!begins) return;
  view.KeepTexts();
  if (goes_on || !view.HasOpenFocus()) view.FocusFirstOpen();
}

// Behind the last field: Enter once more saves and goes on to the next record.
void MainWindow::OfferNext() {
  const auto next = actions_.find("mnuNNext");
  if (next == actions_.end() || !next->second->isEnabled()) {
    if (QWidget* save = buttons_->Find("cmdSaveExit"); save->isVisible()) save->setFocus(Qt::TabFocusReason);
    return;
  }
  QWidget* field = focusWidget();
  if (offered_ == field) {
    offered_ = nullptr;
    return next->second->trigger();
  }
  offered_ = field;
  SheetInView()->Say(tr("Enter once more saves and goes on to the next record; Tab goes on in this one."));
}

QString MainWindow::WhatNext() const {
  if (!s_.db.IsOpen()) return tr("No inventory is open. The menu File opens one, or makes a new one.");
  return s_.tree.nodes.empty() ? QString() : tr("Choose a month, a structure or a piece of equipment in the tree.");
}

// What is known of the findings of the place.
QString MainWindow::FindingsText() const {
  if (!s_.db.IsOpen() || s_.current.Is(level::kUser) || s_.current.Level.empty()) return {};
  if (!IsStatusKnown(s_)) return tr("The findings cannot be counted now");
  if (!s_.checked) return tr("Not checked yet");
  if (s_.findings == 0) return tr("No findings");
  const QString all = s_.findings == 1 ? tr("1 finding") : tr("%1 findings").arg(s_.findings);
  return s_.unexplained == 0 ? tr("%1, all with a comment").arg(all)
                             : tr("%1, %2 without comment").arg(all).arg(s_.unexplained);
}

// "Saved 14:02"; anything else as it was said.
QString MainWindow::MessageText() {
  if (s_.message != "Saved") return Q(s_.message);
  if (const auto changes = s_.db.ChangeCount(); said_ != "Saved" || saved_at_change_ != changes) {
    saved_at_change_ = changes;
    const DateTime now = s_.platform.Now();
    saved_at_ = QTime(now.hour, now.minute).toString("HH:mm");
  }
  return Q(s_.message) + " " + saved_at_;
}

void MainWindow::SyncStatus() {
  path_->setText(Q(s_.status_text));
  const QString mode = s_.InDesc() ? tr("Description Edit Mode") : s_.InActv() ? tr("Activity Edit Mode") : QString();
  message_->setText(MessageText());
  said_ = s_.message;
  const QString file = s_.db.IsOpen() ? QFileInfo(Q(s_.path)).fileName() : QString();
  findings_->setText(QStringList({FindingsText(), mode, file}).filter(QRegularExpression(".")).join("  ·  "));
}

void MainWindow::SyncDocks() {
  for (const auto& form : s_.desk.forms) {
    if (form->dock.empty()) continue;
    DockWindow*& dock = docks_[form->name()];
    if (dock == nullptr) {
      if (!form->visible) continue;
      dock = new DockWindow(acts_, *form, this);
      if (!restoreDockWidget(dock)) {
        addDockWidget(Qt::BottomDockWidgetArea, dock);
        // a low screen has no room for it below the sheet
        constexpr int kLowScreen = 480, kAround = 60;
        const QSize room = screen()->availableSize();
        if (room.height() < kLowScreen) {
          dock->setFloating(true);
          dock->resize(room.width() - kAround, room.height() * 3 / 5);
        }
      }
    }
    if (form->visible) dock->Sync();
    if (dock->isHidden() == form->visible) dock->setVisible(form->visible);
  }
}

void MainWindow::Sync() {
  setWindowTitle(Q(s_.main->caption));
  SyncMenus();
  SyncTree();
  SyncSheet();
  buttons_->Sync();
  SyncDocks();
  SyncStatus();
}

}  // namespace merlu
