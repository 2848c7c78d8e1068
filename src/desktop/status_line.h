// The texts of the main window's status bar.
#pragma once

#include <QLabel>
#include <QStatusBar>

#include <cstdint>
#include <string>

#include "session/session.h"

namespace merlu {

class StatusLine : public QObject {
  Q_OBJECT
 public:
  // The labels belong to the bar.
  StatusLine(Session& session, QStatusBar& bar);
  // Draws what changed. Reads only what the session already holds.
  void Sync();

 private:
  QString FindingsText() const;
  QString MessageText();

  Session& s_;
  QLabel* path_;
  QLabel* message_;
  QLabel* findings_;
  std::string shown_;                 // the message that is shown
  QString saved_at_;                  // time of the last save
  std::int64_t saved_at_change_ = 0;  // the store's change count at that time
};

}  // namespace merlu
