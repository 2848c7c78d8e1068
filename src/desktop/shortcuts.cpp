#include "desktop/shortcuts.h"

#include <QHeaderView>
#include <QKeySequence>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace merlu {

const std::vector<Shortcut>& Shortcuts() {
  static const std::vector<Shortcut> shortcuts = {
      {"cmdEdit", "Ctrl+E", "Edit the data of this sheet"},
      {"cmdSaveEdits", "Ctrl+S", "Save and go on editing"},
      {"cmdSaveExit", "Ctrl+Return", "Save, run QC and end the edit"},
      {"cmdCANCEL", "Escape", "Cancel the edit without saving"},
      {"cmdQC", "F5", "Run QC on this sheet and what is below it"},
      {"cmdEditMode", "Ctrl+M", "Change between descriptions and monthly activity"},
      {shortcut::kNextNode, "Ctrl+PgDown", "Go to the next node of the tree"},
      {shortcut::kPreviousNode, "Ctrl+PgUp", "Go to the previous node of the tree"},
      {shortcut::kNextPage, "Ctrl+Tab", "Show the next page of the sheet"},
      {shortcut::kPreviousPage, "Ctrl+Shift+Tab", "Show the previous page of the sheet"},
      {"", "Return", "Go to the next field; in a list of findings, open the comment"},
      {"", "Tab", "Go to the next field or button"},
      {"", "Shift+Tab", "Go to the field or button before"},
      {shortcut::kSheet, "Ctrl+F1", "Show these keys"},
  };
  return shortcuts;
}

QString KeysText(const Shortcut& shortcut) {
  return QKeySequence(shortcut.keys).toString(QKeySequence::NativeText);
}

ShortcutSheet::ShortcutSheet(QWidget* parent) : QDialog(parent) {
  setObjectName("dlgShortcuts");
  setWindowTitle(tr("Keyboard Shortcuts"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  auto* list = new QTreeWidget(this);
  list->setObjectName("lvwShortcuts");
  list->setAccessibleName(windowTitle());
  list->setHeaderLabels({tr("Keys"), tr("What they do")});
  list->setRootIsDecorated(false);
  list->setAlternatingRowColors(true);
  for (const Shortcut& shortcut : Shortcuts()) new QTreeWidgetItem(list, {KeysText(shortcut), tr(shortcut.what)});
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const int rows = list->topLevelItemCount();
  const int height = rows * list->sizeHintForRow(0) + list->header()->sizeHint().height() + 4;
  for (int side : {0, 1}) list->resizeColumnToContents(side);
  list->setMinimumSize(list->columnWidth(0) + list->columnWidth(1) + 16, height);
  column->addWidget(list);
  auto* close = new QPushButton(tr("Close"), this);
  close->setObjectName("cmdClose");
  close->setDefault(true);
  close->setFocus();
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  column->addWidget(close, 0, Qt::AlignRight);
}

}  // namespace merlu
