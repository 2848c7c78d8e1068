// The keys of the main window: one table, from which the keys, the buttons' tips and the sheet of keys come.
#pragma once

#include <QDialog>

#include <vector>

namespace merlu {

struct Shortcut {
  const char* id;    // a button of the main form, or an act of the window; empty for keys that fields know
  const char* keys;  // as QKeySequence reads them
  const char* what;  // what they do
};

namespace shortcut {
inline constexpr const char* kNextNode = "nextNode";
inline constexpr const char* kPreviousNode = "previousNode";
inline constexpr const char* kNextPage = "nextPage";
inline constexpr const char* kPreviousPage = "previousPage";
inline constexpr const char* kSheet = "shortcutSheet";
}  // namespace shortcut

const std::vector<Shortcut>& Shortcuts();
// The keys as the desktop writes them.
QString KeysText(const Shortcut& shortcut);

// All of it in a list of two columns.
class ShortcutSheet : public QDialog {
  Q_OBJECT
 public:
  explicit ShortcutSheet(QWidget* parent);
};

}  // namespace merlu
