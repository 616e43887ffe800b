#include "platform/qt/qt_settings.h"

#include <QStandardPaths>

#include "platform/qt/measures.h"

namespace varno {
namespace {

QString SettingsFile(const std::string& applicationName) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           ToQt(applicationName) + QStringLiteral(".ini");
}

QString Key(const std::string& section, const std::string& key) {
    return ToQt(section) + u'/' + ToQt(key);
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
    return FromQt(value.toStringList().join(u','));
}

void QtSettings::SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) {
    settings_.setValue(Key(section, key), ToQt(value));
}

}  // namespace varno
