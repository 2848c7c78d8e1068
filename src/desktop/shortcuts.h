// The keys of the main window: one table, from which the keys, the buttons' tips and the sheet of keys come.
#pragma once

#include <QDialog>

#include <vector>

#include "forms/form.h"

namespace merlu {

struct Shortcut {
  const char* id;    // a button or menu command of the main form, or an act of the window; empty for keys of fields
  const char* keys;  // as QKeySequence reads them
  const char* what;  // what they do
  const char* also = "";  // further keys that do the same
};

namespace shortcut {
inline constexpr const char* kNextNode = "nextNode";
inline constexpr const char* kPreviousNode = "previousNode";
inline constexpr const char* kNextPage = "nextPage";
inline constexpr const char* kPreviousPage = "previousPage";
inline constexpr const char* kNextPart = "nextPart";
inline constexpr const char* kPreviousPart = "previousPart";
inline constexpr const char* kSheet = "shortcutSheet";
}  // namespace shortcut

const std::vector<Shortcut>& Shortcuts();
// Whether the main form has what the keys are for.
bool IsOffered(const Shortcut& shortcut, const Form& main);
// The keys as the desktop writes them.
QString KeysText(const Shortcut& shortcut);

// All of it in a list of two columns.
class ShortcutSheet : public QDialog {
  Q_OBJECT
 public:
  ShortcutSheet(const Form& main, QWidget* parent);
};

}  // namespace merlu
