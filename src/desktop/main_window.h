// The main window: menus, tree, the sheet of the selected node, the buttons of all sheets, status bar.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeView>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "desktop/acts.h"
#include "desktop/dock_window.h"
#include "desktop/sheet_view.h"
#include "desktop/tree_model.h"

class QSettings;

namespace merlu {

class NavigationTree;
struct Shortcut;

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  // Made when the main form exists. `settings` keeps sizes from run to run.
  MainWindow(Acts& acts, QSettings& settings);
  ~MainWindow() override;

  // Draws what changed.
  void Sync();
  QTreeView& tree();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeMenus();
  void MakeTree();
  void MakeButtons(QWidget* place);
  void MakeFilter(QWidget* place);
  void MakeShortcuts();
  void MakeShortcut(const Shortcut& row, const std::string& id);
  std::function<void()> ActOf(const std::string& shortcut);
  void PressButton(const char* button);
  void StepNode(int step);
  void StepPage(int step);
  void StepPart(int step);
  bool FocusPart(QWidget* part);
  SheetView* SheetInView();
  bool MayDrop();
  void ClickTreeNode(const QModelIndex& index);
  void ShowEditMenu(const QPoint& at);
  // Help for the current screen, at the field that has the focus.
  void ShowHelpHere();

  void SyncMenus();
  // The captions with access keys, when one of them changed.
  void SyncCaptions();
  void SyncTree();
  void SyncExpansion();
  void SyncSheet();
  void SyncEdit(SheetView& view);
  void SyncStatus();
  QString FindingsText() const;
  QString MessageText();
  QString WhatNext() const;
  void OfferNext();
  void SyncDocks();
  SheetView* SheetToShow();
  SheetView* ViewOf(Form& form, const std::string& frame);
  QString Where() const;

  Acts& acts_;
  Session& s_;
  QSettings& settings_;
  std::map<std::string, QMenu*> menus_;
  std::map<std::string, QAction*> actions_;
  std::string captions_;  // all that the menus show now
  QSplitter* splitter_ = nullptr;
  NavigationTree* tree_ = nullptr;
  QMenu* sheet_menu_ = nullptr;  // what has keys and no entry of another menu
  int edited_ = -1;              // node of the record whose edit has begun
  QPointer<QWidget> offered_;    // the last field, where Enter was pressed once
  bool filtered_ = false;        // the tree shows some of its nodes
  TreeModel* model_ = nullptr;
  int pressed_again_ = -1;  // the selected node, while the mouse is pressed on it
  std::uint64_t seen_revision_ = ~std::uint64_t{0}, seen_expansion_ = ~std::uint64_t{0};
  QStackedWidget* sheets_ = nullptr;
  QLabel* blank_ = nullptr;
  std::map<std::string, SheetView*> views_;
  std::unique_ptr<FormBinding> buttons_;
  std::map<std::string, DockWindow*> docks_;  // by the name of the form
  QLabel* path_ = nullptr;
  QLabel* message_ = nullptr;
  std::string said_;                  // the message that it shows
  QString saved_at_;                  // the time of the last save
  std::int64_t saved_at_change_ = 0;  // of the store, at the last save
  QLabel* findings_ = nullptr;
};

}  // namespace merlu
