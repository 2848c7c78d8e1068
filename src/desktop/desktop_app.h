// The program in windows: the platform that boxes, dialogs and painting go through, and the windows that
// show the session's forms.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <memory>

#include "desktop/acts.h"
#include "desktop/form_dialog.h"
#include "desktop/main_window.h"
#include "host/real_host.h"
#include "shell/ui.h"

namespace merlu {

class DesktopApp : public QObject, public Platform, public RealHost {
  Q_OBJECT
 public:
  // An empty settings file means the user's own settings.
  explicit DesktopApp(const std::string& settings_file);
  ~DesktopApp() override;

  // Runs the start, on the given inventory or on that of the settings; false when the program has ended in it.
  bool Start(const std::string& file = "");
  Session& session() { return session_; }
  MainWindow* window() { return window_.get(); }
  Acts& acts() { return acts_; }

  Button Ask(const Box& box) override;
  std::string AskFile(const FileQuestion& question) override;
  std::string AskFolder(const std::string& prompt) override;
  void RunModal(Form& form) override;
  void Paint() override;
  void PaintWait(const WaitScreen& wait) override;
  void AllowStop() override { can_stop_ = true; }
  bool IsStopWanted() override;
  void SetBusy(bool busy) override;
  void Beep() override;
  void Print(const Form& form) override;
  void OpenDocument(const std::string& path) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct HeldKey {
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    QString text;
  };

  void HoldKeys();
  void GiveKeys(int tries);
  QAction* CommandFor(const HeldKey& key) const;
  void Sync();
  void SyncSplash();
  DialogWindow* MakeDialog(Form& form);
  QWidget* Parent() const;

  Session session_{*this, *this, *this};
  Acts acts_{session_};
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<QWidget> splash_;
  std::unique_ptr<QWidget> wait_;
  std::vector<QPointer<DialogWindow>> dialogs_;
  QElapsedTimer painted_, waiting_;
  bool was_painted_ = false;
  bool holding_ = false;
  bool can_stop_ = false;      // whether the wait screen has a Stop button
  std::vector<HeldKey> held_;  // typed while the program was busy
};

}  // namespace merlu
