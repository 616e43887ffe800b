#include "link/spoken_status.h"

#include <utility>

namespace varno {
namespace {

// "... 37%" is "... 30%".
std::string InTens(std::string caption) {
    if (caption.ends_with('%') && caption.size() > 1) {
        caption[caption.size() - 2] = '0';
    }
    return caption;
}

}  // namespace

std::string SpokenStatus::Of(const std::string& caption, bool isPortOpen) {
    if (!caption.empty() && !isPortOpen) {
        return {};
    }
    const std::string now = InTens(caption);
    const std::string before = std::exchange(last_, now);
    if (before == now) {
        return {};
    }
    return caption.empty() ? "The transfer has ended." : caption;
}

}  // namespace varno
