#include "link/progress.h"

#include <cmath>

#include "block/image.h"

namespace varno {

int ProgressPercent(std::size_t characters) {
    constexpr double percentPerCharacter = 100.0 / static_cast<double>(ImageLength);
    return static_cast<int>(std::floor(percentPerCharacter * static_cast<double>(characters)));
}

std::string ReceivingText(int percent) {
    return "Receiving ticket buffer from Varno ... " + std::to_string(percent) + "%";
}

std::string TransmittingText(int percent) {
    return "Transmitting ticket block to Varno ... " + std::to_string(percent) + "%";
}

}  // namespace varno
