#include "desktop/desktop_app.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDateTime>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <utility>

#include "desktop/about_window.h"
#include "desktop/help_dialog.h"
#include "desktop/print_form.h"
#include "desktop/wait_window.h"
#include "host/report_pdf.h"
#include "shell/dialogs.h"
#include "shell/draft.h"
#include "shell/file_life.h"
#include "shell/main_program.h"
#include "shell/messages.h"

namespace merlu {
namespace {

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel: return true;
    default: return false;
  }
}

constexpr int kWaitPaintsEvery = 80, kShortWork = 150, kWindowComesWithin = 100;  // milliseconds

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

QMessageBox::StandardButton Standard(Button button) {
  switch (button) {
    case Button::kOK: return QMessageBox::Ok;
    case Button::kCancel: return QMessageBox::Cancel;
    case Button::kYes: return QMessageBox::Yes;
    case Button::kNo: return QMessageBox::No;
    case Button::kRetry: return QMessageBox::Retry;
  }
  return QMessageBox::NoButton;
}

QMessageBox::Icon Picture(Icon icon) {
  switch (icon) {
    case Icon::kNone: return QMessageBox::NoIcon;
    case Icon::kInfo: return QMessageBox::Information;
    case Icon::kQuestion: return QMessageBox::Question;
    case Icon::kWarning: return QMessageBox::Warning;
    case Icon::kStop: return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

// Both cases of the pattern: names are matched without regard to case.
QString Filter(const FileQuestion::Type& type) {
  const QString pattern = Q(type.pattern);
  return Q(type.filter_name).trimmed() + " (" + pattern.toLower() + " " + pattern.toUpper() + ")";
}

// The types of files in the dialog's list; the one that is chosen gives a name without extension its own.
void OfferTypes(QFileDialog& dialog, const FileQuestion& question) {
  std::vector<FileQuestion::Type> types = {{question.filter_name, question.pattern, question.extension}};
  types.insert(types.end(), question.others.begin(), question.others.end());
  QStringList filters;
  for (const FileQuestion::Type& type : types) filters << Filter(type);
  // the pattern is not repeated when the name contains it
  dialog.setOption(QFileDialog::HideNameFilterDetails, question.filter_name.find('*') != std::string::npos);
  dialog.setNameFilters(filters);
  dialog.setDefaultSuffix(Q(question.extension));
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, types](const QString& filter) {
    // with or without the pattern after the name
    for (const FileQuestion::Type& type : types)
      if (filter.startsWith(Q(type.filter_name).trimmed())) dialog.setDefaultSuffix(Q(type.extension));
  });
}

constexpr int kDraftMilliseconds = 1000;
constexpr int kTriesToGive = 100;  // of 20 milliseconds
constexpr const char *kUnwanted = "Unwanted", *kSet = "1";
constexpr const char *kFolders = "Folders", *kSaved = "Saved";

}  // namespace

DesktopApp::DesktopApp(const std::string& settings_file) : RealHost(settings_file) {
  connect(&acts_, &Acts::Changed, this, &DesktopApp::Sync);
  qApp->installEventFilter(this);
  auto* draft = new QTimer(this);
  connect(draft, &QTimer::timeout, this, [this] { KeepDraftOfEdit(session_); });
  draft->start(kDraftMilliseconds);
}

DesktopApp::~DesktopApp() {
  qApp->removeEventFilter(this);
}

bool DesktopApp::Start(const std::string& file) {
  acts_.Run([&] {
    // one that is refused leaves the file of the last run
    if (!file.empty()) TakeDatabase(session_, file);
    Main(session_);
  });
  return !session_.ended && window_ != nullptr;
}

QWidget* DesktopApp::Parent() const {
  for (auto at = dialogs_.rbegin(); at != dialogs_.rend(); ++at)
    if (*at != nullptr && (*at)->isVisible()) return *at;
  return window_.get();
}

// ---- drawing ----

void DesktopApp::Sync() {
  if (session_.ended) {
    splash_.reset();
    if (window_ != nullptr) window_->hide();
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    return;
  }
  if (session_.main != nullptr && session_.main->visible) {
    if (window_ == nullptr) window_ = std::make_unique<MainWindow>(acts_, settings());
    window_->Sync();
    if (window_->isHidden()) window_->show();
  }
  for (const auto& dialog : dialogs_)
    if (dialog != nullptr) dialog->Sync();
  SyncSplash();
}

void DesktopApp::SyncSplash() {
  Form* about = session_.desk.Find(kAboutForm);
  const bool shows = about != nullptr && about->visible && !about->modal;
  if (!shows) {
    if (splash_ != nullptr) splash_.release()->deleteLater();
    return;
  }
  if (splash_ != nullptr || window_ == nullptr) return;
  splash_ = std::make_unique<Splash>(acts_, *about, window_.get());
  splash_->show();
}

bool DesktopApp::eventFilter(QObject* watched, QEvent* event) {
  if (holding_ && event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    held_.push_back({key.key(), key.modifiers(), key.text()});
  }
  if (holding_ && IsInput(event->type())) return true;
  const bool touched = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress;
  if (touched && splash_ != nullptr && !acts_.IsDrawing()) acts_.Run([this] { CloseSplash(session_); });
  return QObject::eventFilter(watched, event);
}

// What was typed while the program was at work is meant for the fields, not for the box that comes now.
void DesktopApp::HoldKeys() {
  holding_ = true;
  QCoreApplication::processEvents();
  holding_ = false;
}

// The window's command for the keys; null without one that can be given.
QAction* DesktopApp::CommandFor(const HeldKey& key) const {
  if (window_ == nullptr || !(key.modifiers & (Qt::ControlModifier | Qt::AltModifier))) return nullptr;
  const QKeySequence pressed(QKeyCombination(key.modifiers, static_cast<Qt::Key>(key.key)));
  for (QAction* action : window_->findChildren<QAction*>())
    if (action->isEnabled() && action->shortcutContext() != Qt::WidgetShortcut && action->shortcuts().contains(pressed))
      return action;
  return nullptr;
}

// When the box has closed and the window has the keyboard again.
void DesktopApp::GiveKeys(int tries) {
  if (QApplication::activeModalWidget() != nullptr || QApplication::focusWidget() == nullptr) {
    if (tries > 0) QTimer::singleShot(20, this, [this, tries] { GiveKeys(tries - 1); });
    return;
  }
  const std::vector<HeldKey> keys = std::exchange(held_, {});
  for (const HeldKey& key : keys) {
    if (QAction* command = CommandFor(key)) {
      command->trigger();
      continue;
    }
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key.key, key.modifiers, key.text);
      if (QWidget* focus = QApplication::focusWidget()) QCoreApplication::sendEvent(focus, &event);
    }
  }
}

// Docks are as they were after the last act; at the start they are read behind the first painting.
void DesktopApp::Paint() {
  acts_.Redraw();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  if (window_ == nullptr || std::exchange(was_painted_, true)) return;
  // the window system may take a moment to have the window
  QElapsedTimer waiting;
  waiting.start();
  while (!window_->windowHandle()->isExposed() && waiting.elapsed() < kWindowComesWithin)
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kWindowComesWithin / 10);
}

void DesktopApp::PaintWait(const WaitScreen& wait) {
  if (!wait.showing) {
    wait_.reset();
    waiting_.invalidate();
    can_stop_ = false;
    return;
  }
  if (!waiting_.isValid()) waiting_.start();
  if (wait_ == nullptr && !wait.at_once && waiting_.elapsed() < kShortWork) return;
  if (wait_ != nullptr && painted_.elapsed() < kWaitPaintsEvery) return;
  if (wait_ == nullptr) wait_ = std::make_unique<WaitWindow>(Parent(), can_stop_);
  static_cast<WaitWindow*>(wait_.get())->Show(wait);
  painted_.start();
  // the window that can stop the work blocks all others
  QCoreApplication::processEvents(can_stop_ ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

bool DesktopApp::IsStopWanted() {
  return wait_ != nullptr && static_cast<WaitWindow*>(wait_.get())->IsStopWanted();
}

void DesktopApp::SetBusy(bool busy) {
  if (busy)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void DesktopApp::Beep() {
  QApplication::beep();
}

// ---- boxes and dialogs ----

Button DesktopApp::Ask(const Box& box) {
  if (!box.setting.empty() && Setting(kUnwanted, box.setting) == kSet) return box.buttons.front();
  acts_.Refresh();  // the window behind the box shows the state that the box is about
  QMessageBox message(Parent());
  message.setWindowTitle(Q(box.title));
  message.setTextFormat(Qt::PlainText);
  message.setText(Q(box.text));
  if (!box.detail.empty()) message.setInformativeText(Q(box.detail));
  message.setIcon(Picture(box.icon));
  for (Button button : box.buttons) message.addButton(Standard(button));
  message.setDefaultButton(Standard(box.buttons.at(box.preset)));
  SetLook(*message.defaultButton(), "main", true);
  message.setEscapeButton(Standard(LeastChange(box)));
  auto* again = box.setting.empty() ? nullptr : new QCheckBox(tr("Do not show again"), &message);
  if (again != nullptr) {
    again->setObjectName("doNotShowAgain");
    again->setChecked(true);
    message.setCheckBox(again);
  }
  // the busy pointer must not be shown while the box waits for the user
  const bool busy = QApplication::overrideCursor() != nullptr;
  HoldKeys();
  if (busy) QApplication::setOverrideCursor(Qt::ArrowCursor);
  const auto pressed = static_cast<QMessageBox::StandardButton>(message.exec());
  if (busy) QApplication::restoreOverrideCursor();
  if (!held_.empty()) QTimer::singleShot(0, this, [this] { GiveKeys(kTriesToGive); });
  if (again != nullptr && again->isChecked()) KeepSetting(session_, kUnwanted, box.setting, kSet);
  for (Button button : box.buttons)
    if (Standard(button) == pressed) return button;
  return LeastChange(box);
}

std::string DesktopApp::AskFile(const FileQuestion& question) {
  QFileDialog dialog(Parent(), Q(question.title));
  const bool save = question.kind == FileQuestion::Kind::kSave;
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  OfferTypes(dialog, question);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.overwrites);
  const QString used = Q(Setting(kFolders, kSaved));
  dialog.setDirectory(save && QFileInfo(used).isDir() ? used : QFileInfo(Q(session_.path)).absolutePath());
  if (!question.name.empty()) dialog.selectFile(Q(question.name));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return "";
  const QString path = dialog.selectedFiles().first();
  if (save) KeepSetting(session_, kFolders, kSaved, QFileInfo(path).absolutePath().toStdString());
  return path.toStdString();
}

std::string DesktopApp::AskFolder(const std::string& prompt) {
  return QFileDialog::getExistingDirectory(Parent(), Q(prompt), QFileInfo(Q(session_.path)).absolutePath())
      .toStdString();
}

DialogWindow* DesktopApp::MakeDialog(Form& form) {
  const auto& controls = form.controls();
  const bool help =
      std::any_of(controls.begin(), controls.end(), [](const Control& c) { return c.document != nullptr; });
  if (help) return new HelpDialog(acts_, form, settings(), Parent());
  return new FormDialog(acts_, form, Parent());
}

void DesktopApp::RunModal(Form& form) {
  QPointer<DialogWindow> dialog = MakeDialog(form);
  dialogs_.push_back(dialog);
  acts_.Refresh();
  dialog->Sync();
  dialog->show();
  // focus is taken once the window is there
  dialog->Sync();
  QEventLoop loop;
  connect(&acts_, &Acts::Changed, &loop, [&] {
    if (!form.visible) loop.quit();
  });
  connect(qApp, &QCoreApplication::aboutToQuit, &loop, &QEventLoop::quit);
  if (form.visible) loop.exec();
  std::erase(dialogs_, dialog);
  // not deleteLater: its form may be destroyed before that
  delete dialog;
}

// ---- the outside world ----

void DesktopApp::Print(const Form& form) {
  QWidget* widget = &form == session_.main ? window_.get() : window_->findChild<QWidget*>(Q(form.name()));
  if (widget == nullptr) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(Q(form.caption));
  QPrintDialog dialog(&printer, Parent());
  if (dialog.exec() != QDialog::Accepted) return;
  const Busy busy(session_);
  PrintWidget(*widget, printer);
}

void DesktopApp::OpenDocument(const std::string& path) {
  // the bytes of the name as they are, also where they are no text
  const QUrl url = QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
  if (!QDesktopServices::openUrl(url))
    Tell(session_, "No program here opens this file. It stands at\n" + path, Icon::kInfo);
}

}  // namespace merlu
