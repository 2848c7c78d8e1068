// Drives the real windows by the names of their widgets.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "desktop/desktop_app.h"
#include "support/test_run.h"

namespace merlu::test {

class Driver {
 public:
  // On a copy of the template in a folder of its own, or on a file that is there.
  explicit Driver(const std::string& database = "") {
    path_ = database.empty() ? CopyTemplate(folder_) : database;
    app = std::make_unique<DesktopApp>(folder_.path("settings.ini"));
    app->StoreSetting("Options", "DBloc", path_);
    Watch();
  }
  // For a test that handles all dialogs itself.
  void LeaveDialogsToTheTest() { watches_ = false; }

  // Runs the steps, each when the dialog or box before it is open; then starts the program.
  void Start() {
    app->Start();
    Settle();
    CloseSplash();
  }
  void CloseSplash() {
    if (QWidget* splash = Top("frmAbout")) QTest::mouseClick(splash, Qt::LeftButton);
    Settle();
  }

  // The next dialog or box that opens is handed to the step. One that opens without a step fails the test.
  void OnNextModal(std::function<void(QWidget*)> step) { steps_.push_back(std::move(step)); }
  void OnNextBox(QMessageBox::StandardButton button = QMessageBox::Ok) {
    OnNextModal([this, button](QWidget* widget) {
      auto* box = qobject_cast<QMessageBox*>(widget);
      ASSERT_TRUE(box != nullptr) << "a message box";
      texts.push_back(box->text());
      QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
  }
  bool AllModalsCame() const { return steps_.empty(); }

  QWidget* Widget(const char* name) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr)
      if (auto* found = modal->findChild<QWidget*>(name)) return found;
    QWidget* hidden = nullptr;
    for (QWidget* widget : app->window()->findChildren<QWidget*>(name)) {
      if (widget->isVisible()) return widget;
      hidden = widget;
    }
    return hidden;
  }
  template <typename Type>
  Type* Find(const char* name) {
    return qobject_cast<Type*>(Widget(name));
  }
  void Click(const char* name) {
    auto* button = Find<QPushButton>(name);
    ASSERT_TRUE(button != nullptr && button->isVisible() && button->isEnabled()) << name;
    QTest::mouseClick(button, Qt::LeftButton);
    Settle();
  }
  void Type(const char* name, const QString& text) {
    QWidget* field = Widget(name);
    ASSERT_TRUE(field != nullptr && field->isEnabled()) << name;
    field->setFocus();
    if (auto* line = qobject_cast<QLineEdit*>(field)) line->selectAll();
    if (auto* notes = qobject_cast<QPlainTextEdit*>(field)) notes->selectAll();
    QTest::keyClicks(field, text);
  }
  void Choose(const char* name, const QString& item) {
    auto* list = Find<ListField>(name);
    ASSERT_TRUE(list != nullptr && list->isEnabled() && !list->locked()) << name;
    const int index = list->findText(item);
    ASSERT_TRUE(index >= 0) << item.toStdString();
    list->setCurrentIndex(index);
    emit list->activated(index);
    Settle();
  }
  QString Text(const char* name) {
    QWidget* widget = Widget(name);
    if (auto* line = qobject_cast<QLineEdit*>(widget)) return line->text();
    if (auto* notes = qobject_cast<QPlainTextEdit*>(widget)) return notes->toPlainText();
    if (auto* list = qobject_cast<QComboBox*>(widget)) return list->currentText();
    if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    return {};
  }
  void Command(const char* name) {
    auto* action = app->window()->findChild<QAction*>(name);
    ASSERT_TRUE(action != nullptr && action->isEnabled() && action->isVisible()) << name;
    action->trigger();
    Settle();
  }
  void Select(const std::string& key) {
    Session& s = app->session();
    const int node = s.tree.Find(key);
    ASSERT_TRUE(node >= 0) << key;
    QTreeView& tree = app->window()->tree();
    ASSERT_TRUE(tree.isEnabled());
    tree.setCurrentIndex(static_cast<TreeModel*>(tree.model())->IndexOf(node));
    Settle();
  }
  Value Sql(const std::string& sql) { return app->session().db.Single(sql); }

  void FillNewOperator() {
    OnNextModal([this](QWidget*) {
      for (const auto& [name, text] :
           std::vector<std::pair<const char*, const char*>>{{"txtUserID", "12345"},
                                                            {"txtUSER_Company", "Blue Water"},
                                                            {"txtUSER_Address1", "1 Quay"},
                                                            {"txtUSER_City", "Port"},
                                                            {"txtUSER_State", "TX"},
                                                            {"txtUSER_Zip", "77001"},
                                                            {"txtUSER_Contact", "A. Person"},
                                                            {"txtUSER_Phone", "5551234567"},
                                                            {"txtUSER_Email", "a@b.example"}})
        Type(name, text);
      Click("cmdOK");
    });
  }

  // Lets the program draw, and gives its window the keyboard as a window manager would.
  void Settle() {
    QCoreApplication::processEvents();
    QWidget* top = QApplication::activeModalWidget();
    if (top == nullptr) top = app->window();
    if (top == nullptr || !top->isVisible() || top->isActiveWindow()) return;
    top->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(top));
  }
  QWidget* Top(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == name && widget->isVisible()) return widget;
    return nullptr;
  }

  const std::string& path() const { return path_; }
  const TemporaryFolder& folder() const { return folder_; }

 private:
  TemporaryFolder folder_;  // goes last, as the program stores its settings when it ends

 public:
  std::unique_ptr<DesktopApp> app;
  std::deque<QString> texts;  // of the boxes that were answered

 private:
  // Looks for an unhandled dialog whenever the event loop is idle.
  void Watch() {
    QTimer::singleShot(1, &guard_, [this] {
      Watch();
      auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (modal == nullptr || !watches_ || std::count(in_hand_.begin(), in_hand_.end(), modal) > 0) return;
      if (steps_.empty()) return CloseUnexpected(*modal);
      const auto step = std::move(steps_.front());
      steps_.pop_front();
      in_hand_.emplace_back(modal);
      Settle();
      step(modal);
      in_hand_.pop_back();
    });
  }
  // What no step waits for would keep the test waiting for ever.
  void CloseUnexpected(QDialog& modal) {
    auto* box = qobject_cast<QMessageBox*>(&modal);
    // the question that follows every edit that is left; tests of it wait for it
    if (box != nullptr && box->text() == "Drop what was typed?") {
      EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No)) << "Enter keeps what was typed";
      return box->button(QMessageBox::Yes)->click();
    }
    ADD_FAILURE() << "a dialog that nobody expected: " << modal.objectName().toStdString() << " \""
                  << (box == nullptr ? modal.windowTitle() : box->text()).toStdString() << "\"";
    modal.reject();
  }

  std::string path_;
  std::deque<std::function<void(QWidget*)>> steps_;
  std::vector<QPointer<QWidget>> in_hand_;  // dialogs whose step is at work
  bool watches_ = true;
  QObject guard_;  // ends the waiting timers with the driver
};

}  // namespace merlu::test
