#include "platform/settings_store.h"

#include <charconv>

namespace varno {

int GetNumber(const SettingsStore& store, const std::string& section, const std::string& key,
              int defaultValue) {
    const std::string text = store.GetSetting(section, key, std::to_string(defaultValue));
    int number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : 0;
}

}  // namespace varno
