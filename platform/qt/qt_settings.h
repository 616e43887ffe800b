// The per-user settings as an INI file named after the program.
#pragma once

#include <QSettings>

#include "platform/settings_store.h"

namespace varno {

class QtSettings final : public SettingsStore {
  public:
    explicit QtSettings(const std::string& applicationName);
    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& defaultValue) const override;
    void SaveSetting(const std::string& section, const std::string& key,
                     const std::string& value) override;

  private:
    QSettings settings_;
};

}  // namespace varno
