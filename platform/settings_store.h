// The per-user settings: text values by section and key, under the executable's name.
#pragma once

#include <string>

namespace varno {

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    virtual std::string GetSetting(const std::string& section, const std::string& key,
                                   const std::string& defaultValue) const = 0;
    virtual void SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) = 0;
};

// The number that a value begins with, 0 without one or beyond all measure.
int GetNumber(const SettingsStore& store, const std::string& section, const std::string& key,
              int defaultValue);

}  // namespace varno
