// The state of the simulated line, in words.
#pragma once

#include <string>

#include "simulator/station.h"

namespace varno {

// Such as "COM2 at 9600 baud, not opened by a program". `port` is the number that it is offered as.
std::string LineText(const Station& station, int port);

}  // namespace varno
