#include "link/serial_settings_command.h"

#include "link/port_entry.h"

namespace varno {

namespace {

constexpr const char* Prompt =
    "\r\n\r\n\r\n"
    "Enter PC's Serial Port Parameters\r\n"
    "(COM: BaudRate, Parity, DataBits, StopBits)";

}  // namespace

void SerialSettingsCommand::Serial_Click() {
    const std::string entry = dialogs_.InputBox(
        Prompt, "COM Port Parameters", PortEntry(msComm1_.CommPort(), msComm1_.Settings()));
    if (entry.empty()) {
        return;
    }
    Report(ApplyPort(entry));
    Report(msComm1_.SetSettings(std::string(EnteredSettings(entry))));
}

Error SerialSettingsCommand::ApplyPort(const std::string& entry) {
    const std::variant<int, std::string> port = EnteredPort(entry);
    if (const auto* reason = std::get_if<std::string>(&port)) {
        return *reason;
    }
    return msComm1_.SetCommPort(std::get<int>(port));
}

void SerialSettingsCommand::Report(const Error& error) {
    if (error) {
        dialogs_.ShowMessage(*error, "ERROR", Buttons::Ok, Icon::Critical);
    }
}

}  // namespace varno
