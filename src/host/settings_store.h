// The per-user settings, kept by the desktop's own means or in an ini file of one's choice.
#pragma once

#include <memory>
#include <string>

class QSettings;

namespace merlu {

// Whether the file is missing, or holds sections, settings and comments alone. Any other would be lost at the first
// setting that is stored.
bool CanHoldSettings(const std::string& file);

class SettingsStore {
 public:
  // An empty file means the user's own settings.
  explicit SettingsStore(const std::string& file);
  ~SettingsStore();

  std::string Value(const std::string& section, const std::string& key) const;
  // This run keeps the value also where the settings cannot be written; the first such failure is a kFileAccess.
  void Store(const std::string& section, const std::string& key, const std::string& value);
  QSettings& settings() { return *settings_; }

 private:
  std::unique_ptr<QSettings> settings_;
  bool reported_ = false;  // the failure to write them was reported
};

}  // namespace merlu
