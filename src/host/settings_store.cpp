#include "host/settings_store.h"

#include <QFile>
#include <QSettings>
#include <QVariant>

#include "base/fault.h"

namespace merlu {
namespace {

constexpr const char* kApplication = "MERLU2017";
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

QString Key(const std::string& section, const std::string& key) {
  return QString::fromStdString(section) + "/" + QString::fromStdString(key);
}

}  // namespace

bool CanHoldSettings(const std::string& file) {
  QFile in(QString::fromStdString(file));
  if (!in.open(QIODevice::ReadOnly)) return true;
  bool goes_on = false;  // the line before ended in a backslash
  for (bool first = true; !in.atEnd(); first = false) {
    QByteArray line = in.readLine().trimmed();
    if (first && line.startsWith(kByteOrderMark)) line.remove(0, 3);
    const bool known = goes_on || line.isEmpty() || line.startsWith(';') || line.startsWith('#') ||
                       line.startsWith('[') || line.contains('=');
    if (!known || line.contains('\0')) return false;
    goes_on = line.endsWith('\\');
  }
  return true;
}

SettingsStore::SettingsStore(const std::string& file)
    : settings_(file.empty() ? std::make_unique<QSettings>(kApplication, kApplication)
                             : std::make_unique<QSettings>(QString::fromStdString(file), QSettings::IniFormat)) {}

SettingsStore::~SettingsStore() = default;

std::string SettingsStore::Value(const std::string& section, const std::string& key) const {
  const QVariant value = settings_->value(Key(section, key));
  return value.typeId() == QMetaType::QByteArray ? value.toByteArray().toStdString() : value.toString().toStdString();
}

void SettingsStore::Store(const std::string& section, const std::string& key, const std::string& value) {
  const QString text = QString::fromStdString(value);
  // a file name need not be text: its bytes are kept then
  const bool is_text = text.toStdString() == value;
  settings_->setValue(Key(section, key), is_text ? QVariant(text) : QVariant(QByteArray::fromStdString(value)));
  settings_->sync();
  const bool written = settings_->status() == QSettings::NoError;
  const bool tell = !written && !reported_;
  reported_ = !written;
  if (tell)
    throw Fault(fault_number::kFileAccess, "MERLU settings",
                "The settings cannot be written to " + settings_->fileName().toStdString() +
                    ". What is chosen now lasts until the program ends.");
}

}  // namespace merlu
