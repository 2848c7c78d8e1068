#include "desktop/shortcuts.h"

#include <QHeaderView>
#include <QKeySequence>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>

#include "desktop/results_list.h"
#include "forms/dialog_buttons.h"
#include "session/main_names.h"

namespace merlu {
namespace {

constexpr int kBetween = 24, kAround = 160, kAside = 64;

}  // namespace

const std::vector<Shortcut>& Shortcuts() {
  static const std::vector<Shortcut> shortcuts = {
      {names::cmdEdit, "Ctrl+E", "Edit the data of this sheet", "F2"},
      {names::cmdSaveEdits, "Ctrl+S", "Save and go on editing"},
      {names::cmdSaveExit, "Ctrl+Return", "Save, run QC and end the edit; in a dialog, OK"},
      {names::mnuNNext, "Ctrl+PgDown", "While editing: save and edit the next record"},
      {names::mnuNPrevious, "Ctrl+PgUp", "While editing: save and edit the record before"},
      {names::cmdCANCEL, "Escape", "Take back the field, then cancel the edit"},
      {names::cmdQC, "F5", "Run QC on this sheet and what is below it"},
      {names::cmdEditMode, "Ctrl+M", "Change between descriptions and monthly activity"},
      {shortcut::kNextNode, "Ctrl+PgDown", "Go to the next node of the tree"},
      {shortcut::kPreviousNode, "Ctrl+PgUp", "Go to the previous node of the tree"},
      {shortcut::kNextPage, "Ctrl+Tab", "Show the next page of the sheet"},
      {shortcut::kPreviousPage, "Ctrl+Shift+Tab", "Show the previous page of the sheet"},
      {shortcut::kNextPart, "F6", "Go to the tree, the sheet or the buttons, in turn"},
      {shortcut::kPreviousPart, "Shift+F6", "Go to them the other way round"},
      {"", "Return", "Go to the next field; in the tree, to the sheet; in a list of findings, open the comment"},
      {"", "Tab", "Go to the next field or button"},
      {"", "Shift+Tab", "Go to the field or button before"},
      {names::mnuFileSelectDatabase, "Ctrl+O", "Open another inventory"},
      {names::mnuFileCreateNewDB, "Ctrl+N", "Make a new inventory"},
      {"PrintScrn", "Ctrl+P", "Print this sheet"},
      {names::mnuFExit, "Ctrl+Q", "End the program"},
      {names::mnuEUndo, "Ctrl+Z", "Undo; in a field, what was typed there"},
      {names::mnuERedo, "Ctrl+Shift+Z", "Redo"},
      {names::mnuEDelete, "Delete", "In the tree: delete the structure or equipment"},
      {names::mnuRFindings, "Ctrl+Shift+F", "Show the findings"},
      {names::mnuRNext, "F8", "Go to the next finding"},
      {names::mnuRPrevious, "Shift+F8", "Go to the finding before"},
      {names::mnuRCompleteness, "Ctrl+Shift+M", "Show how complete the months are"},
      {names::mnuRStrip, "Ctrl+Shift+T", "Show the twelve months of a field"},
      {names::mnuRHistory, "Ctrl+H", "Show what was changed"},
      {names::mnuRFind, "Ctrl+K", "Go to a structure, a piece of equipment, a field or a command"},
      {names::mnuNGrid, "Ctrl+G", "Type a month as a grid"},
      {names::mnuNCopy, "Ctrl+D", "Copy the month before into blank fields"},
      {names::mnuNConfirm, "Ctrl+Shift+D", "Confirm copied values"},
      {names::mnuHCurrentScreen, "F1", "Help for this sheet, at the field in hand"},
      {shortcut::kSheet, "Ctrl+F1", "Show these keys"},
  };
  return shortcuts;
}

QString KeysText(const Shortcut& shortcut) {
  const QString keys = QKeySequence(shortcut.keys).toString(QKeySequence::NativeText);
  return *shortcut.also == '\0' ? keys : keys + ", " + QKeySequence(shortcut.also).toString(QKeySequence::NativeText);
}

bool IsOffered(const Shortcut& shortcut, const Form& main) {
  const std::string_view id = shortcut.id;
  return !(id.starts_with("mnu") && main.Find(id) == nullptr);
}

ShortcutSheet::ShortcutSheet(const Form& main, QWidget* parent) : QDialog(parent) {
  setObjectName("dlgShortcuts");
  setWindowTitle(tr("Keyboard Shortcuts"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  Control rows;
  rows.columns = {tr("Keys").toStdString(), tr("What they do").toStdString()};
  for (const Shortcut& shortcut : Shortcuts())
    if (IsOffered(shortcut, main))
      rows.rows.push_back({KeysText(shortcut).toStdString(), tr(shortcut.what).toStdString()});
  auto* list = new ResultsList(rows, QString(), this);
  list->setObjectName("lvwShortcuts");
  list->setAccessibleName(windowTitle());
  list->ShowRows(rows);
  // all of it is shown, one line each, up to the height of the screen
  int keys = 0, what = 0;
  for (const auto& row : rows.rows) {
    keys = std::max(keys, list->fontMetrics().horizontalAdvance(QString::fromStdString(row[0])));
    what = std::max(what, list->fontMetrics().horizontalAdvance(QString::fromStdString(row[1])));
  }
  list->setColumnWidth(0, keys + kBetween);
  list->setColumnWidth(1, what + kBetween);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const int row = list->sizeHintForRow(0), heads = list->header()->sizeHint().height();
  const int tall = list->topLevelItemCount() * row + heads + 2 * list->frameWidth();
  const int room = screen()->availableSize().height() - kAround;
  const int bar = tall > room ? list->verticalScrollBar()->sizeHint().width() : 0;
  const int wide = keys + what + 2 * kBetween + 2 * list->frameWidth() + bar;
  list->setMinimumSize(std::min(wide, screen()->availableSize().width() - kAside), std::min(tall, room));
  column->addWidget(list);
  auto* close = new QPushButton(tr("Close"), this);
  close->setObjectName(names::cmdClose);
  close->setDefault(true);
  close->setFocus();
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  column->addWidget(close, 0, Qt::AlignRight);
}

}  // namespace merlu
