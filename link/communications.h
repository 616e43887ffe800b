// The port and its settings, as they are kept from one start of the program to the next.
#pragma once

#include "platform/serial/serial_control.h"
#include "platform/settings_store.h"

namespace varno {

inline constexpr int InBufferSize = 8092;  // characters that can wait to be read

// A stored value that the serial control refuses falls back to its default.
void LoadCommunications(const SettingsStore& store, SerialControl& serial);
void SaveCommunications(SettingsStore& store, const SerialControl& serial);

}  // namespace varno
