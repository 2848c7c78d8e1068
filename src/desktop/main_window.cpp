#include "desktop/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>

#include "base/dates.h"
#include "desktop/access_keys.h"
#include "desktop/look.h"
#include "desktop/shortcuts.h"
#include "qc/qc_log.h"
#include "session/messages.h"
#include "shell/help.h"
#include "shell/main_program.h"
#include "shell/routing.h"

namespace merlu {
namespace {

constexpr const char* kMainButtons[] = {"cmdEditMode", "cmdQC", "cmdCANCEL", "cmdSaveEdits", "cmdSaveExit", "cmdEdit"};
constexpr int kTreeWidth = 280;

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

constexpr const char* kHelpCommand = "mnuHCurrentScreen";

bool HoldsMenus(const Form& main, const Control& menu) {
  return std::any_of(main.controls().begin(), main.controls().end(),
                     [&](const Control& other) { return other.kind == Kind::kMenu && other.parent == menu.name; });
}

// Rows of one calm height.
class TreeRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), option.fontMetrics.height() + 6};
  }
};

}  // namespace

MainWindow::MainWindow(Acts& acts, QSettings& settings) : acts_(acts), s_(acts.s), settings_(settings) {
  setObjectName("frmMain");
  MakeMenus();
  splitter_ = new QSplitter(this);
  MakeTree();
  auto* right = new QWidget(splitter_);
  auto* column = new QVBoxLayout(right);
  column->setContentsMargins(14, 12, 14, 10);
  column->setSpacing(10);
  sheets_ = new QStackedWidget(right);
  blank_ = new QWidget(sheets_);
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
  findings_ = new QLabel(this);
  findings_->setObjectName("findings");
  statusBar()->addWidget(path_, 1);
  statusBar()->addPermanentWidget(findings_);
  MakeShortcuts();
  setMinimumSize(900, 600);
  resize(1180, 760);
  // a screen that holds the smallest window gets one that fits, with its frame
  const QSize room = screen()->availableSize() - QSize(8, 40);
  if (room.width() >= minimumWidth() && room.height() >= minimumHeight()) resize(size().boundedTo(room));
  restoreGeometry(settings_.value("Window/geometry").toByteArray());
  splitter_->restoreState(settings_.value("Window/splitter").toByteArray());
  restoreState(settings_.value("Window/docks").toByteArray());
}

MainWindow::~MainWindow() {
  settings_.setValue("Window/geometry", saveGeometry());
  settings_.setValue("Window/splitter", splitter_->saveState());
  settings_.setValue("Window/docks", saveState());
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
      action->setShortcut(QKeySequence("F1"));
      connect(action, &QAction::triggered, this, &MainWindow::ShowHelpHere);
      continue;
    }
    connect(action, &QAction::triggered, this,
            [this, name] { acts_.Do([&] { return act::Click(s_.desk, *s_.main, name); }); });
  }
}

void MainWindow::MakeTree() {
  tree_ = new QTreeView(splitter_);
  tree_->setObjectName("tvwTree");
  tree_->setAccessibleName("Navigation tree");
  model_ = new TreeModel(s_.tree, tree_);
  tree_->setModel(model_);
  tree_->setItemDelegate(new TreeRows(tree_));
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->setIndentation(16);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  tree_->setMinimumWidth(160);
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
}

void MainWindow::MakeButtons(QWidget* place) {
  auto* row = new QHBoxLayout(place);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  buttons_ = std::make_unique<FormBinding>(acts_, *s_.main, nullptr);
  for (const char* name : kMainButtons) {
    Bound& button = buttons_->AddButton(s_.main->At(name), place);
    row->addWidget(button.widget);
    if (std::string(name) == "cmdEditMode") row->addStretch(1);
  }
  for (const char* name : {"cmdEdit", "cmdSaveExit"}) SetLook(*buttons_->Find(name), "main", true);
}

void MainWindow::PressButton(const char* button) {
  const bool cancels = std::string_view(button) == "cmdCANCEL";
  // the field that is being typed in hands over its text first
  if (QWidget* focus = focusWidget(); focus != nullptr && !cancels && s_.main->Handles(button, Event::kClick)) {
    focus->clearFocus();
    focus->setFocus();
  }
  acts_.Do([&] { return act::Click(s_.desk, *s_.main, button); });
}

std::function<void()> MainWindow::ActOf(const std::string& id) {
  if (id == shortcut::kNextNode) return [this] { StepNode(1); };
  if (id == shortcut::kPreviousNode) return [this] { StepNode(-1); };
  if (id == shortcut::kNextPage) return [this] { StepPage(1); };
  if (id == shortcut::kPreviousPage) return [this] { StepPage(-1); };
  return [this] { ShortcutSheet(this).exec(); };
}

void MainWindow::MakeShortcuts() {
  for (const Shortcut& row : Shortcuts()) {
    const std::string id = row.id;
    if (id.empty()) continue;
    auto* action = new QAction(tr(row.what), this);
    action->setObjectName(Q(id));
    action->setShortcut(QKeySequence(row.keys));
    if (QWidget* button = buttons_->Find(id)) {
      connect(action, &QAction::triggered, this, [this, name = row.id] { PressButton(name); });
      button->setToolTip(tr(row.what) + " (" + KeysText(row) + ")");
      button->setAccessibleDescription(button->toolTip());
    } else {
      connect(action, &QAction::triggered, this, ActOf(id));
    }
    addAction(action);
    if (id != shortcut::kSheet) continue;
    action->setText(tr("&Keyboard Shortcuts"));
    menus_.at("mnuHelp")->insertAction(actions_.at("mnuHAbout"), action);
  }
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
  const QModelIndex next = step > 0 ? tree_->indexBelow(now) : tree_->indexAbove(now);
  if (next.isValid()) tree_->setCurrentIndex(next);
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
  std::string control;
  for (const QWidget* widget = focusWidget(); widget != nullptr && control.empty(); widget = widget->parentWidget()) {
    const std::string name = widget->objectName().toStdString();
    for (const Form* form : s_.desk.showing)
      if (!name.empty() && form->Find(name) != nullptr) control = name;
  }
  if (WhyNot(s_.desk, *s_.main, s_.main->At(kHelpCommand), true).empty())
    acts_.Run([&] { ShowCurrentHelp(s_, control); });
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
    menu->menuAction()->setVisible(control.visible);
  }
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
  QWidget* widget = view == nullptr ? blank_ : view;
  if (sheets_->currentWidget() != widget) sheets_->setCurrentWidget(widget);
  if (view != nullptr) view->TakeFocus();
  if (s_.main->focus == "tvwTree") {
    s_.main->focus.clear();
    tree_->setFocus();
  }
}

void MainWindow::SyncStatus() {
  path_->setText(Q(s_.status_text));
  QString right;
  if (s_.db.IsOpen() && !s_.current.Is(level::kUser) && !s_.current.Level.empty()) {
    try {
      const int count = CountQCErrors(s_, s_.current);
      right = count == 0   ? tr("No open findings here")
              : count == 1 ? tr("1 open finding here")
                           : tr("%1 open findings here").arg(count);
    } catch (const Fault&) {
      right = tr("The findings cannot be counted now");
    }
  }
  const QString mode = s_.InDesc() ? tr("Description Edit Mode") : s_.InActv() ? tr("Activity Edit Mode") : QString();
  findings_->setText(QStringList({right, mode}).filter(QRegularExpression(".")).join("  ·  "));
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
