// All that the program is given to run on.
#pragma once

#include <memory>
#include <string>

#include "platform/dialogs.h"
#include "platform/serial/serial_control.h"
#include "platform/settings_store.h"
#include "platform/window.h"

namespace varno {

// What the program knows of itself.
struct ProgramInfo {
    std::string exeName;      // file name without extension
    std::string folder;       // of the executable, found through links
    std::string portsFolder;  // the user's own numbering of serial ports
    std::string commandLine;  // the arguments, joined by blanks
};

// The title of message boxes that have none of their own.
inline constexpr const char* ApplicationTitle = "Varno Ticket Formatter";

class Platform {
  public:
    virtual ~Platform() = default;
    virtual const ProgramInfo& App() const = 0;
    virtual std::unique_ptr<Window> CreateWindow(const WindowDesign& design) = 0;
    // `inBufferSize`: characters that can wait to be read.
    virtual std::unique_ptr<SerialControl> CreateSerialControl(int inBufferSize) = 0;
    virtual Dialogs& DialogBoxes() = 0;
    virtual SettingsStore& Settings() = 0;
    // Shows a file with the program that the desktop has for its kind, and goes on.
    [[nodiscard]] virtual Error OpenDocument(const std::string& path) = 0;
    // Handles the events that wait, then returns. Only the download and the terminal call it.
    virtual void DoEvents() = 0;
    // Ends the event loop; the program's other windows close with it.
    virtual void Quit() = 0;
};

}  // namespace varno
