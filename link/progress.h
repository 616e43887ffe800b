// The progress texts of both transfers.
#pragma once

#include <cstddef>
#include <string>

namespace varno {

// Whole percents of an image that so many characters are; above 100 for a text that is longer.
int ProgressPercent(std::size_t characters);

std::string ReceivingText(int percent);
std::string TransmittingText(int percent);

}  // namespace varno
