// The command that changes the port number and the line settings.
#pragma once

#include "platform/dialogs.h"
#include "platform/serial/serial_control.h"

namespace varno {

class SerialSettingsCommand {
  public:
    SerialSettingsCommand(SerialControl& msComm1, Dialogs& dialogs)
        : msComm1_(msComm1), dialogs_(dialogs) {}

    // Applies port number and settings each for itself: a bad one does not stop the other.
    void Serial_Click();

  private:
    Error ApplyPort(const std::string& entry);
    void Report(const Error& error);

    SerialControl& msComm1_;
    Dialogs& dialogs_;
};

}  // namespace varno
