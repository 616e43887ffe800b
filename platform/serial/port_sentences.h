// Why a port cannot be opened and what to do about it, in the operator's words.
#pragma once

#include <string>

#include "platform/serial/port_numbers.h"

namespace varno {

// Says which ports there are, too: those in `present`.
std::string MissingPortSentence(const std::string& name, const PortNumbers& present);

// `name` is a port as sentences call it: "COM3 (/dev/ttyUSB0)".
std::string ForbiddenPortSentence(const std::string& name);
std::string BusyPortSentence(const std::string& name);
std::string LostPortSentence(const std::string& name);

}  // namespace varno
