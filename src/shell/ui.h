// The port to the user: boxes, dialogs, painting and printing, which each front end implements. A session holds it as
// an incomplete type and this header is in the shell, so no room below can open a box.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/platform.h"

namespace merlu {

class Form;

enum class Button { kOK, kCancel, kYes, kNo, kRetry };

// A message box.
struct Box {
  std::string text;
  std::string title;
  Icon icon = Icon::kNone;
  std::vector<Button> buttons = {Button::kOK};
  std::size_t preset = 0;  // of the buttons: the one that Enter presses
  std::string detail{};    // further information, shown on request
  std::string setting{};   // key of the setting "Do not show again", if the box offers it
};

// The button that changes least: what a box answers when it is closed without an answer.
Button LeastChange(const Box& box);
std::string_view ButtonName(Button button);

// What a file dialog asks for.
struct FileQuestion {
  enum class Kind { kOpen, kSave };
  Kind kind = Kind::kOpen;
  std::string title;
  std::string filter_name;  // "MERLU Database"
  std::string pattern;      // "*.MDB"; matches without regard to case
  std::string extension;    // appended to a name that has none, e.g. ".MDB"
  struct Type {
    std::string filter_name, pattern, extension;
  };
  std::vector<Type> others;  // further types that the user can choose
  bool overwrites = true;    // of a save: the dialog itself asks before a file is overwritten
  std::string name{};        // of a save: proposed
};

// The path with the extension when its name has none.
std::string WithExtension(const std::string& path, const std::string& extension);

// The front end as the user sees it.
class Ui {
 public:
  virtual ~Ui() = default;

  virtual Button Ask(const Box& box) = 0;
  // Path of the chosen file or folder; empty when the user cancelled.
  virtual std::string AskFile(const FileQuestion& question) = 0;
  virtual std::string AskFolder(const std::string& prompt) = 0;
  // Returns when the form, shown as a dialog, has been hidden.
  virtual void RunModal(Form& form) = 0;

  // Draws what changed and lets waiting events run once.
  virtual void Paint() = 0;
  virtual void Beep() = 0;

  // Prints the form as a picture, on the printer that the user chooses; faults are thrown.
  virtual void Print(const Form& form) = 0;
  // Shows a document in the program that the system has for it.
  virtual void OpenDocument(const std::string& path) = 0;
};

// What a front end implements, and a session is made with.
class Platform : public virtual Ui, public virtual Progress, public virtual Host {};

}  // namespace merlu
