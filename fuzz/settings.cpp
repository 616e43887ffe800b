// Settings string and port entry: what is accepted lies in its range and reads the same again.
#include "fuzz/fuzz.h"
#include "link/port_entry.h"
#include "platform/serial/serial_settings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    const std::string entry(reinterpret_cast<const char*>(data), size);
    const std::string settings(EnteredSettings(entry));
    const auto port = EnteredPort(entry);
    if (const int* number = std::get_if<int>(&port)) {
        const std::string again = PortEntry(*number, settings);
        Must(EnteredPort(again) == port && EnteredSettings(again) == settings);
    }
    SerialSettings read;
    const bool accepted = !ParseSerialSettings(settings, read);
    Must(accepted || read == SerialSettings());
    Must(read.rate > 0 && read.dataBits >= 5 && read.dataBits <= 8);
    Must(SecondsPerCharacter(read) > 0 && SecondsPerCharacter(read) * read.rate < 13);
    return 0;
}
