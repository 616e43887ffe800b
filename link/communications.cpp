#include "link/communications.h"

#include "platform/serial/serial_settings.h"

namespace varno {
namespace {

constexpr const char* Section = "Communications";
constexpr const char* PortKey = "COM";
constexpr const char* SettingsKey = "Settings";

const std::string DefaultSettings(DefaultSerialSettings);

}  // namespace

void LoadCommunications(const SettingsStore& store, SerialControl& serial) {
    if (serial.SetCommPort(GetNumber(store, Section, PortKey, DefaultCommPort))) {
        (void)serial.SetCommPort(DefaultCommPort);
    }
    if (serial.SetSettings(store.GetSetting(Section, SettingsKey, DefaultSettings))) {
        (void)serial.SetSettings(DefaultSettings);
    }
}

void SaveCommunications(SettingsStore& store, const SerialControl& serial) {
    store.SaveSetting(Section, PortKey, std::to_string(serial.CommPort()));
    store.SaveSetting(Section, SettingsKey, serial.Settings());
}

}  // namespace varno
