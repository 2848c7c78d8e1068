// The help as a window: the text with its looks, a bar to find in it, and a printer.
#pragma once

#include <QLineEdit>
#include <QTextBrowser>

#include <memory>

#include "desktop/form_dialog.h"

class QSettings;

namespace merlu {

// Shows a document and nothing that it would have to fetch.
class HelpView : public QTextBrowser {
  Q_OBJECT
 public:
  explicit HelpView(QWidget* parent);
  void Show(const Document& document);
  QVariant loadResource(int, const QUrl&) override { return {}; }

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Draw();
  void FitBar();
  QString html_;
  bool drawing_ = false;
};

class HelpDialog : public DialogWindow {
  Q_OBJECT
 public:
  HelpDialog(Acts& acts, Form& form, QSettings& settings, QWidget* parent);
  ~HelpDialog() override;
  void Sync() override;

 protected:
  // Escape closes the bar first, then the window.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeFindBar();
  QLayout* MakeButtons(Form& form);
  void MakeKeys();
  void OpenFindBar();
  void FindNext(bool backward);
  void Print();
  void GoToBookmark();

  QSettings& settings_;
  const Control* text_ = nullptr;
  HelpView* view_;
  QWidget* bar_;
  QLineEdit* sought_;
  std::shared_ptr<const Document> shown_;
};

}  // namespace merlu
