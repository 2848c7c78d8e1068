// One sheet beside the tree: its title band, and its pages.
#pragma once

#include <QLabel>
#include <QTabWidget>
#include <QWidget>

#include <map>
#include <string>
#include <vector>

#include "desktop/binding.h"
#include "desktop/blocks_panel.h"

namespace merlu {

class SheetView : public QWidget {
  Q_OBJECT
 public:
  // The sheet in a frame of the form: an equipment form's own frame, or one of the three of the main form.
  SheetView(Acts& acts, Form& form, const std::string& frame, QWidget* parent);

  Form& form() { return binding_.form(); }
  const std::string& frame() const { return frame_; }
  // Draws what changed; `where` says where the record is.
  void Sync(const QString& where);
  void TakeFocus() { binding_.TakeFocus(); }
  // Shows the next available page, or the one before; round the ends.
  void StepPage(int step);

 private:
  void MakeBand();
  void MakePages();
  void FillPage(int page, QWidget* place);
  bool IsOnPage(const Control& control, int page) const;
  bool IsInside(const Control& control, const std::string& ancestor) const;
  void AddTo(BlocksPanel& panel, const Control& control);
  void ShowBand(const QString& where);
  void ShowCount();

  Acts& acts_;
  FormBinding binding_;
  std::string frame_, tab_;
  TitleLabel* title_ = nullptr;
  QLabel* where_ = nullptr;
  std::string results_;  // name of the list of findings
  int results_page_ = -1;
  QTabWidget* tabs_ = nullptr;
  std::vector<BlocksPanel*> panels_;
};

}  // namespace merlu
