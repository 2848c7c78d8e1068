#include "host/settings_store.h"

#include <QSettings>

namespace merlu {
namespace {

constexpr const char* kApplication = "MERLU2017";

QString Key(const std::string& section, const std::string& key) {
  return QString::fromStdString(section) + "/" + QString::fromStdString(key);
}

}  // namespace

SettingsStore::SettingsStore(const std::string& file)
    : settings_(file.empty() ? std::make_unique<QSettings>(kApplication, kApplication)
                             : std::make_unique<QSettings>(QString::fromStdString(file), QSettings::IniFormat)) {}

SettingsStore::~SettingsStore() = default;

std::string SettingsStore::Value(const std::string& section, const std::string& key) const {
  return settings_->value(Key(section, key)).toString().toStdString();
}

void SettingsStore::Store(const std::string& section, const std::string& key, const std::string& value) {
  settings_->setValue(Key(section, key), QString::fromStdString(value));
  settings_->sync();
}

}  // namespace merlu
