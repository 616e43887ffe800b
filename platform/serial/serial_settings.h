// The settings string of a serial port, taken apart: "9600,n,8,1".
#pragma once

#include <string>
#include <string_view>

#include "platform/error.h"

namespace varno {

inline constexpr int DefaultCommPort = 1;
inline constexpr int MaxCommPort = 256;
inline constexpr std::string_view DefaultSerialSettings = "9600,n,8,1";

enum class StopBits { One, OneAndAHalf, Two };

struct SerialSettings {
    int rate = 9600;    // bits a second
    char parity = 'n';  // n none, e even, o odd, m mark, s space
    int dataBits = 8;
    StopBits stopBits = StopBits::One;

    bool operator==(const SerialSettings&) const = default;
};

// Four fields separated by commas, without blanks. On failure a sentence that names the field that
// is wrong, and `settings` is left as it is. 1.5 stop bits are wrong where the system has none.
[[nodiscard]] Error ParseSerialSettings(std::string_view text, SerialSettings& settings);

// What the line needs for one character, start, parity and stop bits included.
double SecondsPerCharacter(const SerialSettings& settings);

}  // namespace varno
