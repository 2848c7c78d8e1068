// What a walk through the windows looks at, and the pictures that it can leave.
#pragma once

#include <QWidget>

#include <string>

#include "forms/form.h"

namespace merlu::test {

// Paints each window of the walk. Where MERLU_WALK_FOLDER names a folder, the pictures are kept there, NNN-name.png in
// the order of the walk; writing them takes twice as long as the walk itself.
class Album {
 public:
  explicit Album(const char* walk);
  void Keep(QWidget& window, const std::string& name);

 private:
  QString folder_;
  int count_ = 0;
};

// No label, button, field, tab or column that shows is smaller than its text needs. Texts longer than `longest`
// characters scroll in their fields.
void ExpectNothingCut(QWidget& window, int longest = 40);

// Every control of the form shows, is enabled, and has the caption and text that the form says. Of a sheet, `frame` is
// its outermost frame; of a dialog it is empty.
void ExpectAsTheFormSays(QWidget& window, const Form& form, const std::string& frame = "");

// Tab comes to every field, list and button that can be used.
void ExpectTabReachesAll(QWidget& window);

}  // namespace merlu::test
