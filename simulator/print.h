// A ticket as the indicator prints it.
#pragma once

#include <string>
#include <string_view>

#include "codec/decoder.h"

namespace varno {

// The ticket's text, UTF-8. Codes are shown in angle brackets: by their catalogue comment, or by
// letter and number where the catalogue has none. Nothing if there is no such ticket.
std::string PrintedTicket(std::string_view image, int ticketNumber, const Catalogues& catalogues);

}  // namespace varno
