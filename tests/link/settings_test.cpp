#include <gtest/gtest.h>

#include <limits>

#include "link/port_entry.h"
#include "link/serial_settings_command.h"
#include "tests/fakes/fake_dialogs.h"
#include "tests/link/fake_serial.h"

namespace varno {
namespace {

constexpr const char* Title = "COM Port Parameters";
constexpr const char* Prompt =
    "\r\n\r\n\r\nEnter PC's Serial Port Parameters\r\n(COM: BaudRate, Parity, DataBits, StopBits)";

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
        dialogs.ExpectInput(Title, Prompt, row.entry);
        for (const std::string& error : row.errors) {
            dialogs.Expect({error, "ERROR", Buttons::Ok, Icon::Critical}, Answer::Ok);
        }
        SerialSettingsCommand(serial, dialogs).Serial_Click();
        EXPECT_EQ(dialogs.inputDefaults, std::vector<std::string>{"3:4800,o,7,2"});
        EXPECT_EQ(serial.CommPort(), row.port);
        EXPECT_EQ(serial.Settings(), row.settings);
        EXPECT_EQ(serial.openings, 0);
    }
}

TEST(PortEntry, ReadsTheNumberThatItBeginsWith) {
    constexpr int refused = std::numeric_limits<int>::min();
    const std::pair<const char*, int> table[] = {
        {"1", 1},
        {" 1 2 ", 12},
        {"7x", 7},
        {"x7", 0},
        {"", 0},
        {"1.5", 2},
        {"2.5", 2},
        {".6", 1},
        {"-3", -3},
        {"+4", 4},
        {"- 4", -4},
        {"1e2", 100},
        {"1e", 1},
        {"inf", 0},
        {"nan", 0},
        {"32767", 32767},
        {"32767.5", refused},
        {"-32768", -32768},
        {"-32769", refused},
        {"1e999", refused},
        {"+-1", 0},
        {"0x10", 0},
        {"\t8", 8},
    };
    for (const auto& [text, number] : table) {
        const auto read = EnteredPort(std::string(text) + ":9600,n,8,1");
        const int* const port = std::get_if<int>(&read);
        EXPECT_EQ(port != nullptr ? *port : refused, number) << text;
    }
}

// The settings read back as text, or the field that the refusal names.
std::string Outcome(const std::string& text) {
    SerialSettings settings;
    if (const Error error = ParseSerialSettings(text, settings)) {
        EXPECT_EQ(settings, SerialSettings());
        for (const char* field : {"The rate", "The parity", "data bits \"", "stop bits \""}) {
            if (error->find(field) != std::string::npos) {
                return field;
            }
        }
        return "all";
    }
    const char* const stopBits[] = {"1", "1.5", "2"};
    return std::to_string(settings.rate) + settings.parity + std::to_string(settings.dataBits) +
           stopBits[static_cast<int>(settings.stopBits)];
}

TEST(SerialSettings, RefusalNamesTheWrongField) {
    const std::pair<const char*, const char*> table[] = {
        {"9600,n,8,1", "9600n81"},
        {"115200,E,7,2", "115200e72"},
        {"300,m,5,1", "300m51"},
        {"50,s,6,1", "50s61"},
        {"4000000,o,8,1", "4000000o81"},
        {"", "all"},
        {"9600", "all"},
        {"9600,n,8", "all"},
        {"9600,n,8,1,", "all"},
        {",n,8,1", "The rate"},
        {"0,n,8,1", "The rate"},
        {"9600.5,n,8,1", "The rate"},
        {"-9600,n,8,1", "The rate"},
        {" 9600,n,8,1", "The rate"},
        {"99999999999,n,8,1", "The rate"},
        {"9600,x,8,1", "The parity"},
        {"9600,,8,1", "The parity"},
        {"9600,nn,8,1", "The parity"},
        {"9600, n,8,1", "The parity"},
        {"9600,n,4,1", "data bits \""},
        {"9600,n,9,1", "data bits \""},
        {"9600,n,,1", "data bits \""},
        {"9600,n,8,3", "stop bits \""},
        {"9600,n,8,", "stop bits \""},
        {"9600,n,8,1.0", "stop bits \""},
#ifndef _WIN32
        {"9600,n,5,1.5", "stop bits \""},
#endif
    };
    for (const auto& [text, outcome] : table) {
        EXPECT_EQ(Outcome(text), outcome) << text;
    }
}

TEST(SerialSettings, CountEveryBitOfACharacter) {
    EXPECT_DOUBLE_EQ(SecondsPerCharacter({9600, 'n', 8, StopBits::One}), 10.0 / 9600);
    EXPECT_DOUBLE_EQ(SecondsPerCharacter({300, 'e', 7, StopBits::Two}), 11.0 / 300);
}

}  // namespace
}  // namespace varno
