#include "desktop/shortcuts.h"

#include <QHeaderView>
#include <QKeySequence>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/results_list.h"

namespace merlu {
namespace {

constexpr int kWidth = 520, kKeysWidth = 140;

}  // namespace

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
  Control rows;
  rows.columns = {tr("Keys").toStdString(), tr("What they do").toStdString()};
  for (const Shortcut& shortcut : Shortcuts())
    rows.rows.push_back({KeysText(shortcut).toStdString(), tr(shortcut.what).toStdString()});
  auto* list = new ResultsList(rows, QString(), this);
  list->setObjectName("lvwShortcuts");
  list->setAccessibleName(windowTitle());
  list->ShowRows(rows);
  // all of it shows, a line each
  list->setColumnWidth(0, kKeysWidth);
  list->setColumnWidth(1, kWidth - kKeysWidth - 2 * list->frameWidth());
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const int row = list->sizeHintForRow(0), heads = list->header()->sizeHint().height();
  list->setMinimumSize(kWidth, list->topLevelItemCount() * row + heads + 2 * list->frameWidth());
  column->addWidget(list);
  auto* close = new QPushButton(tr("Close"), this);
  close->setObjectName("cmdClose");
  close->setDefault(true);
  close->setFocus();
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  column->addWidget(close, 0, Qt::AlignRight);
}

}  // namespace merlu
