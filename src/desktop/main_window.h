// The main window: menus, tree, the sheet of the selected node, the buttons of all sheets, docks, status bar.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QSplitter>
#include <QStackedWidget>

#include <map>
#include <memory>
#include <string>

#include "desktop/acts.h"
#include "desktop/dock_window.h"
#include "desktop/main_menus.h"
#include "desktop/sheet_view.h"
#include "desktop/status_line.h"
#include "desktop/tree_panel.h"

class QSettings;

namespace merlu {

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  // Made when the main form exists. `settings` keeps sizes from run to run.
  MainWindow(Acts& acts, QSettings& settings);
  ~MainWindow() override;

  // Draws what changed.
  void Sync();
  QTreeView& tree();
  // At the menu bar and at the title of a dock: the commands of the docks. The toolkit's own menu would show and hide
  // docks without their forms.
  QMenu* createPopupMenu() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void MakeButtons(QWidget* place);
  void PressButton(const char* button);
  void DoShortcut(const std::string& act);
  void StepPage(int step);
  void StepPart(int step);
  bool FocusPart(QWidget* part);
  SheetView* SheetInView();
  bool MayDrop();
  // Help for the current screen, at the field that has the focus.
  void ShowHelpHere();

  void SyncSheet(const QWidget* before);
  void SyncEdit(SheetView& view, const QWidget* before);
  QString WhatNext() const;
  void OfferNext();
  bool IsPage(DockWindow& dock) const;
  bool ClosePages();
  std::string PlaceInHand() const;
  void MakeRoomFor(DockWindow& opened);
  void SyncDocks();
  void SyncPages();
  SheetView* SheetToShow();
  SheetView* ViewOf(Form& form, const std::string& frame);
  QString Where() const;

  Acts& acts_;
  Session& s_;
  QSettings& settings_;
  MainMenus* menus_ = nullptr;
  QSplitter* splitter_ = nullptr;
  TreePanel* tree_ = nullptr;
  StatusLine* status_ = nullptr;
  int edited_ = -1;            // node of the record whose edit has begun
  QPointer<QWidget> offered_;  // the last field, where Enter was pressed once
  QStackedWidget* sheets_ = nullptr;
  QLabel* blank_ = nullptr;
  std::map<std::string, SheetView*> views_;
  std::unique_ptr<FormBinding> buttons_;
  std::map<std::string, DockWindow*> docks_;  // by the name of the form
  std::string place_;                         // the user's place at the last update
};

}  // namespace merlu
