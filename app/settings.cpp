#include "app/settings.h"

#include <array>

namespace varno {
namespace {

constexpr const char* FoldersSection = "Folders";
constexpr const char* WindowSizeSection = "WindowSize";
constexpr const char* EditorSection = "Editor";
constexpr const char* ShowMarksKey = "ShowMarks";

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

void LoadWindowSize(const SettingsStore& store, Window& window) {
    Place place;
    for (const PlaceKey& row : PlaceKeys) {
        place.*row.measure = GetNumber(store, WindowSizeSection, row.key, 0);
    }
    window.SetOuterPlace(place);
    const int state = GetNumber(store, WindowSizeSection, "State", 0);
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

bool LoadShowsMarks(const SettingsStore& store) {
    return GetNumber(store, EditorSection, ShowMarksKey, 0) == 1;
}

void SaveShowsMarks(SettingsStore& store, bool shows) {
    store.SaveSetting(EditorSection, ShowMarksKey, shows ? "1" : "0");
}

}  // namespace varno
