// The command that changes the port number and the line settings.
#pragma once

#include "platform/dialogs.h"
#include "platform/serial_control.h"

namespace varno {

class SerialSettingsCommand {
  public:
    SerialSettingsCommand(SerialControl& MSComm1, Dialogs& dialogs)
        : MSComm1_(MSComm1), dialogs_(dialogs) {}

    // Applies port number and settings each for itself: a bad one does not stop the other.
    void Serial_Click();

  private:
    Error ApplyPort(const std::string& entry);
    void Report(const Error& error);

    SerialControl& MSComm1_;
    Dialogs& dialogs_;
};

}  // namespace varno
