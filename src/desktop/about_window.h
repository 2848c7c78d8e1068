// The About form, as the splash of the start and as a dialog.
#pragma once

#include <QWidget>

#include "desktop/binding.h"
#include "shell/dialog_names.h"

namespace merlu {

inline constexpr const char* kAboutForm = names::frmAbout;

// Lays out the form's texts and its button beside the program's icon, and centres the window on its screen.
void FillAbout(QWidget& place, FormBinding& binding);

// The splash window. It takes no keys from the main window and closes itself after a few seconds.
class Splash : public QWidget {
  Q_OBJECT
 public:
  Splash(Acts& acts, Form& about, QWidget* over);

 private:
  FormBinding binding_;
};

}  // namespace merlu
