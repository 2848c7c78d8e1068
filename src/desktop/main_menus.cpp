#include "desktop/main_menus.h"

#include <QMenuBar>

#include <algorithm>
#include <utility>

#include "desktop/access_keys.h"
#include "session/main_names.h"

namespace merlu {
namespace {

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

bool HoldsMenus(const Form& main, const Control& menu) {
  return std::any_of(main.controls().begin(), main.controls().end(),
                     [&](const Control& other) { return other.kind == Kind::kMenu && other.parent == menu.name; });
}

}  // namespace

MainMenus::MainMenus(Acts& acts, QMainWindow& window, FormBinding& buttons, QWidget& tree, Hooks hooks)
    : QObject(&window), acts_(acts), s_(acts.s), window_(window), buttons_(buttons), hooks_(std::move(hooks)) {
  MakeMenus();
  MakeShortcuts(tree);
}

QAction* MainMenus::Find(const std::string& name) const {
  const auto action = actions_.find(name);
  return action == actions_.end() ? nullptr : action->second;
}

void MainMenus::MakeMenus() {
  for (const Control& control : s_.main->controls()) {
    if (control.kind != Kind::kMenu) continue;
    const std::string name = control.name;
    if (control.parent.empty()) {
      menus_[name] = window_.menuBar()->addMenu(Q(control.caption));
      menus_[name]->setObjectName(Q(name));
      if (s_.main->Handles(name, Event::kClick))
        connect(menus_[name], &QMenu::aboutToShow, this,
                [this, name] { acts_.Do([&] { return act::Click(s_.desk, *s_.main, name); }); });
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
    if (name == names::mnuHCurrentScreen) {
      connect(action, &QAction::triggered, this, [this] { hooks_.help(); });
      continue;
    }
    connect(action, &QAction::triggered, this,
            [this, name] { acts_.Do([&] { return act::Click(s_.desk, *s_.main, name); }); });
  }
}

void MainMenus::MakeShortcuts(QWidget& tree) {
  sheet_menu_ = new QMenu(tr("&Sheet"), window_.menuBar());
  sheet_menu_->setObjectName("sheetMenu");
  const auto before =
      std::find_if(menus_.begin(), menus_.end(), [](const auto& menu) { return menu.first == names::mnuReview; });
  window_.menuBar()->insertMenu((before == menus_.end() ? menus_.at(names::mnuHelp) : before->second)->menuAction(),
                                sheet_menu_);
  for (const Shortcut& row : Shortcuts()) {
    const std::string id = row.id;
    if (id.empty() || !IsOffered(row, *s_.main)) continue;
    if (const auto command = actions_.find(id); command != actions_.end()) {
      command->second->setShortcut(QKeySequence(row.keys));
      if (id == names::mnuEDelete) {
        // in a field the key edits the text
        command->second->setShortcutContext(Qt::WidgetShortcut);
        tree.addAction(command->second);
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

void MainMenus::MakeShortcut(const Shortcut& row, const std::string& id) {
  auto* action = new QAction(tr(row.what), &window_);
  action->setObjectName(Q(id));
  QList<QKeySequence> keys = {QKeySequence(row.keys)};
  if (*row.also != '\0') keys << QKeySequence(row.also);
  action->setShortcuts(keys);
  if (QWidget* button = buttons_.Find(id)) {
    connect(action, &QAction::triggered, this, [this, name = row.id] { hooks_.press(name); });
    button->setToolTip(tr(row.what) + " (" + KeysText(row) + ")");
    button->setAccessibleDescription(button->toolTip());
  } else {
    connect(action, &QAction::triggered, this, [this, id] { hooks_.act(id); });
  }
  window_.addAction(action);
  if (id != shortcut::kSheet) return sheet_menu_->addAction(action);
  action->setText(tr("&Keyboard Shortcuts"));
  menus_.at(names::mnuHelp)->insertAction(actions_.at(names::mnuHAbout), action);
}

void MainMenus::SyncCaptions() {
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

void MainMenus::Sync() {
  SyncCaptions();
  for (const auto& [name, menu] : menus_) {
    const Control& control = s_.main->At(name);
    menu->setEnabled(control.enabled);
    menu->menuAction()->setVisible(control.visible && !menu->isEmpty());
  }
  for (const char* id : {shortcut::kNextNode, shortcut::kPreviousNode})
    window_.findChild<QAction*>(id)->setEnabled(s_.tree.enabled);
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

}  // namespace merlu
