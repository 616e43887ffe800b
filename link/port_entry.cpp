#include "link/port_entry.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace varno {

namespace {

bool IsBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

// The number that the text begins with; infinite if it is too large.
double NumberAtStart(std::string text) {
    std::erase_if(text, IsBlank);
    const bool plus = text.starts_with('+');
    const std::string_view number = std::string_view(text).substr(plus ? 1 : 0);
    const std::size_t first = !plus && number.starts_with('-') ? 1 : 0;
    if (number.find_first_of("0123456789.", first) != first) {
        return 0;
    }
    double value = 0;
    const auto [end, status] = std::from_chars(number.data(), number.data() + number.size(), value);
    return status == std::errc::result_out_of_range ? std::numeric_limits<double>::infinity()
                                                    : value;
}

}  // namespace

std::string PortEntry(int port, std::string_view settings) {
    return std::to_string(port) + ":" + std::string(settings);
}

std::variant<int, std::string> EnteredPort(std::string_view entry) {
    const std::size_t colon = entry.find(':');
    if (colon == std::string_view::npos) {
        return "There is no \":\" between the port number and the settings.";
    }
    const std::string entered(entry.substr(0, colon));
    const double number = std::nearbyint(NumberAtStart(entered));
    if (number < std::numeric_limits<short>::min() || number > std::numeric_limits<short>::max()) {
        return "The port number \"" + entered + "\" is too large.";
    }
    return static_cast<int>(number);
}

std::string_view EnteredSettings(std::string_view entry) {
    return entry.substr(entry.find(':') + 1);  // npos + 1 is 0
}

}  // namespace varno
