#include "shell/print_screen.h"

#include "sheets/units.h"
#include "shell/messages.h"

namespace merlu {

void PrintScreen(Session& s) {
  const SheetSpec* sheet = s.current.Is(level::kEquipment) ? FindSheet(s.current.EquipType) : nullptr;
  const Form* form = sheet == nullptr ? s.main : s.desk.Find(sheet->form());
  if (form != nullptr) Plainly(s, [&] { s.ui.Print(*form); });
}

}  // namespace merlu
