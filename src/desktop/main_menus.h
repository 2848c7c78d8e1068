// The menus of the main window and its keys, made from the main form's menu controls and the table of shortcuts.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>

#include <functional>
#include <map>
#include <string>

#include "desktop/acts.h"
#include "desktop/binding.h"
#include "desktop/shortcuts.h"

namespace merlu {

class MainMenus : public QObject {
  Q_OBJECT
 public:
  // What the window itself does.
  struct Hooks {
    std::function<void()> help;                       // for the field that has the focus
    std::function<void(const char* button)> press;    // a button of the main form
    std::function<void(const std::string& act)> act;  // one of shortcut::
  };
  // Menus, actions and keys belong to the window. The key of Delete works only in the tree.
  MainMenus(Acts& acts, QMainWindow& window, FormBinding& buttons, QWidget& tree, Hooks hooks);

  QMenu& Menu(const std::string& name) { return *menus_.at(name); }
  // The command of that name; null without one.
  QAction* Find(const std::string& name) const;
  // Draws what changed.
  void Sync();

 private:
  void MakeMenus();
  void MakeShortcuts(QWidget& tree);
  void MakeShortcut(const Shortcut& row, const std::string& id);
  void SyncCaptions();

  Acts& acts_;
  Session& s_;
  QMainWindow& window_;
  FormBinding& buttons_;
  Hooks hooks_;
  std::map<std::string, QMenu*> menus_;
  std::map<std::string, QAction*> actions_;
  QMenu* sheet_menu_ = nullptr;  // acts that have a key but no entry in another menu
  std::string captions_;         // all captions that the menus show now
};

}  // namespace merlu
