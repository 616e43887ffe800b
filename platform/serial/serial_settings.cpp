#include "platform/serial/serial_settings.h"

#include <array>
#include <cctype>
#include <charconv>
#include <vector>

#include "platform/serial/serial_system.h"

namespace varno {

namespace {

constexpr int MinRate = 50;
constexpr int MaxRate = 4'000'000;

std::vector<std::string_view> FieldsOf(std::string_view text) {
    std::vector<std::string_view> fields;
    for (std::size_t comma; (comma = text.find(',')) != std::string_view::npos;) {
        fields.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    fields.push_back(text);
    return fields;
}

Error Refused(const char* field, std::string_view value, const char* allowed) {
    return std::string(field) + " \"" + std::string(value) + "\" is wrong: it is " + allowed + ".";
}

// Digits only, from `low` to `high`.
bool ReadWithin(std::string_view field, int low, int high, int& value) {
    int read = 0;
    const char* const end = field.data() + field.size();
    const auto result = std::from_chars(field.data(), end, read);
    if (result.ec != std::errc() || result.ptr != end || read < low || read > high) {
        return false;
    }
    value = read;
    return true;
}

bool ReadParity(std::string_view field, char& parity) {
    if (field.size() != 1) {
        return false;
    }
    parity = static_cast<char>(std::tolower(static_cast<unsigned char>(field.front())));
    return std::string_view("neoms").find(parity) != std::string_view::npos;
}

bool ReadStopBits(std::string_view field, StopBits& stopBits) {
    constexpr std::array<std::string_view, 3> names = {"1", "1.5", "2"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (field == names[i]) {
            stopBits = static_cast<StopBits>(i);
            return stopBits != StopBits::OneAndAHalf || HasOneAndAHalfStopBits;
        }
    }
    return false;
}

}  // namespace

Error ParseSerialSettings(std::string_view text, SerialSettings& settings) {
    const std::vector<std::string_view> fields = FieldsOf(text);
    if (fields.size() != 4) {
        return "The settings \"" + std::string(text) +
               "\" are wrong: they are rate, parity, data bits and stop bits, separated by commas, "
               "such as " +
               std::string(DefaultSerialSettings) + ".";
    }
    SerialSettings read;
    if (!ReadWithin(fields[0], MinRate, MaxRate, read.rate)) {
        return Refused("The rate", fields[0], "a whole number from 50 to 4000000");
    }
    if (!ReadParity(fields[1], read.parity)) {
        return Refused("The parity", fields[1],
                       "n (none), e (even), o (odd), m (mark) or s (space)");
    }
    if (!ReadWithin(fields[2], 5, 8, read.dataBits)) {
        return Refused("The number of data bits", fields[2], "5, 6, 7 or 8");
    }
    if (!ReadStopBits(fields[3], read.stopBits)) {
        return Refused("The number of stop bits", fields[3],
                       HasOneAndAHalfStopBits ? "1, 1.5 or 2" : "1 or 2 on this system");
    }
    settings = read;
    return std::nullopt;
}

double SecondsPerCharacter(const SerialSettings& settings) {
    const double stopBits = settings.stopBits == StopBits::One   ? 1
                            : settings.stopBits == StopBits::Two ? 2
                                                                 : 1.5;
    const int parityBits = settings.parity == 'n' ? 0 : 1;
    return (1 + settings.dataBits + parityBits + stopBits) / settings.rate;
}

}  // namespace varno
