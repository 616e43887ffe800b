#include "platform/qt/qt_settings.h"

#include <QStandardPaths>

namespace varno {
namespace {

QString SettingsFile(const std::string& applicationName) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           QString::fromStdString(applicationName) + QStringLiteral(".ini");
}

QString Key(const std::string& section, const std::string& key) {
    return QString::fromStdString(section) + u'/' + QString::fromStdString(key);
}

}  // namespace

QtSettings::QtSettings(const std::string& applicationName)
    : settings_(SettingsFile(applicationName), QSettings::IniFormat) {}

std::string QtSettings::GetSetting(const std::string& section, const std::string& key,
                                   const std::string& defaultValue) const {
    const QVariant value = settings_.value(Key(section, key));
    if (!value.isValid()) {
        return defaultValue;
    }
    // A text with commas that was written by hand, without quotation marks, reads as a list.
    return value.toStringList().join(u',').toStdString();
}

void QtSettings::SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) {
    settings_.setValue(Key(section, key), QString::fromStdString(value));
}

}  // namespace varno
