#include "platform/serial/port_sentences.h"

#include "platform/serial/port_links.h"

namespace varno {

std::string MissingPortSentence(const std::string& name, const PortNumbers& present) {
    std::string sentence = "There is no " + name;
    if (present.empty()) {
        return sentence + ", and no other serial port. Connect the indicator or its adapter.";
    }
    sentence += present.size() == 1 ? ". The only serial port is " : ". The serial ports are ";
    const char* separator = "";
    for (const auto& [number, path] : present) {
        sentence += separator + PortName(number) + " (" + path + ")";
        separator = ", ";
    }
    return sentence + ". Choose one with Serial Port Configuration, or connect the indicator.";
}

std::string ForbiddenPortSentence(const std::string& name) {
    return "You have no permission to use " + name +
           ". Ask the administrator to add you to the group \"dialout\", then log in again.";
}

std::string BusyPortSentence(const std::string& name) {
    return name + " is in use by another program. End its use there and try again.";
}

std::string LostPortSentence(const std::string& name) {
    return name + " has gone away. Is its adapter still connected?";
}

}  // namespace varno
