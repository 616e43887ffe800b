#include <gtest/gtest.h>

#include "link/port_entry.h"
#include "link/serial_settings_command.h"
#include "tests/fakes/fake_dialogs.h"
#include "tests/link/fake_serial.h"

namespace varno {
namespace {

TEST(SerialSettings, EachStepAppliesOrReportsByItself) {
    const std::string noColon = "There is no \":\" between the port number and the settings.";
    struct {
        const char* entry;
        int port;
        const char* settings;
        std::vector<std::string> errors;
    } table[] = {
        {"3:4800,o,7,2", 3, "4800,o,7,2", {}},  // unchanged
        {"2:9600,e,7,1", 2, "9600,e,7,1", {}},
        {"9600,n,8,1", 3, "9600,n,8,1", {noColon}},
        {"0:9600,n,8,1", 3, "9600,n,8,1", {"no such number"}},
        {"1:", 1, "4800,o,7,2", {"no such settings"}},
        {"x:y", 3, "4800,o,7,2", {"no such number", "no such settings"}},
        {"40000:9600,n,8,1", 3, "9600,n,8,1", {"The port number \"40000\" is too large."}},
        {"2:9600:1", 2, "4800,o,7,2", {"no such settings"}},
        {"", 3, "4800,o,7,2", {}},  // cancelled
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.entry);
        FakeSerial serial;
        EXPECT_FALSE(serial.SetCommPort(3) || serial.SetSettings("4800,o,7,2"));
        FakeDialogs dialogs;
        dialogs.ExpectInput("COM Port Parameters",
                            "\r\n\r\n\r\nEnter PC's Serial Port Parameters\r\n"
                            "(COM: BaudRate, Parity, DataBits, StopBits)",
                            row.entry);
        for (const std::string& error : row.errors) {
            dialogs.Expect({error, "ERROR", Buttons::Ok, Icon::Critical}, Answer::Ok);
        }
        SerialSettingsCommand(serial, dialogs).Serial_Click();
        EXPECT_EQ(dialogs.inputDefaults, std::vector<std::string>{"3:4800,o,7,2"});
        EXPECT_EQ(serial.CommPort(), row.port);
        EXPECT_EQ(serial.Settings(), row.settings);
    }
}

TEST(PortEntry, ReadsTheNumberThatItBeginsWith) {
    const std::pair<const char*, std::optional<int>> table[] = {
        {" 1 2 ", 12},      {"7x", 7},       {"x7", 0},      {"", 0},       {"1.5", 2},
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
