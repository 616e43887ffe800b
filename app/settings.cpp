#include "app/settings.h"

#include <array>
#include <charconv>

namespace varno {
namespace {

constexpr const char* FoldersSection = "Folders";
constexpr const char* CommunicationsSection = "Communications";
constexpr const char* WindowSizeSection = "WindowSize";

constexpr int DefaultPort = 1;
constexpr const char* DefaultSettings = "9600,n,8,1";

struct FolderKey {
    const char* key;
    std::string Folders::*folder;
};

constexpr std::array FolderKeys{
    FolderKey{"LoadTicket", &Folders::LoadTicketFolder},
    FolderKey{"SaveTicket", &Folders::SaveTicketFolder},
    FolderKey{"LoadList", &Folders::LoadListFolder},
    FolderKey{"SaveList", &Folders::SaveListFolder},
};

struct PlaceKey {
    const char* key;
    int Place::*measure;
};

constexpr std::array PlaceKeys{
    PlaceKey{"Top", &Place::top},
    PlaceKey{"Left", &Place::left},
    PlaceKey{"Width", &Place::width},
    PlaceKey{"Height", &Place::height},
};

// The number a text begins with, 0 without one or beyond all measure.
int NumberIn(const std::string& text) {
    int number = 0;
    const char* begin = text.data();
    const char* end = begin + text.size();
    const auto result = std::from_chars(begin, end, number);
    return result.ec == std::errc() ? number : 0;
}

}  // namespace

void LoadFolders(const SettingsStore& store, Folders& folders) {
    for (const FolderKey& row : FolderKeys) {
        folders.*row.folder = store.GetSetting(FoldersSection, row.key, "");
    }
}

void SaveFolders(SettingsStore& store, const Folders& folders) {
    for (const FolderKey& row : FolderKeys) {
        store.SaveSetting(FoldersSection, row.key, folders.*row.folder);
    }
}

void LoadCommunications(const SettingsStore& store, SerialControl& serial) {
    const std::string port = store.GetSetting(CommunicationsSection, "COM", "1");
    if (serial.SetCommPort(NumberIn(port))) {
        (void)serial.SetCommPort(DefaultPort);
    }
    if (serial.SetSettings(store.GetSetting(CommunicationsSection, "Settings", DefaultSettings))) {
        (void)serial.SetSettings(DefaultSettings);
    }
}

void SaveCommunications(SettingsStore& store, const SerialControl& serial) {
    store.SaveSetting(CommunicationsSection, "COM", std::to_string(serial.CommPort()));
    store.SaveSetting(CommunicationsSection, "Settings", serial.Settings());
}

void LoadWindowSize(const SettingsStore& store, Window& window) {
    Place place;
    for (const PlaceKey& row : PlaceKeys) {
        place.*row.measure = NumberIn(store.GetSetting(WindowSizeSection, row.key, "0"));
    }
    window.SetOuterPlace(place);
    const int state = NumberIn(store.GetSetting(WindowSizeSection, "State", "0"));
    if (state >= 0 && state <= static_cast<int>(WindowState::Maximised)) {
        window.SetState(static_cast<WindowState>(state));
    }
}

void SaveWindowSize(SettingsStore& store, const Window& window) {
    const WindowState state = window.State();
    store.SaveSetting(WindowSizeSection, "State", std::to_string(static_cast<int>(state)));
    if (state != WindowState::Normal) {
        return;
    }
    const Place place = window.OuterPlace();
    for (const PlaceKey& row : PlaceKeys) {
        store.SaveSetting(WindowSizeSection, row.key, std::to_string(place.*row.measure));
    }
}

}  // namespace varno
