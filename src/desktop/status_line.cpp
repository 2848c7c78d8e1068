#include "desktop/status_line.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTime>

#include "desktop/fields.h"
#include "shell/status.h"

namespace merlu {
namespace {

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

StatusLine::StatusLine(Session& session, QStatusBar& bar)
    : QObject(&bar),
      s_(session),
      path_(new ElidedLabel(&bar)),
      message_(new QLabel(&bar)),
      findings_(new QLabel(&bar)) {
  path_->setObjectName("SB1");
  message_->setObjectName("message");
  findings_->setObjectName("findings");
  bar.addWidget(path_, 1);
  bar.addPermanentWidget(message_);
  bar.addPermanentWidget(findings_);
}

// The findings of the place.
QString StatusLine::FindingsText() const {
  if (!s_.db.IsOpen() || s_.current.Is(level::kUser) || s_.current.Level.empty()) return {};
  if (!IsStatusKnown(s_)) return tr("The findings cannot be counted now");
  if (!s_.checked) return tr("Not checked yet");
  if (s_.findings == 0) return tr("No findings");
  const QString all = s_.findings == 1 ? tr("1 finding") : tr("%1 findings").arg(s_.findings);
  return s_.unexplained == 0 ? tr("%1, all with a comment").arg(all)
                             : tr("%1, %2 without comment").arg(all).arg(s_.unexplained);
}

// "Saved 14:02"; any other message unchanged.
QString StatusLine::MessageText() {
  if (s_.message != "Saved") return Q(s_.message);
  if (const auto changes = s_.db.ChangeCount(); shown_ != "Saved" || saved_at_change_ != changes) {
    saved_at_change_ = changes;
    const DateTime now = s_.host.Now();
    saved_at_ = QTime(now.hour, now.minute).toString("HH:mm");
  }
  return Q(s_.message) + " " + saved_at_;
}

void StatusLine::Sync() {
  path_->setText(Q(s_.status_text));
  const QString mode = s_.InDesc() ? tr("Description Edit Mode") : s_.InActv() ? tr("Activity Edit Mode") : QString();
  message_->setText(MessageText());
  shown_ = s_.message;
  const QString file = s_.db.IsOpen() ? QFileInfo(Q(s_.path)).fileName() : QString();
  findings_->setText(QStringList({FindingsText(), mode, file}).filter(QRegularExpression(".")).join("  ·  "));
}

}  // namespace merlu
