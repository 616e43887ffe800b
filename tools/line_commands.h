// The commands that use the serial line.
#pragma once

#include <string>

#include "tools/commands.h"

namespace varno {

void Ports(const Request& request);
void Receive(const Request& request);
void Send(const Request& request);
void Verify(const Request& request);

// Whether an operand means a serial port, in place of a file.
bool IsPort(const std::string& operand);

struct Received {
    std::string image;
    std::string port;  // as sentences call it
};

// The sound image that the indicator sends. One that comes damaged is refused, unless the operator
// wants to try again; what came is kept in the file `damaged`, if one is named.
Received ReceivedBlock(const Request& request, const std::string& damaged = "");

}  // namespace varno
