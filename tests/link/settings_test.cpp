#include <gtest/gtest.h>

#include "link/port_entry.h"
#include "platform/serial/serial_settings.h"

namespace varno {
namespace {

TEST(PortEntry, ReadsTheNumberThatItBeginsWith) {
    const std::pair<const char*, std::optional<int>> table[] = {
        {" 1 2 ", 12},      {"7x", 7},       {"x7", 0},      {".", 0},      {"1.5", 2},
        {"2.5", 2},         {".6", 1},       {"-3", -3},     {"+4", 4},     {"+-1", 0},
        {"1e2", 100},       {"1e", 1},       {"inf", 0},     {"0x10", 0},   {"32767", 32767},
        {"-32768", -32768}, {"32767.5", {}}, {"-32769", {}}, {"1e999", {}},
    };
    for (const auto& [text, number] : table) {
        const auto read = EnteredPort(std::string(text) + ":9600,n,8,1");
        const int* const port = std::get_if<int>(&read);
        EXPECT_EQ(port != nullptr ? std::optional(*port) : std::nullopt, number) << text;
    }
}

TEST(SerialSettings, RefusalNamesTheWrongField) {
    SerialSettings settings;
    EXPECT_FALSE(ParseSerialSettings("115200,E,7,2", settings));
    EXPECT_EQ(settings, (SerialSettings{115200, 'e', 7, StopBits::Two}));
    const std::pair<const char*, const char*> table[] = {
        {"50,s,5,1", nullptr},
        {"4000000,m,8,1", nullptr},
        {"", "rate, parity, data bits and stop bits"},
        {"9600,n,8", "rate, parity, data bits and stop bits"},
        {"9600,n,8,1,", "rate, parity, data bits and stop bits"},
        {",n,8,1", "The rate \"\""},
        {"49,n,8,1", "The rate \"49\""},
        {"9600.5,n,8,1", "The rate \"9600.5\""},
        {" 9600,n,8,1", "The rate \" 9600\""},
        {"99999999999,n,8,1", "The rate \"99999999999\""},
        {"9600,x,8,1", "The parity \"x\""},
        {"9600,nn,8,1", "The parity \"nn\""},
        {"9600,n,4,1", "data bits \"4\""},
        {"9600,n,9,1", "data bits \"9\""},
        {"9600,n,8,3", "stop bits \"3\""},
        {"9600,n,8,1.0", "stop bits \"1.0\""},
    };
    for (const auto& [text, complaint] : table) {
        const Error error = ParseSerialSettings(text, settings);
        EXPECT_EQ(error.has_value(), complaint != nullptr) << text;
        EXPECT_TRUE(!error || error->find(complaint) != std::string::npos) << *error;
    }
}

TEST(SerialSettings, CountEveryBitOfACharacter) {
    EXPECT_DOUBLE_EQ(SecondsPerCharacter({9600, 'n', 8, StopBits::One}), 10.0 / 9600);
    EXPECT_DOUBLE_EQ(SecondsPerCharacter({300, 'e', 7, StopBits::Two}), 11.0 / 300);
}

}  // namespace
}  // namespace varno
