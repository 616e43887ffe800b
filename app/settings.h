// The per-user settings: read when the program starts, written when it closes if nothing else is
// said.
#pragma once

#include "app/working_state.h"
#include "platform/settings_store.h"
#include "platform/window.h"

namespace varno {

// Each part of the table, read and written.
void LoadFolders(const SettingsStore& store, Folders& folders);
void SaveFolders(SettingsStore& store, const Folders& folders);

void LoadWindowSize(const SettingsStore& store, Window& window);
// Place and size only of a window in its normal state.
void SaveWindowSize(SettingsStore& store, const Window& window);

// Whether the editor tells marks apart by more than their colours. Written whenever it changes: who
// needs it finds it again after a crash, and no other program that closes takes it back.
bool LoadShowsMarks(const SettingsStore& store);
void SaveShowsMarks(SettingsStore& store, bool shows);

}  // namespace varno
