// One sheet beside the tree: its title band, and its pages.
#pragma once

#include <QPointer>

#include <QLabel>
#include <QTabWidget>
#include <QWidget>
#include <functional>
#include <string>

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
  // Draws what changed; `where` is the place of the record in words.
  void Sync(const QString& where);
  void TakeFocus() { binding_.TakeFocus(); }
  // Gives the focus to the first open field of the page; false when there is none.
  bool FocusFirstOpen();
  // Of the page, or a part of one.
  bool IsOpenField(const QWidget* widget) const;
  // The sheet's part of a walk from part to part: the field that had the focus, or the first, or the pages.
  void FocusAnything();
  bool TakeBackField() { return binding_.TakeBackField(); }
  // Takes the present texts of the fields as those that a later change is compared with.
  void KeepTexts();
  bool HasTyped() const { return kept_ != Texts(); }
  // Called for Enter on the last open field of the sheet.
  std::function<void()> behind_last;
  // Shows the text in the line at the bottom until another one replaces it.
  void Say(const QString& text);
  // Shows the next available page, or the one before; round the ends.
  void StepPage(int step);

 private:
  bool EnterFrom(QWidget* field);
  const QWidget* LastField() const;
  std::vector<std::string> Texts() const;
  bool NeedsLine();
  void ShowLine();
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
  ElidedLabel* line_ = nullptr;       // hint, finding or unit of the field pointed at
  const Control* pointed_ = nullptr;  // the field that is pointed at
  QPointer<QWidget> last_focus_;
  std::vector<std::string> kept_;
  std::vector<BlocksPanel*> panels_;
};

}  // namespace merlu
